// `ktl show` for people: what is on a line, and lines that fit a terminal.
// Covers showWriter.cpp.
#include "cli/showRun.h"
#include "cli/terminal.h"
#include "testMain.h"

#include <QtTest>

class tst_ShowText : public QObject
{
    Q_OBJECT

private slots:
    void lines_data();
    void lines();
    void columns_data();
    void columns();
    void namesOneToALine();
    void signedValues();
    void fitsTheTerminal_data();
    void fitsTheTerminal();
    void nothingIsLost();
    void fileHasWholeLines();

private:
    QTemporaryDir m_folder;
};

namespace {

QByteArray esiOf(const QByteArray& name, const QByteArray& content)
{
    return "<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices><Device><Type ProductCode=\"2\">D</Type>"
           "<Name>"
           + name + "</Name>" + content + "</Device></Devices></Descriptions></EtherCATInfo>";
}

/// What `ktl show` writes to a terminal of that many columns.
QByteArray shownAt(int columns, const QStringList& arguments)
{
    Terminal terminal;
    terminal.setColumns(columns);
    QProcess process;
    process.setStandardOutputFile(terminal.name());
    process.start(QStringLiteral(KTL_PROGRAM), QStringList{"show"} + arguments);
    QByteArray shown = terminal.readUntilEndOf(process);
    return shown.replace("\r\n", "\n");
}

} // namespace

void tst_ShowText::lines_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("shown");
    QTest::addRow("flags that are kept as numbers")
        << QByteArray("<Sm StartAddress=\"#x1000\" Enable=\"1\" Virtual=\"1\">Inputs</Sm><Sm>Outputs</Sm>")
        << QByteArray("  sync managers (2):\n"
                      "    no  name     type     start address  min size  max size  default size  length  control byte"
                      "  enable  virtual\n"
                      "    0   Inputs   Inputs   0x1000         0         0         0             0       0x0         "
                      "  yes     yes\n"
                      "    1   Outputs  Outputs  0x0            0         0         0             0       0x0         "
                      "  no      no\n");
    QTest::addRow("flag with other bits")
        << QByteArray("<Sm Enable=\"9\">Outputs</Sm>")
        << QByteArray(
               "enable\n    0   Outputs  Outputs  0x0            0         0         0             0       0x0   "
               "        0x9\n");
    QTest::addRow("column that is no throughout")
        << QByteArray("<Fmmu>Outputs</Fmmu>")
        << QByteArray(
               "  fmmus (1):\n    name     type     sync manager  sync unit\n    Outputs  Outputs  0             "
               "0\n");
    QTest::addRow("class of modules with a name")
        << QByteArray("<Slots><Slot MaxInstances=\"1\"><Name>S</Name><ModuleClass><Class>AI</Class><Name>Analog</Name>"
                      "</ModuleClass><ModuleClass><Class>DI</Class></ModuleClass></Slot></Slots>")
        << QByteArray("      module classes (2):\n        class  name\n        AI     Analog\n        DI\n");
    QTest::addRow("outputs in the words of the tables")
        << QByteArray("<Sm>Outputs</Sm><RxPdo Sm=\"0\"><Index>#x1600</Index></RxPdo>")
        << QByteArray("\n  output PDOs (1):\n    index   sync manager");
    QTest::addRow("inputs in the words of the tables")
        << QByteArray("<Sm>Inputs</Sm><TxPdo Sm=\"0\"><Index>#x1A00</Index></TxPdo>")
        << QByteArray("\n  input PDOs (1):\n    index   sync manager");
    QTest::addRow("one PDO") << QByteArray("<Sm>Outputs</Sm><RxPdo Sm=\"0\"><Index>#x1600</Index></RxPdo><Mailbox>"
                                           "<CoE PdoAssign=\"1\"/></Mailbox>")
                             << QByteArray("  1 (0x1)        1 PDO  ");
}

void tst_ShowText::lines()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, shown);
    const QByteArray text = runShow({"--full", writtenFile(m_folder, "lines.xml", esiOf("N", content))}).output;
    QVERIFY2(text.contains(shown), text.constData());
}

void tst_ShowText::columns_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("columns");
    QTest::addRow("Latin") << QByteArray("abcdefgh") << 8;
    QTest::addRow("Chinese") << QByteArray("单轴") << 4;
    QTest::addRow("half-width kana") << QByteArray("ｱﾅﾛｸﾞ") << 5;
    QTest::addRow("wide Latin") << QByteArray("ＡＢ") << 4;
    QTest::addRow("accent of its own") << QByteArray("cafe\xCC\x81") << 4;
    QTest::addRow("emoji") << QByteArray("\xF0\x9F\x94\xA7 x") << 4;
    QTest::addRow("character outside the first plane") << QByteArray("\xF0\xA0\x80\x80") << 2;
    QTest::addRow("Hangul") << QByteArray("한글") << 4;
    QTest::addRow("joiner") << QByteArray("a\xE2\x80\x8D"
                                          "b")
                            << 2;
}

/// What comes after a name begins in the same column of the terminal, whatever the name is made of.
void tst_ShowText::columns()
{
    QFETCH(QByteArray, name);
    QFETCH(int, columns);
    const QByteArray mode = "<OpMode><Name>%1</Name><AssignActivate>#x300</AssignActivate></OpMode>";
    const QByteArray modes =
        "<Dc>" + QByteArray(mode).replace("%1", name) + QByteArray(mode).replace("%1", "twelve chars") + "</Dc>";
    const QByteArray text = runShow({"--full", writtenFile(m_folder, "columns.xml", esiOf("N", modes))}).output;
    QVERIFY2(text.contains("    twelve chars  0x300 "), text.constData());
    QVERIFY2(text.contains("    " + name + QByteArray(12 - columns + 2, ' ') + "0x300 "), text.constData());
}

