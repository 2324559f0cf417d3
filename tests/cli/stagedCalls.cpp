// Comes between a program and the system (LD_PRELOAD), so that a test can say what happens at which call: flock, fsync,
// rename, renameat2, link, and unlink of the file that keeps other runs out.

//   STAGED_AT="CALL:ACTION:VALUE[;...]"  at each such call, or at the third one only for CALL#3
//       fail:ERRNO    the call fails
//       raise:SIGNAL  the process gets a signal
//       make:PATH     a file appears that holds "made"
//       remove:PATH   a file goes
//       wait:0        the call does not return

//   STAGED_LOG=PATH      writes each call with the names of its files, a line each
//   STAGED_CLOCK=FACTOR  lets the time that programs wait by run faster
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <map>
#include <sstream>
#include <string>

#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/file.h>
#include <unistd.h>

static std::string variable(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

static std::string nameOnly(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

static std::string nameOf(int file)
{
    char path[4096] = {};
    static_cast<void>(!readlink(("/proc/self/fd/" + std::to_string(file)).c_str(), path, sizeof path - 1));
    return nameOnly(path);
}

static void log(const std::string& line)
{
    const std::string path = variable("STAGED_LOG");
    const int file = path.empty() ? -1 : open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT, 0600);
    if (file < 0)
        return;
    static_cast<void>(!write(file, (line + '\n').c_str(), line.size() + 1));
    close(file);
}

/// @return  whether the call is to fail
static bool play(const std::string& action, const std::string& value)
{
    if (action == "raise")
        kill(getpid(), std::atoi(value.c_str()));
    if (action == "make") {
        const int file = open(value.c_str(), O_WRONLY | O_CREAT, 0600);
        static_cast<void>(!write(file, "made", 4));
        close(file);
    }
    if (action == "remove")
        unlink(value.c_str());
    while (action == "wait")
        pause();
    errno = action == "fail" ? std::atoi(value.c_str()) : errno;
    return action == "fail";
}

/// Plays what is to happen at a call.
/// @return  whether the call is to fail
static bool stage(const std::string& call, const std::string& files)
{
    static std::map<std::string, int> counts;
    log(call + ' ' + files);
    const std::string numbered = call + '#' + std::to_string(++counts[call]);
    std::istringstream all(variable("STAGED_AT"));
    bool fails = false;
    for (std::string one; std::getline(all, one, ';');) {
        const std::size_t action = one.find(':');
        const std::size_t value = one.rfind(':');
        if (const std::string at = one.substr(0, action); at == call || at == numbered)
            fails = play(one.substr(action + 1, value - action - 1), one.substr(value + 1)) || fails;
    }
    return fails;
}

/// The system's own function of a name.
template<typename Function> static Function* next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

constexpr long second = 1000 * 1000 * 1000; // nanoseconds

/// How many times as fast the clock goes; 0 if it goes as usual.
static long clockFactor()
{
    return std::atol(variable("STAGED_CLOCK").c_str());
}

extern "C" {

int fsync(int file)
{
    return stage("fsync", nameOf(file)) ? -1 : next<int(int)>("fsync")(file);
}

int flock(int file, int operation) noexcept
{
    return stage("flock", nameOf(file)) ? -1 : next<int(int, int)>("flock")(file, operation);
}

int rename(const char* from, const char* to) noexcept
{
    return stage("rename", nameOnly(from) + ' ' + nameOnly(to))
               ? -1
               : next<int(const char*, const char*)>("rename")(from, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept
{
    return stage("renameat2", nameOnly(from) + ' ' + nameOnly(to))
               ? -1
               : next<int(int, const char*, int, const char*, unsigned)>("renameat2")(fromFolder, from, toFolder, to,
                                                                                      flags);
}

int link(const char* from, const char* to) noexcept
{
    return stage("link", nameOnly(from) + ' ' + nameOnly(to)) ? -1
                                                              : next<int(const char*, const char*)>("link")(from, to);
}

int unlink(const char* path) noexcept
{
    const std::string name = nameOnly(path); // of the file that keeps other runs out; other files do not matter
    return name == ".ktl.lock" && stage("unlink", name) ? -1 : next<int(const char*)>("unlink")(path);
}

int clock_gettime(clockid_t clock, timespec* time) noexcept
{
    const int result = next<int(clockid_t, timespec*)>("clock_gettime")(clock, time);
    if (const long factor = clockFactor(); clock == CLOCK_MONOTONIC && factor > 0) {
        const long fast = (time->tv_sec * second + time->tv_nsec) * factor;
        *time = {fast / second, fast % second};
    }
    return result;
}

/// What a thread waits for until a time of the fast clock.
int pthread_cond_clockwait(pthread_cond_t* condition, pthread_mutex_t* mutex, clockid_t clock, const timespec* until)
{
    timespec real = *until;
    if (const long factor = clockFactor(); clock == CLOCK_MONOTONIC && factor > 0) {
        const long slow = (until->tv_sec * second + until->tv_nsec) / factor + 1;
        real = {slow / second, slow % second};
    }
    using Wait = int(pthread_cond_t*, pthread_mutex_t*, clockid_t, const timespec*);
    return next<Wait>("pthread_cond_clockwait")(condition, mutex, clock, &real);
}
}
