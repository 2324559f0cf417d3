// progress.h - what the command is busy with, for somebody who waits at a terminal.
#pragma once

#include <QString>

namespace cli {

/// Shows on standard error what is being done, when that is a terminal and the command has been at work for longer than
/// a second; the line is drawn again in its place, and wiped when the step ends. One step at a time.
class Progress
{
public:
    /// @param number, count  the step's number from 1, and how many there are
    Progress(const QString& what, int number, int count);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    Progress(Progress&&) = delete;
    Progress& operator=(Progress&&) = delete;

    /// Wipes the line and keeps it away as long as it lives.
    class Pause
    {
    public:
        Pause();
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;
        Pause(Pause&&) = delete;
        Pause& operator=(Pause&&) = delete;
    };
};

} // namespace cli
