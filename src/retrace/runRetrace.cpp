#include "retrace/runRetrace.h"

#include "model/valueTexts.h"
#include "retrace/moduleLinkRetrace.h"

#include <QStringList>

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <utility>

namespace retrace {

namespace {

using choices::DevicePosition;

/// The modules of a file as they were linked for an export, and what was done to its devices.
struct FileRetrace
{
    struct_FilenameDevice file; ///< without devices
    std::vector<choices::LinkChoice> moduleLinks;
    std::unique_ptr<DeviceRetrace> devices;
};

class RunRetrace
{
public:
    RunRetrace(const std::vector<struct_FilenameDevice>& files, const std::vector<ExportedBlock>& blocks)
        : m_files(files)
        , m_blocks(blocks)
        , m_selectors(files)
    {
        m_run.devices = matchedDevices(files, blocks);
    }

    [[nodiscard]] RetracedRun run()
    {
        for (std::size_t place = 0; place < m_blocks.size(); ++place)
            if (m_run.devices[place].match != DeviceMatch::None)
                m_blockOf.emplace(m_run.devices[place].position, place); // of two blocks the first
        for (const auto& [position, place] : m_blockOf)
            m_retraced[position] = fileAt(position.first).devices->retraced(deviceFor(position), m_blocks[place]);
        for (const auto& [index, file] : m_fileRetraces)
            if (!file.moduleLinks.empty())
                carryModuleLinks(index, file.moduleLinks);
        for (auto& [position, retraced] : m_retraced)
            if (retraced.isSelected && m_carriers.count(position) == 0)
                addDevice(position, std::move(retraced.choices));
        nameExported();
        return std::move(m_run);
    }

private:
    /// The device of a position as it was loaded, with the identity that it has in the run.
    [[nodiscard]] struct_EtherCatDevice deviceFor(const DevicePosition& position) const
    {
        return withIdentityOf(m_blocks[m_blockOf.at(position)], m_files[position.first].device[position.second]);
    }

    /// A file, with the links that its modules have in the run.
    FileRetrace& fileAt(std::size_t index)
    {
        const auto [found, isNew] = m_fileRetraces.try_emplace(index);
        FileRetrace& file = found->second;
        if (!isNew)
            return file;
        file.file = withoutDevices(m_files[index]);
        const std::vector<NamedModule> modules = namedModulesOf(file.file);
        for (const auto& [position, place] : m_blockOf)
            if (position.first == index && !m_blocks[place].content.modules.empty()) {
                file.moduleLinks = moduleLinksOf(modules, m_blocks[place].content);
                break; // each device of the file repeats them
            }
        setModuleLinks(file.file, file.moduleLinks);
        file.devices = std::make_unique<DeviceRetrace>(file.file);
        return file;
    }

    /// Puts the links of a file's modules to one of its devices that is selected. They have to come before the choices
    /// of other devices of the file, which take modules with these links.
    void carryModuleLinks(std::size_t index, const std::vector<choices::LinkChoice>& links)
    {
        const DevicePosition carrier = carrierOf(index);
        const auto found = m_retraced.find(carrier);
        choices::DeviceChoices choices;
        if (found != m_retraced.end() && found->second.isSelected)
            choices = found->second.choices;
        else
            choices.isClicked = false; // nothing else happens to it
        choices.moduleLinks = links;
        m_carriers.insert(carrier);
        addDevice(carrier, std::move(choices));
    }

    /// The first device of a file that is in the list in any case, or one that is not in the run; else the first.
    [[nodiscard]] DevicePosition carrierOf(std::size_t index) const
    {
        const auto first = m_retraced.lower_bound({index, 0});
        const auto end = m_retraced.lower_bound({index + 1, 0});
        const auto selected = std::find_if(first, end, [](const auto& entry) { return entry.second.isSelected; });
        if (selected != end)
            return selected->first;
        for (std::size_t device = 0; device < m_files[index].device.size(); ++device)
            if (m_retraced.count({index, device}) == 0)
                return {index, device};
        return first->first;
    }

    /// A device in the words of a user: its identity, or its number if others have the same.
    [[nodiscard]] QString selectorOf(const DevicePosition& position) const
    {
        const struct_FilenameDevice& file = m_files[position.first];
        const DeviceTypeAttributes& type = file.device[position.second].TypeAttributes;
        QString identity =
            QStringList{hexNumber(file.Vendor_Id), hexNumber(type.Product_Code), hexNumber(type.Revision_No)}.join(
                QLatin1Char(':'));
        if (m_selectors.deviceOf(identity).count == 1)
            return identity;
        std::size_t number = position.second + 1;
        for (std::size_t index = 0; index < position.first; ++index)
            number += m_files[index].device.size();
        return QString::number(number);
    }

    void addDevice(const DevicePosition& position, choices::DeviceChoices choices)
    {
        choices.device = selectorOf(position);
        m_run.choices.devices.push_back(std::move(choices));
        m_run.chosen.push_back(position);
    }

    /// Names the devices that go out, unless all do.
    void nameExported()
    {
        std::size_t count = 0;
        for (const struct_FilenameDevice& file : m_files)
            count += file.device.size();
        if (m_blockOf.empty() || m_blockOf.size() == count)
            return;
        m_run.choices.exported.emplace();
        for (const auto& [position, place] : m_blockOf)
            m_run.choices.exported->push_back(selectorOf(position));
    }

    const std::vector<struct_FilenameDevice>& m_files;
    const std::vector<ExportedBlock>& m_blocks;
    choices::DeviceSelectors m_selectors;
    std::map<std::size_t, FileRetrace> m_fileRetraces; ///< of the files that have a device in the run
    std::map<DevicePosition, std::size_t> m_blockOf; ///< in the order of an export
    std::map<DevicePosition, RetracedDevice> m_retraced;
    std::set<DevicePosition> m_carriers; ///< of the links of modules
    RetracedRun m_run;
};

} // namespace

RetracedRun retracedRun(const std::vector<struct_FilenameDevice>& files, const std::vector<ExportedBlock>& blocks)
{
    return RunRetrace(files, blocks).run();
}

} // namespace retrace
