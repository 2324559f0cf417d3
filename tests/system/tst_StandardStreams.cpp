// Standard streams that are closed or cannot be written. A process of its own has them.
// Covers standardOutput.cpp.
#include "system/anotherProcess.h"
#include "system/standardOutput.h"
#include "system/standardStreams.h"
#include "testMain.h"

#include <QtTest>

#include <cerrno>
#include <ostream>

#include <fcntl.h>
#include <unistd.h>

class tst_StandardStreams : public QObject
{
    Q_OBJECT

private slots:
    /// No file that is opened later gets the number of one of the three.
    static void closedStreams()
    {
        QCOMPARE(inAnotherProcess([](int) {
                     for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
                         close(stream);
                     os::fillClosedStreams();
                     return open("/dev/null", O_RDONLY) > STDERR_FILENO ? 1 : 0;
                 }).exitCode,
                 1);
    }

    /// What is needed of them still fails.
    static void useOfClosedStreams()
    {
        QCOMPARE(inAnotherProcess([](int) {
                     close(STDIN_FILENO);
                     close(STDOUT_FILENO);
                     os::fillClosedStreams();
                     char byte = 0;
                     const bool isRead = read(STDIN_FILENO, &byte, 1) >= 0;
                     const bool isWritten = write(STDOUT_FILENO, "a", 1) >= 0;
                     return isRead || isWritten ? 0 : 1;
                 }).exitCode,
                 1);
    }

    /// Open ones stay as they are.
    static void openStreams()
    {
        QCOMPARE(inAnotherProcess([](int) {
                     int ends[2] = {};
                     if (pipe(ends) != 0 || dup2(ends[1], STDOUT_FILENO) < 0)
                         return 0;
                     os::fillClosedStreams();
                     char byte = 0;
                     return write(STDOUT_FILENO, "a", 1) == 1 && read(ends[0], &byte, 1) == 1 && byte == 'a' ? 1 : 0;
                 }).exitCode,
                 1);
    }

    /// A disk that is full shows when the stream is flushed, with its reason.
    static void fullDisk()
    {
        QCOMPARE(inAnotherProcess([](int) {
                     if (dup2(open("/dev/full", O_WRONLY), STDOUT_FILENO) < 0)
                         return 0;
                     os::StandardOutput output;
                     std::ostream out(&output);
                     out << 'a';
                     return !out.flush() && output.failure() == "No space left on device" ? 1 : 0;
                 }).exitCode,
                 1);
    }

    /// What is larger than the buffer arrives in one piece.
    static void manyBytes()
    {
        QCOMPARE(inAnotherProcess([](int) {
                     char name[] = "/tmp/tst_StandardStreams-XXXXXX";
                     const int file = mkstemp(name);
                     unlink(name);
                     if (file < 0 || dup2(file, STDOUT_FILENO) < 0)
                         return 0;
                     os::StandardOutput output;
                     std::ostream out(&output);
                     out << std::string(200000, 'x') << 'y';
                     out.flush();
                     char last = 0;
                     return lseek(file, 0, SEEK_END) == 200001 && pread(file, &last, 1, 200000) == 1 && last == 'y' ? 1
                                                                                                                    : 0;
                 }).exitCode,
                 1);
    }
};

static const testMain::Registration<tst_StandardStreams, testMain::NoApplication> registration;
#include "tst_StandardStreams.moc"
