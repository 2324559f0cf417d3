#include "show/exportedDevices.h"

#include "esi/derivation/rangeErrors.h"
#include "ktl/ktlExport.h"
#include "ktl/reading/ktlItemWalk.h"
#include "ktl/writing/moduleCounts.h"
#include "show/showWords.h"
#include "show/startupOrigins.h"
#include "system/cStreams.h"

#include <QDate>
#include <QDateTime>

#include <new>
#include <stdexcept>
#include <utility>
#include <vector>

namespace show {

namespace {

/// Makes the devices of a file, and reports once what is wrong with each.
class Exporter
{
public:
    Exporter(struct_FilenameDevice& file, ExportProblemSink report)
        : m_file(&file)
        , m_report(std::move(report))
        , m_isReported(file.device.size(), false)
    {}

    ShownDevice operator()(std::size_t index)
    {
        struct_EtherCatDevice& device = m_file->device[index];
        const bool isFirstTime = !m_isReported[index];
        m_isReported[index] = true;
        StartupSources sources = startupSourcesOf(device); // while there is no export yet that takes memory too
        os::MemoryFile written;
        if (writeItems(written.stream(), device, isFirstTime) && isFirstTime)
            reportWhatIsLost(device);
        written.finish();
        const KtlWalk walk = walkItems(written.data(), written.size());
        const std::vector<KtlBlockPlace> places = blockPlacesOf(walk);
        return {places.empty() ? KtlDeviceBlock() : deviceBlockAt(walk, places.front()), std::move(sources), false};
    }

private:
    /// @return  whether it came to its end
    bool writeItems(std::FILE* out, struct_EtherCatDevice& device, bool reports)
    {
        const QDateTime anyTime(QDate(1970, 1, 1), QTime(0, 0)); // it is not shown: this is no export
        try {
            if (writeDevice(out, device, *m_file, anyTime) <= 0)
                throw std::bad_alloc(); // memory is all that can be short
            return true;
        } catch (const std::out_of_range& error) {
            if (reports)
                m_report({ExportProblem::Kind::CutShort, rangeErrorText(error)});
            return false;
        }
    }

    void reportWhatIsLost(struct_EtherCatDevice& device)
    {
        if (const struct_module* const module = firstMiscountedModule(device, *m_file))
            m_report(
                {ExportProblem::Kind::LostItems,
                 QStringLiteral("device \"%1\": in an export, module %2 does not have as many startup commands as it "
                                "announces; the items after them cannot be found")
                     .arg(QString::fromStdString(device.Name),
                          QString::fromStdString(hexText(module->TypeAttributes.ModuleIdent)))});
    }

    struct_FilenameDevice* m_file;
    ExportProblemSink m_report;
    std::vector<bool> m_isReported; ///< of each device
};

} // namespace

ShownDevices exportedDevices(struct_FilenameDevice& file, ExportProblemSink report)
{
    return {file.device.size(), Exporter(file, std::move(report))};
}

} // namespace show
