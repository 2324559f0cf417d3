// Minimum sizes that choices give to sync managers, and what does not fit.
#include "choices/appliedChoices.h"
#include "choices/choicesTexts.h"
#include "testMain.h"

class tst_SyncManagerChoices : public QObject
{
    Q_OBJECT

private slots:
    static void made_data();
    static void made();
    static void thatDoNotFit_data();
    static void thatDoNotFit();
};

void tst_SyncManagerChoices::made_data()
{
    QTest::addColumn<QByteArray>("choices");
    QTest::addColumn<QString>("sizes"); // of all sync managers
    QTest::addRow("none") << QByteArray() << "4 5 0";
    QTest::addRow("by row") << QByteArray(R"({"syncManager": 1, "minSize": 65535})") << "4 65535 0";
    QTest::addRow("virtual one") << QByteArray(R"({"syncManager": 2, "minSize": 7})") << "4 5 7";
    QTest::addRow("by name") << QByteArray(R"({"syncManager": "Outputs", "minSize": "0x40"})") << "64 5 0";
    QTest::addRow("with its name") << QByteArray(R"({"syncManager": 1, "name": "Inputs", "minSize": 0})") << "4 0 0";
    QTest::addRow("several") << QByteArray(R"({"syncManager": 1, "minSize": 1}, {"syncManager": 0, "minSize": 2})")
                             << "2 1 0";
}

/// The second device of the sample has one sync manager for outputs and two for inputs, the last of them virtual.
void tst_SyncManagerChoices::made()
{
    QFETCH(QByteArray, choices);
    const AppliedChoices result =
        applied(loadedSample("io-block"), choicesWith("{\"device\": 2, \"syncManagers\": [" + choices + "]}"));
    QCOMPARE(result.problems, QStringList());
    QStringList sizes;
    for (const struct_SM& syncManager : result.files.at(0).device.at(1).vSM)
        sizes += QString::number(syncManager.Attributes.MinSize);
    QTEST(sizes.join(' '), "sizes");
}

void tst_SyncManagerChoices::thatDoNotFit_data()
{
    QTest::addColumn<QByteArray>("choices");
    QTest::addColumn<QString>("message");
    QTest::addRow("no such row") << QByteArray(R"({"syncManager": 3, "minSize": 1})")
                                 << "[0].syncManager: there is no sync manager 3, the list has 3 [row]";
    QTest::addRow("no such name") << QByteArray(R"({"syncManager": "MBoxOut", "minSize": 1})")
                                  << "[0].syncManager: \"MBoxOut\" is no sync manager of the device [row]";
    QTest::addRow("digits are a name") << QByteArray(R"({"syncManager": "1", "minSize": 1})")
                                       << "[0].syncManager: \"1\" is no sync manager of the device [row]";
    QTest::addRow("name of two")
        << QByteArray(R"({"syncManager": "Inputs", "minSize": 1})")
        << "[0].syncManager: 2 sync managers are \"Inputs\"; their numbers tell them apart [setting]";
    QTest::addRow("another name is there") << QByteArray(R"({"syncManager": 0, "name": "Inputs", "minSize": 1})")
                                           << "[0].name: \"Outputs\" stands there, not \"Inputs\" [check]";
    QTest::addRow("twice") << QByteArray(
        R"({"syncManager": 0, "minSize": 1}, {"syncManager": "Outputs", "minSize": 1})")
                           << "[1]: sync manager 0 is set twice [setting]";
}

void tst_SyncManagerChoices::thatDoNotFit()
{
    QFETCH(QByteArray, choices);
    QFETCH(QString, message);
    const QByteArray text = choicesWith("{\"device\": 2, \"syncManagers\": [" + choices + "]}");
    QCOMPARE(applied(loadedSample("io-block"), text).problems, QStringList{"devices[0].syncManagers" + message});
}

static const testMain::Registration<tst_SyncManagerChoices, testMain::NoApplication> registration;
#include "tst_SyncManagerChoices.moc"
