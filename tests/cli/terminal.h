// terminal.h - a terminal for a program under test.
#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QProcess>
#include <QString>

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <unistd.h>

/// A terminal of our own; what a program writes to it is read at the other end.
class Terminal
{
public:
    Terminal()
        : m_master(posix_openpt(O_RDWR | O_NOCTTY))
    {
        if (m_master >= 0 && grantpt(m_master) == 0 && unlockpt(m_master) == 0)
            m_name = QString::fromLocal8Bit(ptsname(m_master));
    }
    ~Terminal() { close(m_master); }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    Terminal(Terminal&&) = delete;
    Terminal& operator=(Terminal&&) = delete;

    [[nodiscard]] QString name() const { return m_name; }

    void setColumns(int columns) const
    {
        const winsize size{24, static_cast<unsigned short>(columns), 0, 0};
        ioctl(m_master, TIOCSWINSZ, &size);
    }

    /// Reads until a text has come, or is at the end, or a minute is over; then what has come since the start.
    const QByteArray& readUntil(const QByteArray& text, bool atTheEnd = false)
    {
        constexpr int minute = 60 * 1000;
        constexpr int turn = 50;
        QElapsedTimer timer;
        timer.start();
        while (!(atTheEnd ? m_read.endsWith(text) : m_read.contains(text)) && timer.elapsed() < minute)
            readWithin(turn);
        return m_read;
    }

    /// Reads until a program has ended, or a minute is over; then what has come since the start.
    const QByteArray& readUntilEndOf(QProcess& process)
    {
        constexpr int minute = 60 * 1000;
        constexpr int turn = 5;
        QElapsedTimer timer;
        timer.start();
        process.waitForStarted(minute);
        while (!process.waitForFinished(1) && process.state() != QProcess::NotRunning && timer.elapsed() < minute)
            readWithin(turn);
        while (readWithin(turn))
            continue;
        return m_read;
    }

private:
    /// Reads what is there within so many milliseconds.
    /// @return  false if there is nothing
    bool readWithin(int milliseconds)
    {
        pollfd ready{m_master, POLLIN, 0};
        if (poll(&ready, 1, milliseconds) <= 0 || (ready.revents & POLLIN) == 0)
            return false;
        char block[4096];
        const ssize_t size = read(m_master, block, sizeof block);
        if (size > 0)
            m_read.append(block, static_cast<int>(size));
        return size > 0;
    }

    int m_master;
    QString m_name;
    QByteArray m_read;
};
