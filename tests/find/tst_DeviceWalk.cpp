// What the walk asks for, element by element.
#include "find/deviceWalk.h"
#include "find/foundLines.h"
#include "testMain.h"

#include <QtTest>

class tst_DeviceWalk : public QObject
{
    Q_OBJECT

private slots:
    static void needs();
    static void theRootIsNothing();
    static void modulesAreNotAskedFor();
};

void tst_DeviceWalk::needs()
{
    find::DeviceWalk walk(find::Wanted::Devices);
    QVERIFY(!walk.enter("EtherCATInfo").line && !walk.enter("Devices").line);
    const find::DeviceWalk::Needs ofDevice = walk.enter("Device");
    QVERIFY(ofDevice.line && !ofDevice.attributes);
    walk.setLine(7);
    QVERIFY(!walk.takesText());
    const find::DeviceWalk::Needs ofType = walk.enter("Type");
    QVERIFY(!ofType.line && ofType.attributes && walk.takesText());
    walk.setAttribute("ProductCode", "16");
    walk.setAttribute("Other", "17");
    walk.addText("a");
    walk.addText("b");
    walk.leave();
    QVERIFY(!walk.takesText());
    walk.leave();
    QCOMPARE(linesOf(walk.takeFound()), QStringList{"device 0:10:0 ab| @ 7"});
}

void tst_DeviceWalk::theRootIsNothing()
{
    find::DeviceWalk walk(find::Wanted::Devices);
    QVERIFY(!walk.enter("Device").line);
    walk.leave();
    QVERIFY(walk.takeFound().empty() && !walk.looksLikeEsi());
}

void tst_DeviceWalk::modulesAreNotAskedFor()
{
    find::DeviceWalk walk(find::Wanted::Devices);
    for (const char* const name : {"a", "Descriptions", "Modules"})
        QVERIFY(!walk.enter(name).line);
    QVERIFY(!walk.enter("Module").line);
}

static const testMain::Registration<tst_DeviceWalk, testMain::NoApplication> registration;
#include "tst_DeviceWalk.moc"
