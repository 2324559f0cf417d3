#include "system/standardStreams.h"

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

void fillClosedStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) < 0)
            static_cast<void>(open("/dev/null", stream == STDOUT_FILENO ? O_RDONLY : O_WRONLY));
}

void tellFileSizeLimits()
{
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
}
