// Links that choices give to entries of devices and modules, and what does not fit.
#include "choices/appliedChoices.h"
#include "choices/choicesTexts.h"
#include "choices/twinDevices.h"
#include "model/pdoAccess.h"
#include "testMain.h"

class tst_LinkChoices : public QObject
{
    Q_OBJECT

private slots:
    static void made();
    static void thatDoNotFit_data();
    static void thatDoNotFit();
    static void twinEntries_data();
    static void twinEntries();
    static void moduleLinks();
    static void moduleLinksByRow();
    static void moduleLinkOfAFileWithoutModules();
};

namespace {

/// Links of the entries of each PDO: "0 -2|0 0".
template<typename PdoList> QString linksOf(const PdoList& pdos)
{
    QStringList texts;
    for (const auto& pdo : pdos) {
        QStringList links;
        for (const auto& entry : entriesOf(pdo))
            links += QString::number(entry.Linkto);
        texts += links.join(QLatin1Char(' '));
    }
    return texts.join(QLatin1Char('|'));
}

QByteArray link(const QByteArray& members)
{
    return "\"links\": [{" + members + "}]";
}

} // namespace

void tst_LinkChoices::made()
{
    const AppliedChoices result =
        applied(loadedSample("io-block"), choicesOfFirst(R"("links": [{"pdo": 0, "entry": 1, "link": "DOUT"},
                                                            {"pdo": "0x1a00", "entry": "0x6000:2", "link": "DIN"}])"));
    QCOMPARE(result.problems, QStringList());
    const struct_EtherCatDevice& device = result.files.at(0).device.at(0);
    QCOMPARE(linksOf(device.RxPdo.vpdo), QStringLiteral("0 -2"));
    QCOMPARE(linksOf(device.TxPdo.vpdo), QStringLiteral("0 -1"));
}

void tst_LinkChoices::thatDoNotFit_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("message");
    QTest::addRow("PDO row") << link(R"("pdo": 6, "entry": 0, "link": "DIN")")
                             << "links[0].pdo: there is no PDO 6, the list has 6 [row]";
    QTest::addRow("PDO index") << link(R"("pdo": "0x1605", "entry": 0, "link": "DIN")")
                               << "links[0].pdo: there is no PDO 0x1605 [link]";
    QTest::addRow("entry position") << link(R"("pdo": 1, "entry": 2, "link": "DOUT")")
                                    << "links[0].entry: there is no entry 2, the PDO has 2 [link]";
    QTest::addRow("entry object") << link(R"("pdo": 0, "entry": "0x6040:1", "link": "DOUT")")
                                  << "links[0].entry: the PDO has no entry 0x6040:1 [link]";
    QTest::addRow("another PDO is there") << link(R"("pdo": 0, "index": "0x1601", "entry": 0, "link": "DOUT")")
                                          << "links[0].index: 0x1600 stands there, not 0x1601 [check]";
    QTest::addRow("another object is there") << link(R"("pdo": 0, "entry": 0, "object": "0x6041:0", "link": "DOUT")")
                                             << "links[0].object: 0x6040:0 stands there, not 0x6041:0 [check]";
    QTest::addRow("another name is there") << link(R"("pdo": 0, "entry": 0, "name": "Status", "link": "DOUT")")
                                           << "links[0].name: \"Controlword\" stands there, not \"Status\" [check]";
    QTest::addRow("input link of an output")
        << link(R"("pdo": 0, "entry": 0, "link": "DIN")")
        << "links[0].link: \"DIN\" is no link of an output (known: NONE, DOUT, AOUT16, AOUT32, FAOUT) [link]";
    QTest::addRow("output link of an input")
        << link(R"("pdo": 3, "entry": 0, "link": "DOUT")")
        << "links[0].link: \"DOUT\" is no link of an input (known: NONE, DIN, AIN16, AIN32, FAIN, ENCODER32) [link]";
    QTest::addRow("link number that is not offered")
        << link(R"("pdo": 0, "entry": 0, "link": -3)")
        << "links[0].link: \"-3\" is no link of an output (known: NONE, DOUT, AOUT16, AOUT32, FAOUT) [link]";
    QTest::addRow("entry linked twice") << link(
        R"("pdo": 0, "entry": 0, "link": "DOUT"}, {"pdo": "0x1600", "entry": "0x6040:0", "link": "NONE")")
                                        << "links[1]: this entry is linked twice [link]";
}

