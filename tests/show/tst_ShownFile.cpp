// A KTL file that is shown: whether it is complete, and its devices.
#include "ktl/ktlBytes.h"
#include "show/shownFile.h"
#include "testMain.h"

#include <QtTest>

class tst_ShownFile : public QObject
{
    Q_OBJECT

private slots:
    static void complete_data();
    static void complete();
    static void devices();
};

namespace {

QByteArray endItem()
{
    return bytes("00 00 00 00 0C 00 00 00 00 00 00 00");
}

/// A General item, which begins a device.
QByteArray general(std::uint32_t productCode)
{
    return le32(40000) + le32(52) + le32(1) + le32(productCode) + zeros(36);
}

std::vector<unsigned char> vectorOf(const QByteArray& content)
{
    return {content.begin(), content.end()};
}

} // namespace

void tst_ShownFile::complete_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("items");
    QTest::addColumn<bool>("isComplete");
    QTest::addRow("End item") << endItem() << 1 << true;
    QTest::addRow("no End item") << general(2) << 1 << false;
    QTest::addRow("cut inside an item") << endItem().left(11) << 1 << false;
    QTest::addRow("cut inside a head") << endItem() + endItem().left(7) << 1 << false;
    QTest::addRow("nothing") << QByteArray() << 0 << false;
}

void tst_ShownFile::complete()
{
    QFETCH(QByteArray, content);
    QFETCH(int, items);
    QFETCH(bool, isComplete);
    show::ShownFile file;
    file.setKtl(vectorOf(content));
    QCOMPARE(static_cast<int>(file.walk.items.size()), items);
    QCOMPARE(file.isComplete, isComplete);
    QVERIFY(file.esi == nullptr);
}

/// Each is there when it is asked for, in any order, and comes with a time of export.
void tst_ShownFile::devices()
{
    show::ShownFile file;
    file.setKtl(vectorOf(general(2) + general(3) + endItem() + general(4) + endItem()));
    QCOMPARE(file.devices.size(), std::size_t{3});
    for (const std::size_t index : {std::size_t{2}, std::size_t{0}, std::size_t{1}, std::size_t{1}}) {
        QCOMPARE(std::uint32_t{file.devices[index].block.general.m_iProduct_Code}, std::uint32_t(index + 2));
        QVERIFY(file.devices[index].isExported);
    }
}

static const testMain::Registration<tst_ShownFile, testMain::NoApplication> registration;
#include "tst_ShownFile.moc"
