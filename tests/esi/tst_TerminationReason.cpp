// Which file is being read, and what a program says that ends on an error.
// Covers fileBeingRead.cpp.
#include "esi/fileBeingRead.h"
#include "esi/terminationReason.h"
#include "testMain.h"

#include <QtTest>

#include <stdexcept>

class tst_TerminationReason : public QObject
{
    Q_OBJECT

private slots:
    static void init();
    static void pathWhileReading();
    static void pathStaysWhenAnExceptionPasses();
    static void readingInTheMiddleOfAnotherError();
    static void reasonAndFile();
    static void reasonWithoutAFile();
    static void fileWithoutAReason();
    static void reasonInForeignWords();
    static void exceptionOfAnotherKind();
};

void tst_TerminationReason::init()
{
    const FileBeingRead reading(QStringLiteral("before.xml")); // clears what a test before left
}

void tst_TerminationReason::pathWhileReading()
{
    QCOMPARE(FileBeingRead::path(), QString());
    {
        const FileBeingRead reading(QStringLiteral("伺服/drive.xml"));
        QCOMPARE(FileBeingRead::path(), QStringLiteral("伺服/drive.xml"));
    }
    QCOMPARE(FileBeingRead::path(), QString());
    {
        const FileBeingRead reading(QStringLiteral("next.xml"));
        QCOMPARE(FileBeingRead::path(), QStringLiteral("next.xml"));
    }
    QCOMPARE(FileBeingRead::path(), QString());
}

void tst_TerminationReason::pathStaysWhenAnExceptionPasses()
{
    const auto readBadFile = [] {
        const FileBeingRead reading(QStringLiteral("bad.xml"));
        throw std::out_of_range("reason");
    };
    QVERIFY_EXCEPTION_THROWN(readBadFile(), std::out_of_range);
    QCOMPARE(FileBeingRead::path(), QStringLiteral("bad.xml"));
}

void tst_TerminationReason::readingInTheMiddleOfAnotherError()
{
    struct ReadsInItsDestructor
    {
        ~ReadsInItsDestructor() { const FileBeingRead reading(QStringLiteral("read well.xml")); }
    };
    const auto fail = [] {
        const ReadsInItsDestructor reader;
        throw std::out_of_range("another error");
    };
    QVERIFY_EXCEPTION_THROWN(fail(), std::out_of_range);
    // No exception passed through the reading itself, it came to its end.
    QCOMPARE(FileBeingRead::path(), QString());
}

void tst_TerminationReason::reasonAndFile()
{
    QString words;
    try {
        const FileBeingRead reading(QStringLiteral("bad.xml"));
        throw std::out_of_range("beyond the list");
    } catch (const std::out_of_range&) {
        words = terminationReason();
    }
    QVERIFY2(words.contains("beyond the list"), qPrintable(words));
    QVERIFY2(words.contains("bad.xml"), qPrintable(words));
    QVERIFY2(!words.contains('\n'), "one line");
}

void tst_TerminationReason::reasonWithoutAFile()
{
    QString words;
    try {
        throw std::runtime_error("out of order");
    } catch (const std::runtime_error&) {
        words = terminationReason();
    }
    QVERIFY2(words.contains("out of order"), qPrintable(words));
    QVERIFY2(!words.contains("xml"), "a file that was read before is not to blame");
}

void tst_TerminationReason::fileWithoutAReason()
{
    const FileBeingRead reading(QStringLiteral("drive.xml"));
    const QString words = terminationReason();
    QVERIFY2(words.contains("drive.xml"), qPrintable(words));
    QVERIFY(!words.contains('\n'));
}

void tst_TerminationReason::reasonInForeignWords()
{
    QString words;
    try {
        const FileBeingRead reading(QStringLiteral("伺服.xml"));
        throw std::runtime_error("50 %1 %2 of the file");
    } catch (const std::runtime_error&) {
        words = terminationReason();
    }
    // Neither a file name nor a reason is a pattern.
    QVERIFY2(words.contains("50 %1 %2 of the file"), qPrintable(words));
    QVERIFY2(words.contains(QStringLiteral("伺服.xml")), qPrintable(words));
}

void tst_TerminationReason::exceptionOfAnotherKind()
{
    QString words;
    try {
        const FileBeingRead reading(QStringLiteral("odd.xml"));
        throw 5;
    } catch (int) {
        words = terminationReason();
    }
    QVERIFY2(words.contains("odd.xml"), qPrintable(words));
}

static const testMain::Registration<tst_TerminationReason, QCoreApplication> registration;
#include "tst_TerminationReason.moc"
