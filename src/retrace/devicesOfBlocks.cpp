#include "retrace/devicesOfBlocks.h"

#include "retrace/moduleLinkRetrace.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>

namespace retrace {

namespace {

using choices::DevicePosition;

/// Vendor id, product code, revision and serial number.
using Identity = std::tuple<std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t>;

Identity identityOf(const struct_KTL_EtherCatDeviceType& general)
{
    return {general.m_iVendor_Id, general.m_iProduct_Code, general.m_iRevision_No, general.m_iSerial_No};
}

std::uint32_t distance(std::uint32_t left, std::uint32_t right)
{
    return left < right ? right - left : left - right;
}

/// Name of the device of a block; empty if the block has no names.
std::string nameOf(const KtlDeviceBlock& block)
{
    const std::string text = block.moreInfo.has_value() ? block.moreInfo->text : std::string();
    return text.substr(0, text.find_first_of(std::string_view("\n\0", 2)));
}

/// Finds the devices of blocks one after another.
class DeviceMatching
{
public:
    explicit DeviceMatching(const std::vector<struct_FilenameDevice>& files)
        : m_files(files)
    {
        for (std::size_t file = 0; file < files.size(); ++file)
            for (std::size_t device = 0; device < files[file].device.size(); ++device) {
                const DeviceTypeAttributes& type = files[file].device[device].TypeAttributes;
                m_byIdentity[{files[file].Vendor_Id, type.Product_Code, type.Revision_No, type.Serial_No}].push_back(
                    {file, device});
            }
    }

    [[nodiscard]] MatchedDevice next(const ExportedBlock& block)
    {
        MatchedDevice matched;
        if (const auto found = m_byIdentity.find(identityOf(block.content.general)); found != m_byIdentity.end())
            matched = {DeviceMatch::Same, positionOf(block, found->second), true};
        else
            matched = nearest(block);
        if (matched.match != DeviceMatch::None) {
            matched.isInOrder = !m_last.has_value() || *m_last < matched.position;
            m_last = matched.isInOrder ? matched.position : m_last;
        }
        return matched;
    }

private:
    /// The first device of an identity that can come next and become the one of a block; without one the first that
    /// can come next, else the first of all.
    [[nodiscard]] DevicePosition positionOf(const ExportedBlock& block,
                                            const std::vector<DevicePosition>& positions) const
    {
        constexpr std::ptrdiff_t maxTried = 64; // of devices that no one can tell apart
        const auto first =
            m_last.has_value() ? std::upper_bound(positions.begin(), positions.end(), *m_last) : positions.begin();
        if (first == positions.end())
            return positions.front();
        const auto end = first + std::min(maxTried, positions.end() - first);
        if (end - first == 1)
            return *first;
        const auto exact = std::find_if(first, end, [&](const DevicePosition& position) {
            struct_FilenameDevice file = withoutDevices(m_files[position.first]);
            setModuleLinks(file, moduleLinksOf(namedModulesOf(file), block.content));
            return DeviceRetrace(file).retraced(deviceAt(position), block).isExact;
        });
        return exact == end ? *first : *exact;
    }

    [[nodiscard]] const struct_EtherCatDevice& deviceAt(const DevicePosition& position) const
    {
        return m_files[position.first].device[position.second];
    }

    /// The device of the same product whose revision is nearest, else one of the same name.
    [[nodiscard]] MatchedDevice nearest(const ExportedBlock& block) const
    {
        const struct_KTL_EtherCatDeviceType& general = block.content.general;
        const std::string name = nameOf(block.content);
        MatchedDevice best;
        std::uint32_t leastDistance = 0;
        for (std::size_t file = 0; file < m_files.size(); ++file) {
            if (m_files[file].Vendor_Id != general.m_iVendor_Id)
                continue;
            for (std::size_t device = 0; device < m_files[file].device.size(); ++device) {
                const struct_EtherCatDevice& candidate = deviceAt({file, device});
                const std::uint32_t away = distance(candidate.TypeAttributes.Revision_No, general.m_iRevision_No);
                if (candidate.TypeAttributes.Product_Code == general.m_iProduct_Code) {
                    if (best.match != DeviceMatch::OtherRevision || away < leastDistance) {
                        best = {DeviceMatch::OtherRevision, {file, device}, true};
                        leastDistance = away;
                    }
                } else if (best.match == DeviceMatch::None && !name.empty() && candidate.Name == name) {
                    best = {DeviceMatch::OtherProduct, {file, device}, true};
                }
            }
        }
        return best;
    }

    const std::vector<struct_FilenameDevice>& m_files;
    std::map<Identity, std::vector<DevicePosition>> m_byIdentity; ///< in the order of an export
    std::optional<DevicePosition> m_last; ///< the one that an export has written last
};

} // namespace

std::vector<MatchedDevice> matchedDevices(const std::vector<struct_FilenameDevice>& files,
                                          const std::vector<ExportedBlock>& blocks)
{
    DeviceMatching matching(files);
    std::vector<MatchedDevice> matched;
    matched.reserve(blocks.size());
    for (const ExportedBlock& block : blocks)
        matched.push_back(matching.next(block));
    return matched;
}

struct_EtherCatDevice withIdentityOf(const ExportedBlock& block, struct_EtherCatDevice device)
{
    const struct_KTL_EtherCatDeviceType& general = block.content.general;
    device.TypeAttributes.Product_Code = general.m_iProduct_Code;
    device.TypeAttributes.Revision_No = general.m_iRevision_No;
    device.TypeAttributes.Serial_No = general.m_iSerial_No;
    return device;
}

} // namespace retrace
