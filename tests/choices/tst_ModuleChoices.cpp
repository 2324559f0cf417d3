// Modules put into places and taken out by choices, and what does not fit.
#include "choices/appliedChoices.h"
#include "choices/choicesTexts.h"
#include "choices/twinDevices.h"
#include "testMain.h"

class tst_ModuleChoices : public QObject
{
    Q_OBJECT

private slots:
    static void places_data();
    static void places();
    static void types_data();
    static void types();
    static void namesAndPlaces_data();
    static void namesAndPlaces();
    static void twinModules_data();
    static void twinModules();
    static void slotOfManyModules();
    static void severalAtOnePlace_data();
    static void severalAtOnePlace();
    static void onceMoreThanModulesAtOnePlace();
    static void modulesByRow_data();
    static void modulesByRow();
};

void tst_ModuleChoices::places_data()
{
    QTest::addColumn<QByteArray>("modules");
    QTest::addColumn<QString>("found"); // "place:ident" of each module
    QTest::addRow("nothing") << QByteArray() << "0:10 1:116";
    QTest::addRow("put in by ident") << QByteArray(R"({"place": 3, "module": "0x116"})") << "0:10 1:116 3:116";
    QTest::addRow("put in by name") << QByteArray(R"({"place": 2, "module": "MB-AI04"})") << "0:10 1:116 2:304";
    QTest::addRow("replaced") << QByteArray(R"({"place": 1, "module": "MB-DO16"})") << "0:10 1:216";
    QTest::addRow("taken out") << QByteArray(R"({"place": 0, "module": null})") << "1:116";
    QTest::addRow("taken out of an empty place") << QByteArray(R"({"place": 5, "module": null})") << "0:10 1:116";
}

void tst_ModuleChoices::places()
{
    QFETCH(QByteArray, modules);
    const AppliedChoices result =
        applied(loadedSample("bus-coupler"), choicesOfFirst("\"deviceType\": 4, \"modules\": [" + modules + ']'));
    QCOMPARE(result.problems, QStringList());
    QStringList found;
    for (const struct_Slot& slot : result.files.at(0).device.at(0).Slots.vslot)
        for (const struct_slotmodule& placed : slot.slotmodule)
            found += QStringLiteral("%1:%2").arg(placed.Instances).arg(placed.module.TypeAttributes.ModuleIdent, 0, 16);
    QTEST(found.join(' '), "found");
}

void tst_ModuleChoices::types_data()
{
    const QString byHand =
        "; leave the list out, or set a deviceType that takes modules by hand (MultiDriver, Special, "
        "ManualIOBlock) [module-type]";
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("message");
    QTest::addRow("modules of a single drive") << QByteArray(R"("modules": [{"place": 0, "module": null}])")
                                               << "modules: a device of the type SingleDriver has no modules" + byHand;
    QTest::addRow("modules of a coupler that finds them")
        << QByteArray(R"("deviceType": 3, "modules": [{"place": 0, "module": null}])")
        << "modules: a device of the type PnpIOBlock finds its modules at power-on" + byHand;
    QTest::addRow("place of a device without slots") << QByteArray(R"("deviceType": 4, "modules": [{"place": 0,
                                                                      "module": null}])")
                                                     << "modules[0].place: the device has no place 0 [module-place]";
}

/// The servo drive is a single drive without slots.
void tst_ModuleChoices::types()
{
    QFETCH(QByteArray, members);
    QFETCH(QString, message);
    QCOMPARE(applied(loadedSample("servo-drive"), choicesOfFirst(members)).problems,
             QStringList{"devices[0]." + message});
}

void tst_ModuleChoices::namesAndPlaces_data()
{
    QTest::addColumn<QByteArray>("modules");
    QTest::addColumn<QString>("message");
    QTest::addRow("name") << QByteArray(R"({"place": 2, "module": "XY-9"})")
                          << "modules[0].module: \"XY-9\" is no module of bus-coupler.xml [module]";
    QTest::addRow("ident") << QByteArray(R"({"place": 2, "module": "0x999"})")
                           << "modules[0].module: \"0x999\" is no module of bus-coupler.xml [module]";
    QTest::addRow("a place after the last") << QByteArray(R"({"place": 16, "module": null})")
                                            << "modules[0].place: the device has no place 16 [module-place]";
    QTest::addRow("place twice") << QByteArray(R"({"place": 2, "module": null}, {"place": 2, "module": null})")
                                 << "modules[1].place: place 2 is filled twice [module-place]";
}

void tst_ModuleChoices::namesAndPlaces()
{
    QFETCH(QByteArray, modules);
    QFETCH(QString, message);
    const QByteArray members = "\"deviceType\": \"Special\", \"modules\": [" + modules + ']';
    QCOMPARE(applied(loadedSample("bus-coupler"), choicesOfFirst(members)).problems,
             QStringList{"devices[0]." + message});
}

void tst_ModuleChoices::twinModules_data()
{
    QTest::addColumn<QByteArray>("modules");
    QTest::addColumn<QString>("message");
    QTest::addRow("module by ident") << QByteArray(R"({"place": 0, "module": "0x1"})")
                                     << "modules[0].module: \"0x1\" are 2 modules of test.xml [module]";
    QTest::addRow("module by type") << QByteArray(R"({"place": 0, "module": "A"})")
                                    << "modules[0].module: \"A\" are 2 modules of test.xml [module]";
    QTest::addRow("module that the slot does not take")
        << QByteArray(R"({"place": 1, "module": "Third"})")
        << "modules[0].module: module 0x2 \"Third\" does not fit place 1, slot \"\" takes 0x1 [module-place]";
}

