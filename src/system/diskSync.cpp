#include "system/diskSync.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace os {

bool syncFile(const std::string& path)
{
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool isSynced = fsync(file) == 0 || errno == EINVAL || errno == EROFS || errno == ENOTSUP;
    const int reason = errno;
    close(file);
    errno = reason;
    return isSynced;
}

void syncFolder(const std::string& path)
{
    static_cast<void>(syncFile(path)); // the files have their names by now, whatever comes of this
}

} // namespace os
