// The names of the kinds of warnings, on which scripts rely.
#include "cli/warningCodes.h"
#include "testMain.h"

#include <QtTest>

using cli::WarningCode;

class tst_WarningCodes : public QObject
{
    Q_OBJECT

private slots:
    static void names_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("name");
        const auto row = [](WarningCode code, const char* name) {
            QTest::addRow("%s", name) << static_cast<int>(code) << name;
        };
        row(WarningCode::SyncManagers, "sync-managers");
        row(WarningCode::SlotPdoIncrement, "slot-pdo-increment");
        row(WarningCode::SlotIndexIncrement, "slot-index-increment");
        row(WarningCode::StartupCommands, "startup-commands");
        row(WarningCode::StartupData, "startup-data");
        row(WarningCode::ModuleList, "module-list");
        row(WarningCode::ModuleCommands, "module-commands");
        row(WarningCode::ItemCount, "item-count");
        row(WarningCode::LeftOut, "left-out");
        row(WarningCode::SameInput, "same-input");
    }

    static void names()
    {
        QFETCH(int, code);
        QFETCH(QString, name);
        QCOMPARE(QString(cli::nameOf(static_cast<WarningCode>(code))), name);
        QVERIFY(cli::warningCodeNamed(name).has_value());
        QCOMPARE(static_cast<int>(*cli::warningCodeNamed(name)), code);
        QCOMPARE(cli::warningCodeNames().value(code), name);
    }

    static void noName()
    {
        for (const char* name : {"", "sync-manager", "Sync-Managers", "sync-managers "})
            QVERIFY(!cli::warningCodeNamed(QString::fromLatin1(name)).has_value());
    }
};

static const testMain::Registration<tst_WarningCodes, testMain::NoApplication> registration;
#include "tst_WarningCodes.moc"
