// How much the names of slot groups would add to the names of slots.
#include "esi/xml/groupNameCount.h"
#include "esi/xml/xmlLimits.h"
#include "testMain.h"

#include <QtTest>

class tst_GroupNameCount : public QObject
{
    Q_OBJECT

private slots:
    static void limit_data();
    static void limit();
    static void devicesAddUp();
    static void otherNamesDoNotCount();
    static void readersMultiply();
};

namespace {

constexpr int slotsDepth = 3;

void enterSlots(GroupNameCount& count, int number, int readers = 1)
{
    for (int slot = 0; slot < number; ++slot) {
        count.enter(nameRoleOf(QStringLiteral("Slot")), slotsDepth, readers);
        count.leave(slotsDepth);
    }
}

/// A group with one element, and its text.
void enterGroup(GroupNameCount& count, int length, int readers = 1, const char* tag = "Name")
{
    count.enter(nameRoleOf(QStringLiteral("SlotGroupData")), slotsDepth, readers);
    count.enter(nameRoleOf(QString::fromLatin1(tag)), slotsDepth + 1, readers);
    count.addText(length, readers);
    count.leave(slotsDepth + 1);
    count.leave(slotsDepth);
}

} // namespace

/// 64 Mi characters for 1024 slots are 65536 for each, three of which are the arrow.
void tst_GroupNameCount::limit_data()
{
    QTest::addColumn<int>("slotCount");
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("isWithin");
    QTest::addRow("all that is allowed") << 1024 << 65533 << true;
    QTest::addRow("one character more") << 1024 << 65534 << false;
    QTest::addRow("one slot more") << 1025 << 65533 << false;
    QTest::addRow("no slots") << 0 << 2000000000 << true;
    QTest::addRow("more than a number of 32 bits holds") << 100000 << 2000000000 << false;
}

void tst_GroupNameCount::limit()
{
    QFETCH(int, slotCount);
    QFETCH(int, length);
    QFETCH(bool, isWithin);
    static_assert(maxGroupNameCopies == 67108864);
    GroupNameCount count;
    count.enterDevice();
    enterSlots(count, slotCount);
    enterGroup(count, length);
    QCOMPARE(count.isWithinLimit(), isWithin);
}

/// Two devices with half of the limit each; the slots of one do not multiply the names of the other.
void tst_GroupNameCount::devicesAddUp()
{
    GroupNameCount count;
    for (int device = 0; device < 2; ++device) {
        count.enterDevice();
        enterSlots(count, 512);
        enterGroup(count, 65533);
    }
    QVERIFY(count.isWithinLimit());
    count.enterDevice();
    enterSlots(count, 1);
    enterGroup(count, 1);
    QVERIFY(!count.isWithinLimit());
}

void tst_GroupNameCount::otherNamesDoNotCount()
{
    GroupNameCount count;
    count.enterDevice();
    enterSlots(count, 1024);
    enterGroup(count, 70000, 1, "Image");
    count.enter(nameRoleOf(QStringLiteral("Name")), slotsDepth, 1); // directly in the list of slots
    count.addText(70000, 1);
    count.leave(slotsDepth);
    QVERIFY(count.isWithinLimit());
}

/// Read by two elements, slots and names count twice: 2 * 512 slots, and 2 * (3 + 32765) characters.
void tst_GroupNameCount::readersMultiply()
{
    GroupNameCount count;
    count.enterDevice();
    enterSlots(count, 512, 2);
    enterGroup(count, 32765, 2);
    QVERIFY(count.isWithinLimit());
    count.enter(nameRoleOf(QStringLiteral("Slot")), slotsDepth, 1);
    QVERIFY(!count.isWithinLimit());
}

static const testMain::Registration<tst_GroupNameCount, QCoreApplication> registration;
#include "tst_GroupNameCount.moc"
