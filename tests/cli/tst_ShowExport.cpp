// `ktl show` of ESI files whose export holds other items than it announces: what is warned of, and what is shown.
#include "cli/showRun.h"
#include "testMain.h"

#include <QtTest>

class tst_ShowExport : public QObject
{
    Q_OBJECT

private slots:
    void miscounts_data();
    void miscounts();
    void lostModule();
    void warningAfterAFailedDevice();
    void warningForEachDevice();
    void commandsThatAreNone();

private:
    QTemporaryDir m_folder;
};

namespace {

const QByteArray plain = "<Entry><Index>#x7000</Index><SubIndex>1</SubIndex><BitLen>8</BitLen></Entry>";

/// @param attributes  of the `RxPdo` element
QByteArray pdo(const QByteArray& attributes, const QByteArray& entries)
{
    return "<RxPdo " + attributes + "><Index>#x1600</Index>" + entries + "</RxPdo>";
}

/// A module with its ident for a name.
QByteArray module(const QByteArray& ident, const QByteArray& pdos, const QByteArray& commands = {})
{
    return "<Module><Type ModuleIdent=\"" + ident + "\">T</Type><Name>" + ident + "</Name>" + pdos + "<Mailbox><CoE>"
           + commands + "</CoE></Mailbox></Module>";
}

/// A device that configures PDOs and has outputs on sync manager 0.
/// @param profile  5001 for one whose file goes out with it
QByteArray device(const QByteArray& name, const QByteArray& profile, const QByteArray& more = {})
{
    return "<Device><Type ProductCode=\"2\">D</Type><Name>" + name + "</Name><Profile><ProfileNo>" + profile
           + "</ProfileNo></Profile><Sm>Outputs</Sm><Mailbox><CoE PdoConfig=\"1\"/></Mailbox>" + more + "</Device>";
}

QByteArray esi(const QByteArray& devices, const QByteArray& modules)
{
    return "<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices>" + devices + "</Devices><Modules>"
           + modules + "</Modules></Descriptions></EtherCATInfo>";
}

/// A PDO without entries on sync manager 0: two records are announced for it, 32 bytes, and none is there.
QByteArray twoTooMany()
{
    return pdo("Sm=\"0\"", {});
}

QByteArray warning(const QByteArray& deviceName, const QByteArray& ident)
{
    return ": warning: device \"" + deviceName + "\": in an export, module " + ident
           + " does not have as many startup commands as it announces; the items after them cannot be found "
             "[module-commands]\n";
}

QJsonArray list(const QJsonValue& object, const char* key)
{
    return object.toObject().value(QLatin1String(key)).toArray();
}

/// The 96 bytes that are announced and not there are those of the other module, to the byte: 20 of its ModuleType, and
/// 28 + 4 * 12 of its four entries.
QByteArray moduleThatVanishes()
{
    return module("1", twoTooMany() + twoTooMany() + twoTooMany())
           + module("2", pdo("Sm=\"0\" Fixed=\"1\"", plain + plain + plain + plain));
}

/// The 32 bytes that are announced and not there end in the head of the other module's entries, where sync manager and
/// sync unit read as type and size of a CoE item: 16 + 255 * 12 bytes, all that is left in front of the End item.
QByteArray moduleThatReadsAsCommands()
{
    QByteArray entries;
    for (int index = 0; index < 255; ++index)
        entries += "<Entry><Index>#x70" + QByteArray::number(index, 16).rightJustified(2, '0')
                   + "</Index><SubIndex>1</SubIndex><BitLen>8</BitLen></Entry>";
    return module("1", twoTooMany()) + module("2", pdo("Sm=\"40006\" Su=\"3076\" Fixed=\"1\"", entries));
}

} // namespace

void tst_ShowExport::miscounts_data()
{
    QTest::addColumn<QByteArray>("profile");
    QTest::addColumn<QByteArray>("modules");
    QTest::addColumn<QByteArray>("ident"); // of the module that is warned of; empty for none
    const QByteArray coupler = "5001";
    const QByteArray none;
    const QByteArray command = "<InitCmd><Index>#x8000</Index><Data>01</Data></InitCmd>";
    // Its record reads as an item of type 0x01000000 and of 48 bytes: itself and the two records after it.
    const QByteArray itemOfThree = "<InitCmd><Index>48</Index><Data>01</Data></InitCmd>";
    // Its record reads as an End item of 16 bytes: itself.
    const QByteArray endOfOne = "<InitCmd><Index>16</Index></InitCmd>";
    // A mapping of 3 records, of which none is announced: the last 3 records are after the announced end.
    const QByteArray threeTooFew = pdo({}, plain);
    const QByteArray right = module("7", pdo("Sm=\"0\"", plain), command);

    QTest::addRow("as announced") << coupler << right + right << none;
    QTest::addRow("no startup commands") << coupler << module("7", pdo("Sm=\"0\" Fixed=\"1\"", plain)) << none;
    QTest::addRow("class without module blocks") << QByteArray("402") << module("1", twoTooMany()) + right << none;
    QTest::addRow("fewer than announced, in the last module")
        << coupler << right + module("8", twoTooMany()) << QByteArray("0x8");
    QTest::addRow("fewer than announced, the next module missing to the byte")
        << coupler << moduleThatVanishes() << QByteArray("0x1");
    QTest::addRow("fewer than announced, a CoE item seems to follow")
        << coupler << moduleThatReadsAsCommands() << QByteArray("0x1");
    QTest::addRow("more than announced") << coupler << module("16", threeTooFew, command) + right << QByteArray("0x10");
    QTest::addRow("more than announced, they read as an item")
        << coupler << module("16", threeTooFew, command + itemOfThree + command + command) + right
        << QByteArray("0x10");
    QTest::addRow("more than announced, they read as End items")
        << coupler << module("16", threeTooFew, endOfOne + endOfOne + endOfOne) + right << QByteArray("0x10");
    QTest::addRow("two modules: the first is told")
        << coupler << module("4", twoTooMany()) + module("3", twoTooMany()) << QByteArray("0x4");
}

