// Whether a stream goes to a terminal, and how wide that is. A process of its own has one.
#include "system/anotherProcess.h"
#include "system/terminal.h"
#include "testMain.h"

#include <QtTest>

#include <cstdlib>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr int noTerminal = 255;

int widthOf(os::OutputStream stream)
{
    return os::isTerminal(stream) ? static_cast<int>(os::terminalWidth(stream).value_or(noTerminal)) : noTerminal;
}

/// The width of a stream that goes to a terminal.
/// @param columns  that the terminal says; 0 if it does not say
int widthOnTerminal(os::OutputStream stream, int descriptor, unsigned short columns)
{
    return inAnotherProcess([=](int) {
               const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
               const winsize size{24, columns, 0, 0};
               const bool isReady = terminal >= 0 && grantpt(terminal) == 0 && unlockpt(terminal) == 0
                                    && dup2(open(ptsname(terminal), O_RDWR | O_NOCTTY), descriptor) >= 0
                                    && ioctl(terminal, TIOCSWINSZ, &size) == 0;
               return isReady ? widthOf(stream) : 0;
           })
        .exitCode;
}

int widthElsewhere(os::OutputStream stream, int descriptor)
{
    return inAnotherProcess([=](int) {
               return dup2(open("/dev/null", O_WRONLY), descriptor) >= 0 && !os::terminalWidth(stream).has_value()
                          ? widthOf(stream)
                          : 0;
           })
        .exitCode;
}

} // namespace

class tst_Terminal : public QObject
{
    Q_OBJECT

private slots:
    static void width_data()
    {
        QTest::addColumn<bool>("isOfResults");
        QTest::addRow("standard output") << true;
        QTest::addRow("standard error") << false;
    }

    static void width()
    {
        QFETCH(bool, isOfResults);
        const os::OutputStream stream = isOfResults ? os::OutputStream::Results : os::OutputStream::Messages;
        const int descriptor = isOfResults ? STDOUT_FILENO : STDERR_FILENO;
        QCOMPARE(widthOnTerminal(stream, descriptor, 132), 132);
        QCOMPARE(widthOnTerminal(stream, descriptor, 0), 80);
        QCOMPARE(widthElsewhere(stream, descriptor), noTerminal);
    }
};

static const testMain::Registration<tst_Terminal, testMain::NoApplication> registration;
#include "tst_Terminal.moc"
