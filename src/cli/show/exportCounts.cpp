#include "cli/show/exportCounts.h"

#include "ktl/ktlExport.h"
#include "ktl/ktlItemWalk.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace {

/// Writes the block that a device's export has of one module.
/// @param module  in between it stands in a file of its own; its dictionary can be too big for a copy
/// @return        number of bytes
std::size_t writeBlock(std::FILE* out, struct_EtherCatDevice& device, struct_module& module)
{
    struct_FilenameDevice file;
    file.vcommentmodule.resize(1);
    file.vcommentmodule.front().vmodule.resize(1);
    struct_module& onlyOne = file.vcommentmodule.front().vmodule.front();
    const long begin = std::ftell(out);
    std::swap(onlyOne, module);
    KTL_write_device_Module(out, &device, &file);
    std::swap(onlyOne, module);
    return static_cast<std::size_t>(std::ftell(out) - begin);
}

/// The startup commands are the last item of a block, and the only one whose size does not come from its records.
bool isAsAnnounced(const std::vector<unsigned char>& block)
{
    const KtlWalk walk = walkItems(block);
    const auto startup = std::find_if(walk.items.begin(), walk.items.end(), [](const KtlFileItem& item) {
        return item.type == KTL_ITEM_ModuleCoEInitCmdType;
    });
    return startup == walk.items.end() || startup->offset + startup->announcedSize == block.size();
}

} // namespace

const struct_module* firstMiscountedModule(struct_EtherCatDevice& device, struct_FilenameDevice& file,
                                           std::FILE* scratch)
{
    if (!hasModuleBlocks(device.m_iDeviceType))
        return nullptr;
    std::vector<std::size_t> sizes;
    for (struct_commentmodule& group : file.vcommentmodule)
        for (struct_module& module : group.vmodule)
            sizes.push_back(writeBlock(scratch, device, module));
    std::rewind(scratch);
    auto size = sizes.begin();
    for (const struct_commentmodule& group : file.vcommentmodule)
        for (const struct_module& module : group.vmodule) {
            std::vector<unsigned char> block(*size++);
            block.resize(std::fread(block.data(), 1, block.size(), scratch));
            if (!isAsAnnounced(block))
                return &module;
        }
    return nullptr;
}