void tst_ModuleChoices::twinModules()
{
    QFETCH(QByteArray, modules);
    QFETCH(QString, message);
    const QByteArray members = "\"deviceType\": \"Special\", \"modules\": [" + modules + ']';
    QCOMPARE(applied(loadedText(twinsEsi()), choicesOfFirst(members)).problems, QStringList{"devices[0]." + message});
}

/// Of the modules that a slot takes, eight are told.
void tst_ModuleChoices::slotOfManyModules()
{
    QByteArray idents;
    for (int ident = 1; ident <= 10; ++ident)
        idents += "<ModuleIdent>" + QByteArray::number(ident) + "</ModuleIdent>";
    const QByteArray esi = twinsEsi().replace("<ModuleIdent>1</ModuleIdent>", idents).replace("\"2\">A", "\"11\">C");
    const QByteArray members = R"("deviceType": 4, "modules": [{"place": 1, "module": 11}])";
    QCOMPARE(
        applied(loadedText(esi), choicesOfFirst(members)).problems,
        QStringList{"devices[0].modules[0].module: module 0xb \"Third\" does not fit place 1, slot \"\" takes 0x1, "
                    "0x2, 0x3, 0x4, 0x5, 0x6, 0x7, 0x8 and 2 more [module-place]"});
}

namespace {

/// The twin devices, with the modules of both idents as defaults of the only slot; both stand at its first place.
QByteArray esiOfTwoDefaults()
{
    return twinsEsi().replace("<ModuleIdent>1</ModuleIdent>",
                              "<ModuleIdent Default=\"1\">2</ModuleIdent><ModuleIdent Default=\"1\">1</ModuleIdent>");
}

/// "place:name" of each module of the first device.
QString modulesOf(const AppliedChoices& applied)
{
    QStringList found;
    for (const struct_Slot& slot : applied.files.at(0).device.at(0).Slots.vslot)
        for (const struct_slotmodule& placed : slot.slotmodule)
            found += QStringLiteral("%1:%2").arg(placed.Instances).arg(QString::fromStdString(placed.module.Name));
    return found.join(' ');
}

QByteArray special(const QByteArray& modules)
{
    return choicesOfFirst("\"deviceType\": \"Special\", \"modules\": [" + modules + ']');
}

} // namespace

void tst_ModuleChoices::severalAtOnePlace_data()
{
    QTest::addColumn<QByteArray>("modules");
    QTest::addColumn<QString>("found");
    QTest::addRow("nothing") << QByteArray() << "0:Third 0:First";
    QTest::addRow("one taken out") << QByteArray(R"({"place": 0, "module": null})") << "0:First";
    QTest::addRow("both taken out") << QByteArray(R"({"place": 0, "module": null}, {"place": 0, "module": null})")
                                    << "";
    QTest::addRow("the first replaced") << QByteArray(R"({"place": 0, "module": "Second"})") << "0:Second 0:First";
    QTest::addRow("one taken out, the other replaced")
        << QByteArray(R"({"place": 0, "module": null}, {"place": 0, "module": "Second"})") << "0:Second";
    QTest::addRow("the one that a choice has put in is the first then")
        << QByteArray(R"({"place": 0, "module": "Second"}, {"place": 0, "module": null})") << "0:First";
    QTest::addRow("another place") << QByteArray(R"({"place": 0, "module": null}, {"place": 1, "module": "Second"},
                                                    {"place": 0, "module": null})")
                                   << "1:Second";
}

/// Each choice is a click: it takes out or replaces the first module that is at the place then.
void tst_ModuleChoices::severalAtOnePlace()
{
    QFETCH(QByteArray, modules);
    const AppliedChoices result = applied(loadedText(esiOfTwoDefaults()), special(modules));
    QCOMPARE(result.problems, QStringList());
    QTEST(modulesOf(result), "found");
}

void tst_ModuleChoices::onceMoreThanModulesAtOnePlace()
{
    const QByteArray none = R"({"place": 0, "module": null})";
    QCOMPARE(applied(loadedText(esiOfTwoDefaults()), special(none + ',' + none + ',' + none)).problems,
             QStringList{"devices[0].modules[2].place: place 0 is filled more often than 2 times, it has so many "
                         "modules [module-place]"});
}

void tst_ModuleChoices::modulesByRow_data()
{
    QTest::addColumn<QByteArray>("modules");
    QTest::addColumn<QString>("found"); // or the message
    QTest::addRow("by ident and row") << QByteArray(R"({"place": 0, "module": 1, "moduleRow": 1})") << "0:Second";
    QTest::addRow("by type and row") << QByteArray(R"({"place": 0, "module": "A", "moduleRow": 0})") << "0:First";
    QTest::addRow("no such row") << QByteArray(R"({"place": 0, "module": 1, "moduleRow": 3})")
                                 << "devices[0].modules[0].moduleRow: there is no module 3, test.xml has 3 [row]";
    QTest::addRow("another module in the row")
        << QByteArray(R"({"place": 0, "module": 1, "moduleRow": 2})")
        << "devices[0].modules[0].module: module 0x2 \"Third\" stands in row 2, not \"0x1\" [check]";
}

/// Modules that share an ident or a type are told apart by their row.
void tst_ModuleChoices::modulesByRow()
{
    QFETCH(QByteArray, modules);
    const AppliedChoices result = applied(loadedText(twinsEsi()), special(modules));
    QTEST(result.problems.isEmpty() ? modulesOf(result) : result.problems.join('\n'), "found");
}

static const testMain::Registration<tst_ModuleChoices, testMain::NoApplication> registration;
#include "tst_ModuleChoices.moc"
