// The lines of messages, and what they mean for the exit status.
#include "cli/messages.h"
#include "testMain.h"

#include <QtTest>

#include <sstream>

using cli::ExitCode;
using cli::WarningCode;

class tst_MessageLines : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_out.str({}); }

    void lines()
    {
        cli::Messages messages(m_out);
        messages.error(QStringLiteral("a.xml"), QStringLiteral("broken"));
        messages.error(QStringLiteral("a.xml"), 3, 14, QStringLiteral("broken"));
        messages.outputError(QStringLiteral("a.ktl"), QStringLiteral("full"));
        messages.warning(QStringLiteral("a.xml"), WarningCode::LeftOut, QStringLiteral("odd"));
        messages.note(QStringLiteral("a.ktl"), QStringLiteral("waiting"));
        QCOMPARE(m_out.str(), std::string("a.xml: error: broken\n"
                                          "a.xml:3:14: error: broken\n"
                                          "a.ktl: error: full\n"
                                          "a.xml: warning: odd [left-out]\n"
                                          "a.ktl: note: waiting\n"));
    }

    void names_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("shown");
        QTest::addRow("no file") << "" << QByteArray("ktl");
        QTest::addRow("standard input") << "-" << QByteArray("<stdin>");
        QTest::addRow("a path") << "in/a b.xml" << QByteArray("in/a b.xml");
        QTest::addRow("two lines, and a change of direction")
            << QStringLiteral("two\nlines\u202E.xml") << QByteArray("two lines .xml");
        QTest::addRow("a joiner, which looks like nothing") << QStringLiteral("a\u200Db") << QByteArray("a b");
        QTest::addRow("blanks around") << " a " << QByteArray("a");
        QTest::addRow("place marks of the message are kept") << "%1%2.xml" << QByteArray("%1%2.xml");
    }

    void names()
    {
        QFETCH(QString, file);
        QFETCH(QByteArray, shown);
        cli::Messages messages(m_out);
        messages.error(file, QStringLiteral("t"));
        QCOMPARE(QByteArray::fromStdString(m_out.str()), shown + ": error: t\n");
    }

    /// 2,000 characters of somebody else's words.
    void longTexts()
    {
        cli::Messages messages(m_out);
        messages.error({}, QString(2000, QLatin1Char('x')));
        messages.error({}, QString(2001, QLatin1Char('x')));
        const std::string longest(2000, 'x');
        QCOMPARE(m_out.str(), "ktl: error: " + longest + "\nktl: error: " + longest + "...\n");
    }

    void exitCodes_data()
    {
        QTest::addColumn<QString>("said"); // a letter for each: warning, ignored warning, error, output error, note
        QTest::addColumn<int>("lenient");
        QTest::addColumn<int>("strict");
        QTest::addRow("nothing") << "" << 0 << 0;
        QTest::addRow("a note") << "n" << 0 << 0;
        QTest::addRow("a warning") << "w" << 0 << 1;
        QTest::addRow("a warning that is ignored") << "i" << 0 << 0;
        QTest::addRow("another one beside it") << "iw" << 0 << 1;
        QTest::addRow("an error") << "we" << 2 << 2;
        QTest::addRow("an output that cannot be written") << "weo" << 3 << 3;
        QTest::addRow("in another order") << "oew" << 3 << 3;
    }

    void exitCodes()
    {
        QFETCH(QString, said);
        QFETCH(int, lenient);
        QFETCH(int, strict);
        cli::Messages messages(m_out);
        messages.ignore(WarningCode::SameInput);
        for (const QChar letter : said) {
            if (letter == 'w')
                messages.warning({}, WarningCode::LeftOut, {});
            else if (letter == 'i')
                messages.warning({}, WarningCode::SameInput, {});
            else if (letter == 'e')
                messages.error({}, {});
            else if (letter == 'o')
                messages.outputError({}, {});
            else
                messages.note({}, {});
        }
        QCOMPARE(static_cast<int>(messages.exitCode()), lenient);
        QCOMPARE(static_cast<int>(messages.exitCode(true)), strict);
        QCOMPARE(m_out.str().size() > 0, !said.isEmpty()); // what is ignored is shown all the same
    }

private:
    std::ostringstream m_out;
};

static const testMain::Registration<tst_MessageLines, testMain::NoApplication> registration;
#include "tst_MessageLines.moc"
