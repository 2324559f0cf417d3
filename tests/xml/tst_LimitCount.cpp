// The limits of a file, counted while it is read.
#include "esi/xml/limitCount.h"
#include "esi/xml/xmlLimits.h"
#include "testMain.h"

#include <QtTest>

class tst_LimitCount : public QObject
{
    Q_OBJECT

private slots:
    static void names_data();
    static void names();
    static void modulesAreDirectChildren();
    static void readersMultiply();
    static void textsHaveALimitOfTheirOwn();
};

namespace {

NameRole roleOf(const char* name)
{
    return nameRoleOf(std::string_view(name));
}

bool enter(LimitCount& count, const char* name, int attributes = 0)
{
    return count.enterElement(roleOf(name), attributes);
}

/// How many nodes more a count takes.
int roomOf(LimitCount count)
{
    int room = 0;
    while (count.addNode())
        room += 1;
    return room;
}

} // namespace

void tst_LimitCount::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("mayHoldSections");
    QTest::addColumn<bool>("isDevice");
    QTest::addRow("Device") << "Device" << true << true;
    QTest::addRow("a part of the name") << "MyDevices" << true << false;
    QTest::addRow("another case") << "device" << false << false;
    QTest::addRow("another name") << "Slots" << false << false;
}

/// Names in UTF-16 and in UTF-8 have the same role.
void tst_LimitCount::names()
{
    QFETCH(QString, name);
    const std::string utf8 = name.toStdString();
    for (const NameRole& role : {nameRoleOf(name), nameRoleOf(std::string_view(utf8))}) {
        QTEST(role.mayHoldSections, "mayHoldSections");
        QTEST(role.isDevice, "isDevice");
        QCOMPARE(role.isSlots, name == QLatin1String("Slots"));
    }
}

void tst_LimitCount::modulesAreDirectChildren()
{
    LimitCount count;
    QVERIFY(enter(count, "Modules"));
    for (int module = 0; module < maxModules; ++module) {
        QVERIFY(enter(count, "M"));
        QVERIFY(enter(count, "Type")); // one in a module is none
        count.leaveElement();
        count.leaveElement();
    }
    QVERIFY(!enter(count, "Module"));
    QCOMPARE(count.brokenLimit(), QStringLiteral("the file has more than 500000 modules"));
}

/// What is in two devices in each other and a list of slots counts twice; three more elements are counted before.
void tst_LimitCount::readersMultiply()
{
    LimitCount count;
    QVERIFY(enter(count, "a", 4)); // 5
    QCOMPARE(roomOf(count), maxNodes - 5);
    QVERIFY(enter(count, "Device")); // 1, by the device itself
    QVERIFY(enter(count, "Device")); // 2, by both
    QVERIFY(enter(count, "Slots")); // 2
    QCOMPARE(roomOf(count), (maxNodes - 10) / 2);
    count.leaveElement();
    count.leaveElement();
    QCOMPARE(roomOf(count), maxNodes - 10);
}

void tst_LimitCount::textsHaveALimitOfTheirOwn()
{
    LimitCount count;
    for (int text = 0; text < maxNodes; ++text)
        QVERIFY(count.addText(1));
    QCOMPARE(roomOf(count), maxNodes);
    QVERIFY(!count.addText(1));
    QCOMPARE(count.brokenLimit(), QStringLiteral("the file has more than 2500000 texts"));
}

static const testMain::Registration<tst_LimitCount, testMain::NoApplication> registration;
#include "tst_LimitCount.moc"
