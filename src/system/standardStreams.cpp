#include "system/standardStreams.h"

#include <csignal>
#include <initializer_list>

#include <fcntl.h>
#include <unistd.h>

namespace os {

void fillClosedStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) < 0)
            static_cast<void>(open("/dev/null", stream == STDOUT_FILENO ? O_RDONLY : O_WRONLY));
}

void failBeyondFileSizeLimits()
{
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
}

} // namespace os
