// anotherProcess.h - what a test does to signals and standard streams, it does in a copy of its process.
#pragma once

#include <QByteArray>

#include <csignal>
#include <functional>

#include <sys/wait.h>
#include <unistd.h>

/// How a process ended.
struct Ending
{
    int exitCode = -1; ///< -1 if a signal ended it
    int signal = 0; ///< 0 if it ended by itself
    QByteArray words; ///< what it said until then
};

/// Does something in a copy of this process, in which signals have the effect that they have without a test.
/// @param work  takes a descriptor that it may write words to, and returns the exit status
inline Ending inAnotherProcess(const std::function<int(int out)>& work)
{
    int ends[2] = {};
    if (pipe(ends) != 0)
        return {};
    const pid_t child = fork();
    if (child == 0) {
        for (const int number : {SIGINT, SIGTERM, SIGHUP})
            std::signal(number, SIG_DFL);
        close(ends[0]);
        _exit(work(ends[1]));
    }
    close(ends[1]);
    Ending ending;
    char letter = 0;
    while (read(ends[0], &letter, 1) == 1)
        ending.words += letter;
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFEXITED(status))
        ending.exitCode = WEXITSTATUS(status);
    if (WIFSIGNALED(status))
        ending.signal = WTERMSIG(status);
    return ending;
}