void tst_LinkChoices::thatDoNotFit()
{
    QFETCH(QByteArray, members);
    QFETCH(QString, message);
    QCOMPARE(applied(loadedSample("servo-drive"), choicesOfFirst(members)).problems,
             QStringList{"devices[0]." + message});
}

void tst_LinkChoices::twinEntries_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("message");
    QTest::addRow("PDO") << link(R"("pdo": "0x1600", "entry": 0, "link": "DOUT")")
                         << "links[0].pdo: 2 PDOs have the index 0x1600; their numbers tell them apart [link]";
    QTest::addRow("entry") << link(R"("pdo": 0, "entry": "0x7000:1", "link": "DOUT")")
                           << "links[0].entry: the PDO has 2 entries 0x7000:1; their numbers tell them apart [link]";
}

void tst_LinkChoices::twinEntries()
{
    QFETCH(QByteArray, members);
    QFETCH(QString, message);
    QCOMPARE(applied(loadedText(twinsEsi()), choicesOfFirst(members)).problems, QStringList{"devices[0]." + message});
}

/// Links of a module of the file are not those of the same module in a place.
void tst_LinkChoices::moduleLinks()
{
    const AppliedChoices result = applied(
        loadedSample("bus-coupler"),
        choicesOfFirst(R"("moduleLinks": [{"module": "MB-AO04", "pdo": "0x1600", "entry": 1, "link": "AOUT16"}])"));
    QCOMPARE(result.problems, QStringList());
    QStringList linked;
    for (const struct_commentmodule& group : result.files.at(0).vcommentmodule)
        for (const struct_module& module : group.vmodule)
            if (linksOf(module.RxPdo.vpdo).contains(QLatin1Char('-')))
                linked += QString::fromStdString(module.TypeAttributes.Name) + ' ' + linksOf(module.RxPdo.vpdo);
    QCOMPARE(linked, QStringList{"MB-AO04 0 -7 0 0"});
}

/// Of two modules with one ident, the row says which is linked.
void tst_LinkChoices::moduleLinksByRow()
{
    const QByteArray pdo = "<RxPdo><Index>#x1600</Index><Entry><Index>#x7000</Index><BitLen>8</BitLen></Entry></RxPdo>";
    const QByteArray esi = twinsEsi().replace("</Module>", pdo + "</Module>");
    const AppliedChoices result = applied(loadedText(esi), choicesOfFirst(R"("moduleLinks": [
        {"module": 1, "moduleRow": 1, "pdo": 0, "entry": 0, "link": "DOUT"}])"));
    QCOMPARE(result.problems, QStringList());
    QStringList links;
    for (const struct_module& module : result.files.at(0).vcommentmodule.at(0).vmodule)
        links += linksOf(module.RxPdo.vpdo);
    QCOMPARE(links, (QStringList{"0", "-2", "0"}));
    const QByteArray wrong = R"("moduleLinks": [{"module": 1, "moduleRow": 9, "pdo": 0, "entry": 0, "link": "DOUT"}])";
    QCOMPARE(applied(loadedText(esi), choicesOfFirst(wrong)).problems,
             QStringList{"devices[0].moduleLinks[0].moduleRow: there is no module 9, test.xml has 3 [row]"});
}

void tst_LinkChoices::moduleLinkOfAFileWithoutModules()
{
    const QByteArray members = R"("moduleLinks": [{"module": 16, "pdo": 0, "entry": 0, "link": "DIN"}])";
    QCOMPARE(applied(loadedSample("servo-drive"), choicesOfFirst(members)).problems,
             QStringList{"devices[0].moduleLinks[0].module: \"0x10\" is no module of servo-drive.xml [module]"});
}

static const testMain::Registration<tst_LinkChoices, testMain::NoApplication> registration;
#include "tst_LinkChoices.moc"
