#include "cli/progress.h"

#include "cli/messages.h"

#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstdio>
#include <mutex>
#include <thread>

#include <sys/ioctl.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

/// Characters that surely stand on one line of the terminal; wide ones count twice. A longer line could not be wiped.
int widthOfTerminal()
{
    constexpr int usualColumns = 80;
    winsize size{};
    const bool isKnown = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return (isKnown ? size.ws_col : usualColumns) - 1;
}

/// The one line on the terminal, drawn by a thread of its own: the work itself runs without a break.
class ProgressLine
{
public:
    ProgressLine()
        : m_isTerminal(isatty(STDERR_FILENO) != 0)
    {}
    ~ProgressLine()
    {
        if (!m_thread.joinable())
            return;
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_isEnding = true;
        }
        m_wakeUp.notify_one();
        m_thread.join();
    }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ProgressLine(ProgressLine&&) = delete;
    ProgressLine& operator=(ProgressLine&&) = delete;

    /// @param text  of the step that begins; empty when a step ends
    void setText(const QString& text)
    {
        if (!m_isTerminal)
            return;
        const std::lock_guard<std::mutex> lock(m_mutex);
        wipe();
        m_text = text;
        if (!m_thread.joinable())
            startThread();
    }

    void pause()
    {
        m_mutex.lock();
        wipe();
    }
    void goOn() { m_mutex.unlock(); }

private:
    /// No signal is for this thread: whether one has to wait is the affair of the thread that does the work.
    void startThread()
    {
        sigset_t all;
        sigset_t before;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before);
        m_thread = std::thread(&ProgressLine::draw, this);
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
    }

    void draw()
    {
        constexpr std::chrono::seconds patience(1);
        constexpr std::chrono::milliseconds interval(200);
        std::unique_lock<std::mutex> lock(m_mutex);
        auto next = m_start + patience;
        while (!m_wakeUp.wait_until(lock, next, [this] { return m_isEnding; })) {
            const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - m_start).count();
            if (!m_text.isEmpty()) {
                const QString text = QStringLiteral("%1, %2 s").arg(m_text, QString::number(seconds));
                std::fprintf(stderr, "\r\033[K%s", text.left(widthOfTerminal()).toUtf8().constData());
                std::fflush(stderr);
                m_isShown = true;
            }
            next = Clock::now() + interval;
        }
        wipe();
    }

    void wipe()
    {
        if (!m_isShown)
            return;
        std::fputs("\r\033[K", stderr);
        std::fflush(stderr);
        m_isShown = false;
    }

    const bool m_isTerminal;
    const Clock::time_point m_start = Clock::now();
    std::mutex m_mutex;
    std::condition_variable m_wakeUp;
    QString m_text;
    bool m_isShown = false;
    bool m_isEnding = false;
    std::thread m_thread;
};

ProgressLine& line()
{
    static ProgressLine theLine;
    return theLine;
}

} // namespace

Progress::Progress(const QString& what, int number, int count)
{
    const QString text = count == 1 ? what : QStringLiteral("%1 (%2 of %3)").arg(what).arg(number).arg(count);
    line().setText(oneLine(text));
}

Progress::~Progress()
{
    line().setText({});
}

Progress::Pause::Pause()
{
    line().pause();
}

Progress::Pause::~Pause()
{
    line().goOn();
}
