// What is the operating system's own is used in src/system only.
#include "testMain.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QtTest>

namespace {

/// A header of the system, and a function of it that other headers happen to declare too.
const QRegularExpression ofTheSystem(QStringLiteral(
    "^ *# *include <(?:sys/.*|unistd|fcntl|poll|dirent|pthread|termios|signal|csignal|dlfcn|pwd|grp|"
    "netdb|semaphore|sched|syslog|utime|glob|ftw|fnmatch|langinfo|netinet/.*|arpa/.*|linux/.*)(?:\\.h)?>"
    "|\\b(?:isatty|fileno|fsync|popen|fmemopen|open_memstream|fopencookie|mkdtemp|mkstemp|sigaction)\\("));

/// Lines of a source that use the system, with their places.
QStringList usesIn(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {path + QStringLiteral(" cannot be read")};
    QStringList uses;
    int number = 0;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (++number; ofTheSystem.match(QString::fromUtf8(line)).hasMatch())
            uses += QStringLiteral("%1:%2: %3").arg(path).arg(number).arg(QString::fromUtf8(line));
    return uses;
}

/// Uses in the sources of a folder and in those below it.
/// @param passedOver  the folder that is not looked into
QStringList usesBelow(const QString& folder, const QString& passedOver)
{
    QStringList uses;
    QDirIterator sources(folder, {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (sources.hasNext())
        if (const QString path = sources.next(); !path.startsWith(passedOver))
            uses += usesIn(path);
    return uses;
}

} // namespace

class tst_SystemHeaders : public QObject
{
    Q_OBJECT

private slots:
    static void sources()
    {
        const QString folder = QStringLiteral(KINETRA_SOURCE_DIR "/src/");
        QCOMPARE(usesBelow(folder, folder + QStringLiteral("system/")), QStringList());
    }

    /// The look at the sources finds what there is: src/system has all of it.
    static void usesAreFound()
    {
        const QString folder = QStringLiteral(KINETRA_SOURCE_DIR "/src/system/");
        const QStringList uses = usesBelow(folder, QStringLiteral("none"));
        for (const char* use : {"<unistd.h>", "<sys/ioctl.h>", "<fcntl.h>", "<csignal>", "isatty(", "fmemopen("})
            QVERIFY2(uses.join('\n').contains(QLatin1String(use)), use);
    }

    /// A port writes the sources again and leaves the headers as they are.
    static void headersNameNothingOfTheSystem()
    {
        QStringList uses;
        QDirIterator headers(QStringLiteral(KINETRA_SOURCE_DIR "/src/system/"), {QStringLiteral("*.h")}, QDir::Files);
        while (headers.hasNext())
            uses += usesIn(headers.next());
        QCOMPARE(uses, QStringList());
    }
};

static const testMain::Registration<tst_SystemHeaders, testMain::NoApplication> registration;
#include "tst_SystemHeaders.moc"
