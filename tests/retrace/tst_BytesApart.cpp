// How far two device blocks are from each other.
#include "ktl/ktlBytes.h"
#include "retrace/bytesApart.h"
#include "testMain.h"

#include <QtTest>

#include <vector>

class tst_BytesApart : public QObject
{
    Q_OBJECT

private slots:
    static void blocks_data();
    static void blocks();
};

namespace {

/// 8 bytes of a head, and the content.
QByteArray itemOf(std::uint32_t type, const QByteArray& content)
{
    return le32(type) + le32(static_cast<std::uint32_t>(8 + content.size())) + content;
}

} // namespace

void tst_BytesApart::blocks_data()
{
    QTest::addColumn<QByteArray>("left");
    QTest::addColumn<QByteArray>("right");
    QTest::addColumn<std::size_t>("expected");
    const QByteArray one = itemOf(1, "aaaa");
    const QByteArray other = itemOf(1, "bbbb");
    const auto row = [](const char* name, const QByteArray& left, const QByteArray& right, std::size_t expected) {
        QTest::addRow("%s", name) << left << right << expected;
    };
    row("nothing", {}, {}, 0);
    row("the same", one + other, one + other, 0);
    row("in another order", one + other, other + one, 0);
    row("one byte", one, itemOf(1, "aaba"), 1);
    row("all of the content", one, other, 4);
    row("longer, and so another size in the head", one, itemOf(1, "aaaacccc"), 5);
    row("an item more", one, one + other, 12);
    row("the same item once more", one + one, one, 12);
    row("an item of a type that the other one has not", one, {}, 12);
    row("items of other types", one, itemOf(2, "aaaaaaaa"), 28);
    row("what is the same belongs together", one + other, itemOf(1, "bbbc") + one, 1);
    row("the first of what is left with the first", itemOf(1, "aaab") + itemOf(1, "cccd"),
        itemOf(1, "ccce") + itemOf(1, "aaac"), 2);
}

/// As far from each other in both directions.
void tst_BytesApart::blocks()
{
    QFETCH(QByteArray, left);
    QFETCH(QByteArray, right);
    const std::vector<unsigned char> ofLeft(left.begin(), left.end());
    const std::vector<unsigned char> ofRight(right.begin(), right.end());
    QTEST(retrace::bytesApart(ofLeft, ofRight), "expected");
    QTEST(retrace::bytesApart(ofRight, ofLeft), "expected");
}

static const testMain::Registration<tst_BytesApart, testMain::NoApplication> registration;
#include "tst_BytesApart.moc"
