#include "cli/remainingDifferences.h"

#include "cli/streamName.h"
#include "diff/compareDevices.h"
#include "diff/differenceWords.h"
#include "diff/source.h"
#include "diff/words.h"
#include "model/valueTexts.h"

#include <algorithm>

namespace cli {

namespace {

using retrace::DeviceMatch;
using retrace::MatchedDevice;

class DifferenceTeller
{
public:
    DifferenceTeller(const RetracedInputs& inputs, Messages& messages)
        : m_inputs(inputs)
        , m_messages(messages)
        , m_export(inputs.exportBytes)
    {}

    std::size_t tellAll()
    {
        tellDevices();
        if (!retrace::hasOneTime(m_inputs.run))
            tell(m_inputs.run.first,
                 QStringLiteral("its devices show several times, or one that there is not; an export has one"));
        for (std::size_t file = 0; file < m_inputs.files.size(); ++file)
            tellValues(file);
        return m_told;
    }

private:
    void tell(std::int64_t offset, const QString& text)
    {
        ++m_told;
        m_messages.warning(m_inputs.exportPath, WarningCode::NoChoice,
                           QStringLiteral("at %1: %2").arg(hexNumber(static_cast<std::uint32_t>(offset)), text));
    }

    [[nodiscard]] const facts::UnitFacts& deviceAt(std::size_t block) const
    {
        return *m_export.devices()[m_inputs.run.firstDevice + block];
    }

    [[nodiscard]] QString labelOf(std::size_t block) const
    {
        const facts::UnitFacts& device = deviceAt(block);
        return QString::fromStdString(diff::named(diff::identityWords(device), device.name));
    }

    /// Devices that no description has, and those that an export would write elsewhere.
    void tellDevices()
    {
        for (std::size_t block = 0; block < m_inputs.retraced.devices.size(); ++block) {
            const MatchedDevice& matched = m_inputs.retraced.devices[block];
            const std::int64_t offset = m_export.placeOf(deviceAt(block).where).number;
            if (matched.match == DeviceMatch::None)
                tell(offset, QStringLiteral("no description has the device %1").arg(labelOf(block)));
            else if (!matched.isInOrder)
                tell(offset, QStringLiteral("%1 is not written here: devices go out once, in the order of the "
                                            "descriptions; is another order of the files meant?")
                                 .arg(labelOf(block)));
        }
    }

    [[nodiscard]] std::vector<diff::Pair> pairsOf(std::size_t file) const
    {
        std::vector<diff::Pair> pairs;
        for (std::size_t block = 0; block < m_inputs.retraced.devices.size(); ++block) {
            const MatchedDevice& matched = m_inputs.retraced.devices[block];
            if (matched.match != DeviceMatch::None && matched.position.first == file)
                pairs.push_back({matched.position.second, m_inputs.run.firstDevice + block, false});
        }
        return pairs;
    }

    /// What differs between the devices of a file with the choices and those of the export.
    void tellValues(std::size_t index)
    {
        diff::CompareRequest request;
        request.pairs = pairsOf(index);
        request.comparesModules = false;
        if (request.pairs.empty())
            return;
        const TreeInput& input = m_inputs.trees[index];
        diff::Source file(*input.tree, m_inputs.files[index], input.areComplete);
        diff::compareSources(file, m_export, request, [&](const diff::ComparedDevices& compared) {
            for (const diff::Difference& difference : compared.differences)
                tellDifference(index, file, compared, difference);
        });
    }

    void tellDifference(std::size_t index, const diff::Source& file, const diff::ComparedDevices& compared,
                        const diff::Difference& difference)
    {
        const facts::Where device = compared.after->where;
        QString text = QString::fromStdString(headOf(compared) + ": " + wordsOf(difference));
        if (difference.spot.before.has_value())
            text += QStringLiteral(" (%1:%2)")
                        .arg(shownName(m_inputs.paths.at(static_cast<int>(index))))
                        .arg(file.placeOf(*difference.spot.before).number);
        tell(m_export.placeOf(difference.spot.after.value_or(device)).number, text);
    }

    const RetracedInputs& m_inputs;
    Messages& m_messages;
    diff::Source m_export;
    std::size_t m_told = 0;
};

} // namespace

std::size_t tellRemainingDifferences(const RetracedInputs& inputs, Messages& messages)
{
    return DifferenceTeller(inputs, messages).tellAll();
}

} // namespace cli
