#include "system/scratchFolder.h"

#include <cstdlib>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace os {

namespace {

constexpr const char* fileNames[] = {scratchName::newKtl, scratchName::newDump, scratchName::keptKtl,
                                     scratchName::keptDump};

struct FolderCloser
{
    void operator()(DIR* folder) const { static_cast<void>(closedir(folder)); }
};

/// @param scratch  name in the folder that is open, or a whole path
void removeFrom(int folder, const char* scratch)
{
    const int open = openat(folder, scratch, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (open < 0)
        return;
    for (const char* name : fileNames)
        unlinkat(open, name, 0);
    close(open);
    unlinkat(folder, scratch, AT_REMOVEDIR);
}

bool isScratchName(const std::string& name)
{
    const std::string prefix = ".ktl-";
    constexpr std::size_t randomLetters = 6;
    return name.size() == prefix.size() + randomLetters && name.compare(0, prefix.size(), prefix) == 0;
}

} // namespace

std::string makeScratchFolder(const std::string& folder)
{
    std::string path = folder + "/.ktl-XXXXXX";
    return mkdtemp(path.data()) == nullptr ? std::string() : path;
}

void removeScratchFolder(const std::string& scratch)
{
    removeFrom(AT_FDCWD, scratch.c_str());
}

void removeLeftScratchFolders(const std::string& folder)
{
    const std::unique_ptr<DIR, FolderCloser> list(opendir(folder.c_str()));
    if (list == nullptr)
        return;
    while (const dirent* const entry = readdir(list.get()))
        if (isScratchName(entry->d_name))
            removeFrom(dirfd(list.get()), entry->d_name);
}

} // namespace os