/// A comma in a name separates nothing.
void tst_ShowText::namesOneToALine()
{
    const QByteArray modules =
        "</Devices><Modules><Module><Type ModuleIdent=\"1\">M</Type><Name>in, out</Name></Module>"
        "<Module><Type ModuleIdent=\"2\">M</Type><Name>last</Name></Module></Modules>";
    const QByteArray esi =
        esiOf("one, two", "<Profile><ProfileNo>5001</ProfileNo></Profile>").replace("</Devices>", modules);
    const QString ktl = m_folder.filePath("names.ktl");
    QCOMPARE(runHere({"convert", writtenFile(m_folder, "names.xml", esi), "-o", ktl}).exitCode, 0);
    const QByteArray text = runShow({"--full", ktl}).output;
    const QByteArray margin(17, ' ');
    QVERIFY2(text.contains("  names          one, two\n" + margin + "in, out\n" + margin + "last\n"), text.constData());
}

/// The text has the sign; JSON and the table have it beside the value without one.
void tst_ShowText::signedValues()
{
    const QByteArray object = "<Object><Index>#x2000</Index><Name>O</Name><Type>%1</Type><BitSize>8</BitSize><Info>"
                              "<DefaultData>FD</DefaultData></Info></Object>";
    const QByteArray dictionary = "<Profile><Dictionary><Objects>" + QByteArray(object).replace("%1", "SINT")
                                  + QByteArray(object).replace("%1", "USINT") + QByteArray(object).replace("%1", "INT")
                                  + "</Objects></Dictionary></Profile>";
    const QString path = writtenFile(m_folder, "signed.xml", esiOf("N", dictionary));
    const QByteArray text = runShow({"--full", path}).output;
    QVERIFY2(text.contains(" SINT   -3\n") && text.contains(" USINT  253\n") && text.contains(" INT    253\n"),
             text.constData());
    const QByteArray csv = runShow({"--csv", "dictionary", path}).output;
    QVERIFY2(csv.contains(",SINT,253,-3\r\n") && csv.contains(",USINT,253,\r\n") && csv.contains(",INT,253,253\r\n"),
             csv.constData());
    const QByteArray json = runShow({"--json", path}).output;
    QVERIFY(json.contains("\"type\": \"SINT\", \"value\": \"253\", \"signedValue\": -3}"));
    QVERIFY(json.contains("\"type\": \"USINT\", \"value\": \"253\", \"signedValue\": null}"));
}

void tst_ShowText::fitsTheTerminal_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("columns");
    QTest::addColumn<bool>("isFull");
    for (const QString& name : sampleNames())
        for (const int columns : {80, 132, 60})
            for (const bool isFull : {true, false})
                QTest::addRow("%s in %d columns, %s", qPrintable(name), columns, isFull ? "in full" : "summary")
                    << name << columns << isFull;
}

/// An ESI file and the KTL file made from it.
void tst_ShowText::fitsTheTerminal()
{
    QFETCH(QString, name);
    QFETCH(int, columns);
    QFETCH(bool, isFull);
    const QString ktl = m_folder.filePath("fits.ktl");
    QCOMPARE(runHere({"convert", sample(name), "-o", ktl, "--force"}).exitCode, 0);
    for (const QString& path : {sample(name), ktl}) {
        QByteArrayList shown = shownAt(columns, isFull ? QStringList{"--full", path} : QStringList{path}).split('\n');
        QVERIFY(shown.size() > (isFull ? 50 : 20));
        shown.removeFirst(); // it has the path, which is not broken
        for (const QByteArray& line : shown) {
            int taken = 0;
            for (const QChar character : QString::fromUtf8(line))
                taken += character.unicode() < 0x1100 ? 1 : 2; // the samples have no other wide ones than Chinese
            QVERIFY2(taken <= columns, line.constData());
        }
    }
}

/// Words move to other lines; none is cut or left out.
void tst_ShowText::nothingIsLost()
{
    const QByteArray name = "a name of a good many words, which is longer than the line of a usual terminal, and then "
                            "one word_that_is_not_only_long_but_longer_than_a_line_of_the_terminal_and_so_broken";
    const QString path = writtenFile(m_folder, "long.xml", esiOf(name, {}));
    const QByteArray shown = shownAt(80, {"--full", path});
    QByteArray unbroken = shown;
    unbroken = unbroken.simplified();
    QVERIFY2(unbroken.contains("name a name of a good many words, which is longer than the line of a usual terminal, "
                               "and then one word_that_is_not"),
             shown.constData());
    QByteArray joined = shown;
    QVERIFY(!joined.contains(name)
            && joined.replace("\n", "").replace(" ", "").contains(QByteArray(name).replace(" ", "")));
}

void tst_ShowText::fileHasWholeLines()
{
    const QByteArray name(300, 'x');
    const QByteArray text = runShow({"--full", writtenFile(m_folder, "wide.xml", esiOf(name, {}))}).output;
    QVERIFY2(text.contains(" " + name + "\n"), text.constData());
}

static const testMain::Registration<tst_ShowText, QCoreApplication> registration;
#include "tst_ShowText.moc"
