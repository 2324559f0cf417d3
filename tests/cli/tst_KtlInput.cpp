// Reading KTL files, and the words for how they end.
// Covers ktlEnd.cpp.
#include "cli/ktlEnd.h"
#include "cli/ktlInput.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QtTest>

#include <sstream>

namespace {

const QByteArray endItem = QByteArray::fromHex("000000000C00000000000000");
const QByteArray item = QByteArray::fromHex("419C00000C00000003000000");

} // namespace

class tst_KtlInput : public QObject
{
    Q_OBJECT

private slots:
    static void read_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addRow("whole") << item + endItem;
        QTest::addRow("empty") << QByteArray("");
        QTest::addRow("cut") << item.left(9);
        QTest::addRow("longer than a block") << item.repeated(10000) + endItem;
    }

    /// Every byte, however the file ends.
    static void read()
    {
        QFETCH(QByteArray, content);
        const Workplace place;
        QFile file(place.make(QStringLiteral("a.ktl"), content));
        QVERIFY(file.open(QIODevice::ReadOnly));
        std::ostringstream lines;
        cli::Messages messages(lines);
        const auto bytes = cli::readKtl(file, file.fileName(), messages);
        QVERIFY(bytes.has_value());
        QCOMPARE(QByteArray(reinterpret_cast<const char*>(bytes->data()), static_cast<int>(bytes->size())), content);
        QCOMPARE(lines.str(), std::string());
    }

    /// After a head that makes no sense nothing more is read.
    static void brokenHead()
    {
        const Workplace place;
        QFile file(place.make(QStringLiteral("a.ktl"), QByteArray(8, '\xFF') + QByteArray(1000000, 'x')));
        QVERIFY(file.open(QIODevice::ReadOnly));
        std::ostringstream lines;
        cli::Messages messages(lines);
        const auto bytes = cli::readKtl(file, file.fileName(), messages);
        QVERIFY(bytes.has_value());
        QVERIFY(bytes->size() < 1000000);
    }

    static void ends_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("problem");
        QTest::addRow("whole") << item + endItem << "";
        QTest::addRow("no End item") << item << "the last run has no End item: the file was cut short";
        QTest::addRow("cut item") << endItem + item.left(10) << "the file ends at 0x16, inside an item";
        QTest::addRow("cut head") << endItem + item.left(7) << "the file ends inside the item head at 0xc";
        QTest::addRow("impossible head") << endItem + QByteArray::fromHex("419C000007000000")
                                         << "the item head at 0xc cannot be right";
    }

    static void ends()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, problem);
        const std::vector<unsigned char> bytes(content.begin(), content.end());
        QCOMPARE(cli::problemAtEnd(walkItems(bytes)), problem);
    }
};

static const testMain::Registration<tst_KtlInput, testMain::NoApplication> registration;
#include "tst_KtlInput.moc"
