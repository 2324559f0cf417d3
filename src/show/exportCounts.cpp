#include "show/exportCounts.h"

#include "ktl/ktlExport.h"
#include "ktl/reading/ktlItemWalk.h"
#include "system/cStreams.h"

#include <algorithm>
#include <utility>

namespace {

/// Lets a module stand in a file of its own as long as it lives: its dictionary can be too big for a copy.
class FileOfOne
{
public:
    explicit FileOfOne(struct_module& module)
        : m_module(module)
    {
        m_file.vcommentmodule.resize(1);
        m_file.vcommentmodule.front().vmodule.resize(1);
        std::swap(onlyOne(), m_module);
    }
    ~FileOfOne() { std::swap(onlyOne(), m_module); }
    FileOfOne(const FileOfOne&) = delete;
    FileOfOne& operator=(const FileOfOne&) = delete;
    FileOfOne(FileOfOne&&) = delete;
    FileOfOne& operator=(FileOfOne&&) = delete;

    [[nodiscard]] struct_FilenameDevice& file() { return m_file; }

private:
    struct_module& onlyOne() { return m_file.vcommentmodule.front().vmodule.front(); }

    struct_module& m_module;
    struct_FilenameDevice m_file;
};

/// Whether the block that a device's export has of one module is as long as it announces. The startup commands are the
/// last item of a block, and the only one whose size does not come from its records.
bool isAsAnnounced(struct_EtherCatDevice& device, struct_module& module)
{
    os::MemoryFile block;
    FileOfOne onlyOne(module);
    KTL_write_device_Module(block.stream(), &device, &onlyOne.file());
    block.finish();
    const KtlWalk walk = walkItems(block.data(), block.size());
    const auto startup = std::find_if(walk.items.begin(), walk.items.end(), [](const KtlFileItem& item) {
        return item.type == KTL_ITEM_ModuleCoEInitCmdType;
    });
    return startup == walk.items.end() || startup->offset + startup->announcedSize == block.size();
}

} // namespace

const struct_module* firstMiscountedModule(struct_EtherCatDevice& device, struct_FilenameDevice& file)
{
    if (!hasModuleBlocks(device.m_iDeviceType))
        return nullptr;
    for (struct_commentmodule& group : file.vcommentmodule)
        for (struct_module& module : group.vmodule)
            if (!isAsAnnounced(device, module))
                return &module;
    return nullptr;
}
