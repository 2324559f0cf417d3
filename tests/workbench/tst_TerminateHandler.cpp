// A program that ends on an error says why: on standard error, and in a box when a window is visible.
#include "testMain.h"
#include "workbench/modelBuilders.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

class tst_TerminateHandler : public QObject
{
    Q_OBJECT

private slots:
    void init();
    static void endsWithItsReason_data();
    void endsWithItsReason();
    void boxWhenAWindowIsVisible();
    void noBoxWithoutAWindow();
    void goodFileEndsNothing();

private:
    void run(const QString& mode, const QString& path);

    QTemporaryDir m_folder;
    QProcess m_program;
    QString m_badFile;
};

static const QString reason = QStringLiteral("vector::_M_range_check: __n (which is 2) >= this->size() (which is 1)");

void tst_TerminateHandler::init()
{
    // The PDO is on sync manager 2, and the device has one sync manager, number 0.
    m_badFile = writeFile(m_folder.path(), "伺服.xml", esiText({"Drive"}, "<Sm>Outputs</Sm><RxPdo Sm=\"2\"/>"));
    QVERIFY(!m_badFile.isEmpty());
}

void tst_TerminateHandler::run(const QString& mode, const QString& path)
{
    m_program.start(QStringLiteral(TERMINATING_PROGRAM), {mode, path});
    QVERIFY2(m_program.waitForFinished(), "the program does not end");
}

void tst_TerminateHandler::endsWithItsReason_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addRow("without an application") << "bare";
    QTest::addRow("without a window") << "hidden";
    QTest::addRow("with a window") << "window";
}

void tst_TerminateHandler::endsWithItsReason()
{
    QFETCH(QString, mode);
    run(mode, m_badFile);
    const QString error = QString::fromLocal8Bit(m_program.readAllStandardError());
    QVERIFY2(error.contains(reason), qPrintable(error));
    QVERIFY2(error.contains(m_badFile), qPrintable(error));
    QCOMPARE(m_program.exitStatus(), QProcess::CrashExit);
    QCOMPARE(m_program.exitCode(), SIGABRT);
}

void tst_TerminateHandler::boxWhenAWindowIsVisible()
{
    run("window", m_badFile);
    const QString box = QString::fromLocal8Bit(m_program.readAllStandardOutput());
    QVERIFY2(box.startsWith("xml parser\n"), qPrintable(box));
    QVERIFY2(box.contains(reason), qPrintable(box));
    QVERIFY2(box.contains(m_badFile), qPrintable(box));
    QVERIFY2(box.endsWith("\nicon 3, buttons 1024, waiting cursor 0\n"), qPrintable(box)); // critical, Ok
}

void tst_TerminateHandler::noBoxWithoutAWindow()
{
    run("hidden", m_badFile);
    QCOMPARE(m_program.readAllStandardOutput(), QByteArray());
}

void tst_TerminateHandler::goodFileEndsNothing()
{
    const QString path =
        writeFile(m_folder.path(), "good.xml", esiText({"Drive"}, "<Sm>Outputs</Sm><RxPdo Sm=\"0\"/>"));
    run("bare", path);
    QCOMPARE(m_program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_program.exitCode(), 0);
    QCOMPARE(m_program.readAllStandardError(), QByteArray());
}

static const testMain::Registration<tst_TerminateHandler, QCoreApplication> registration;
#include "tst_TerminateHandler.moc"
