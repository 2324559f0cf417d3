#include "system/fileAccess.h"

#include <unistd.h>

namespace os {

bool isWritable(const std::string& path)
{
    return access(path.c_str(), W_OK) == 0;
}

bool isThere(const std::string& path)
{
    return access(path.c_str(), F_OK) == 0;
}

} // namespace os
