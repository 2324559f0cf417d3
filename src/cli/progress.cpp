#include "cli/progress.h"

#include "system/quietThread.h"
#include "system/terminal.h"
#include "text/oneLine.h"

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <thread>

namespace cli {

namespace {

using Clock = std::chrono::steady_clock;

/// Characters that are sure to fit on one line of the terminal; a longer line could not be wiped.
int maxLineLength()
{
    constexpr std::size_t usualColumns = 80;
    return static_cast<int>(os::terminalWidth(os::OutputStream::Messages).value_or(usualColumns)) - 1;
}

/// The one line on the terminal, drawn by a thread of its own: the work itself runs without a break.
class ProgressLine
{
public:
    ProgressLine()
        : m_isTerminal(os::isTerminal(os::OutputStream::Messages))
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
            m_thread = os::startQuietThread([this] { draw(); });
    }

    void pause()
    {
        m_mutex.lock();
        wipe();
    }
    void goOn() { m_mutex.unlock(); }

private:
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
                std::fprintf(stderr, "\r\033[K%s", text.left(maxLineLength()).toUtf8().constData());
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
    line().setText(oneLine(text, DrawingHints::BecomeBlanks).trimmed());
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

} // namespace cli