void tst_ShowExport::miscounts()
{
    QFETCH(QByteArray, profile);
    QFETCH(QByteArray, modules);
    QFETCH(QByteArray, ident);
    const QString path = writtenFile(m_folder, "miscounts.xml", esi(device("Dev", profile), modules));
    const CommandRun run = runShow({"--json", path});
    QCOMPARE(run.errors, ident.isEmpty() ? QByteArray() : path.toUtf8() + warning("Dev", ident));
    QCOMPARE(run.exitCode, 0);
    const QJsonObject file = filesIn(run).at(0).toObject();
    QCOMPARE(file.value("complete").toBool(), true);
    QCOMPARE(list(list(file, "moduleGroups").at(0), "modules").size(), modules.count("<Module>")); // none is lost here
}

/// What a reader finds is shown: one module, with commands that are none.
void tst_ShowExport::lostModule()
{
    const QString path = writtenFile(m_folder, "lost.xml", esi(device("Dev", "5001"), moduleThatVanishes()));
    const QJsonArray modules = list(list(shownFile(path), "devices").at(0), "modules");
    QCOMPARE(modules.size(), 1);
    QCOMPARE(modules.at(0).toObject().value("ident").toInt(), 1);
    QCOMPARE(list(modules.at(0), "startup").size(), 6);
}

/// A device whose export fails, since a module brings a PDO on a sync manager that the device does not have, is no
/// reason to be silent about the next one.
void tst_ShowExport::warningAfterAFailedDevice()
{
    const QByteArray slot =
        "<Slots><Slot MaxInstances=\"1\"><Name>S</Name><ModuleIdent Default=\"1\">9</ModuleIdent></Slot></Slots>";
    // Loading looks at the sync manager too if the device configures PDOs.
    const QByteArray failing = device("Bad", "402", slot).replace(" PdoConfig=\"1\"", "");
    const QByteArray modules = module("1", twoTooMany()) + module("9", pdo("Sm=\"77\" Fixed=\"1\"", plain));
    const QString path = writtenFile(m_folder, "failed.xml", esi(failing + device("Dev", "5001"), modules));
    const CommandRun run = runShow({"--json", path});
    QVERIFY2(run.errors.startsWith(path.toUtf8() + ": error: device \"Bad\": PDO 0x1600 "), run.errors.constData());
    QVERIFY2(run.errors.endsWith('\n' + path.toUtf8() + warning("Dev", "0x1")), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 2);
    QCOMPARE(run.exitCode, 2);
}

void tst_ShowExport::warningForEachDevice()
{
    const QString path =
        writtenFile(m_folder, "devices.xml", esi(device("A", "5001") + device("B", "5001"), module("1", twoTooMany())));
    const QByteArray file = path.toUtf8();
    QCOMPARE(runShow({path}).errors, file + warning("A", "0x1") + file + warning("B", "0x1"));
}

/// They have no source, and are shown all the same: entries of 8 bits as commands of 8 bytes.
void tst_ShowExport::commandsThatAreNone()
{
    const QString path = writtenFile(m_folder, "none.xml", esi(device("Dev", "5001"), moduleThatReadsAsCommands()));
    const CommandRun csv = runShow({"--csv", "startup", path});
    QCOMPARE(csv.exitCode, 0);
    const QByteArray row = path.toUtf8()
                           + ",1,Dev,device,%1,CoE,0,0x70%2,1,no,8,,,"
                             "\"value of 8 bytes, which the format does not carry\",unknown,,,\r\n";
    for (const int position : {1, 255}) {
        const QByteArray number = QByteArray::number(position);
        const QByteArray index = QByteArray::number(position - 1, 16).rightJustified(2, '0');
        QVERIFY(csv.output.contains(QByteArray(row).replace("%1", number).replace("%2", index)));
    }
    const QJsonArray groups = list(list(shownFile(path), "devices").at(0), "startup");
    QCOMPARE(groups.size(), 1);
    QCOMPARE(list(groups.at(0), "commands").size(), 255);
    QCOMPARE(list(groups.at(0), "commands").at(254).toObject().value("source").toObject(),
             objectOf(R"({"origin":"unknown","comment":null,"text":null,"choiceRow":null})"));
}

static const testMain::Registration<tst_ShowExport, QCoreApplication> registration;
#include "tst_ShowExport.moc"
