#include "cli/show/showSource.h"

#include "cli/cStreams.h"
#include "cli/inputFile.h"
#include "cli/ktlInput.h"
#include "cli/show/exportCounts.h"
#include "cli/show/showWords.h"
#include "ktl/ktlExport.h"
#include "model/XMLParsing.h"

#include <QDate>
#include <QDateTime>
#include <QFile>

#include <new>
#include <stdexcept>

namespace {

bool readKtlFile(ShownFile& file, QFile& input, Messages& messages)
{
    std::optional<std::vector<unsigned char>> bytes = readKtl(input, file.path, messages);
    if (!bytes.has_value())
        return false;
    file.bytes = std::move(*bytes);
    file.walk = walkItems(file.bytes);
    file.isComplete = file.walk.end == KtlWalkEnd::Whole;
    const std::vector<KtlBlockPlace> places = blockPlacesOf(file.walk);
    file.devices = {places.size(), [&walk = file.walk, places](std::size_t index) {
                        KtlDeviceBlock block = deviceBlockAt(walk, places[index]);
                        StartupSources sources = startupSourcesOf(block);
                        return ShownDevice{std::move(block), std::move(sources), true};
                    }};
    if (const QString problem = problemAtEnd(file.walk); !problem.isEmpty())
        messages.error(file.path, problem);
    return true;
}

/// The devices of the loaded file as a reader finds them in an export of it. What is wrong with one is told once.
class ExportedDevices
{
public:
    ExportedDevices(ShownFile& file, Messages& messages)
        : m_file(&file)
        , m_messages(&messages)
        , m_isTold(loaded().device.size(), false)
    {}

    ShownDevice operator()(std::size_t index)
    {
        struct_EtherCatDevice& device = loaded().device[index];
        const bool isFirstTime = !m_isTold[index];
        m_isTold[index] = true;
        StartupSources sources = startupSourcesOf(device); // while there is no export yet that takes memory too
        MemoryFile written;
        if (writeItems(written.stream(), device, isFirstTime) && isFirstTime)
            tellWhatIsLost(device);
        written.finish();
        const KtlWalk walk = walkItems(written.data(), written.size());
        const std::vector<KtlBlockPlace> places = blockPlacesOf(walk);
        return {places.empty() ? KtlDeviceBlock() : deviceBlockAt(walk, places.front()), std::move(sources), false};
    }

private:
    static struct_FilenameDevice& loaded() { return g_xmlfiledevices.back(); }

    /// @return  whether it came to its end
    bool writeItems(std::FILE* out, struct_EtherCatDevice& device, bool tells)
    {
        const QDateTime anyTime(QDate(1970, 1, 1), QTime(0, 0)); // it is not shown: this is no export
        try {
            if (writeDevice(out, device, loaded(), anyTime) <= 0)
                throw std::bad_alloc(); // memory is all that can be short
            return true;
        } catch (const std::out_of_range& error) {
            if (tells)
                m_messages->error(m_file->path, rangeErrorText(error));
            m_file->isComplete = false;
            return false;
        }
    }

    /// Warns of a device whose export cannot be read in full.
    void tellWhatIsLost(struct_EtherCatDevice& device)
    {
        if (const struct_module* const module = firstMiscountedModule(device, loaded()))
            m_messages->warning(m_file->path, WarningCode::ModuleCommands,
                                QStringLiteral("device \"%1\": in an export, module %2 does not have as many startup "
                                               "commands as it announces; the items after them cannot be found")
                                    .arg(QString::fromStdString(device.Name),
                                         QString::fromStdString(hexText(module->TypeAttributes.ModuleIdent))));
    }

    ShownFile* m_file;
    Messages* m_messages;
    std::vector<bool> m_isTold; ///< of each device
};

bool readEsiFile(ShownFile& file, QFile& input, Messages& messages)
{
    if (!loadOpenEsi(input, file.path, messages))
        return false;
    file.isEsi = true;
    file.devices = {g_xmlfiledevices.back().device.size(), ExportedDevices(file, messages)};
    return true;
}

} // namespace

std::unique_ptr<const ShownFile> openShownFile(const QString& path, Messages& messages)
{
    g_xmlfiledevices.clear();
    QFile input;
    if (!openInput(input, path, messages))
        return nullptr;
    const std::optional<InputKind> kind = kindOfInput(input, path, messages);
    if (!kind.has_value())
        return nullptr;
    auto file = std::make_unique<ShownFile>();
    file->path = path;
    if (kind == InputKind::Esi && readEsiFile(*file, input, messages))
        return file;
    if (kind == InputKind::Ktl && readKtlFile(*file, input, messages))
        return file;
    if (kind == InputKind::Neither)
        messages.error(path, QStringLiteral("this is neither an ESI file nor a KTL file"));
    return nullptr;
}

std::string shownFileName(const ShownFile& file)
{
    return QFile::encodeName(shownName(file.path)).toStdString();
}
