// `ktl show --csv`: headers, rows and quoting.
// Covers showTables.cpp, showPdoTable.cpp, showTableRows.cpp, deviceImage.cpp.
#include "cli/showRun.h"
#include "ktl/ktlBytes.h"
#include "testMain.h"

#include <QtTest>

class tst_ShowCsv : public QObject
{
    Q_OBJECT

private slots:
    void headers_data();
    void headers();
    void rows_data();
    void rows();
    void quotes();
    void spreadsheet_data();
    void spreadsheet();
    void spreadsheetWithoutTable();
    void choicesAfterAnotherSelection();
    void pdoWithoutEntries();
    void ktlFilesHaveNoDictionary();
    void everyRowHasEveryColumn_data();
    void everyRowHasEveryColumn();

private:
    QTemporaryDir m_folder;
};

namespace {

const QByteArray dictionaryHeader =
    "file,device,deviceName,owner,index,subIndex,name,access,bitSize,type,value,signedValue\r\n";
const QByteArray pdoHeader = "file,device,deviceName,owner,direction,pdo,pdoName,fixed,mandatory,syncManager,syncUnit,"
                             "entry,index,subIndex,bitLength,name,dataType,link,choicePdo,choiceEntry,productCode,"
                             "revisionNo,byte,bit\r\n";
const QByteArray startupHeader = "file,device,deviceName,owner,position,protocol,transition,index,subIndex,"
                                 "completeAccess,dataBytes,value,values,meaning,origin,comment,text,choiceRow\r\n";

/// Rows of a CSV text by RFC 4180, as another program would read them.
QList<QStringList> parsed(const QByteArray& csv)
{
    QList<QStringList> rows;
    QStringList row;
    QByteArray field;
    bool isQuoted = false;
    for (int index = 0; index < csv.size(); ++index) {
        const char character = csv.at(index);
        if (character == '"' && isQuoted && csv.mid(index + 1, 1) == "\"")
            field += csv.at(++index);
        else if (character == '"')
            isQuoted = !isQuoted;
        else if (isQuoted || (character != ',' && character != '\r' && character != '\n'))
            field += character;
        else if (character != '\r') {
            row.append(QString::fromUtf8(field));
            field.clear();
            if (character == '\n') {
                rows.append(row);
                row.clear();
            }
        }
    }
    return rows;
}

QByteArray esiOf(const QByteArray& name, const QByteArray& pdo)
{
    return "<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices><Device><Type ProductCode=\"2\">D</Type>"
           "<Name>"
           + name + "</Name><Sm>Outputs</Sm>" + pdo + "</Device></Devices></Descriptions></EtherCATInfo>";
}

} // namespace

void tst_ShowCsv::headers_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QByteArray>("header");
    QTest::addRow("dictionary") << "dictionary" << dictionaryHeader;
    QTest::addRow("pdo") << "pdo" << pdoHeader;
    QTest::addRow("startup") << "startup" << startupHeader;
}

/// A file without devices has the header alone; several files share one header.
void tst_ShowCsv::headers()
{
    QFETCH(QString, table);
    QFETCH(QByteArray, header);
    const QString empty = writtenFile(m_folder, "end.ktl", bytes("00 00 00 00 0C 00 00 00 00 00 00 00"));
    const CommandRun run = runShow({"--csv", table, empty, empty});
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, header);
}

void tst_ShowCsv::rows_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("row");
    const QByteArray coupler = "MB-C100 bus coupler for 16 modules";
    QTest::addRow("object") << "dictionary"
                            << "servo-drive.xml"
                            << QByteArray("1,SX1-400 单轴伺服驱动器 400 W,device,0x1018,0,Identity,ro,144,,4,");
    QTest::addRow("name with a comma") << "dictionary"
                                       << "servo-drive.xml"
                                       << QByteArray(
                                              "device,0x1600,0,\"Receive PDO mapping, cyclic modes\",rw,208,,6,");
    QTest::addRow("element of an array") << "dictionary"
                                         << "servo-drive.xml" << QByteArray("device,0x1c12,2,SubIndex 2,rw,16,UINT,,");
    QTest::addRow("object of a module") << "dictionary"
                                        << "bus-coupler.xml" << QByteArray(",,module 0x304,0x8000,0,Ranges,rw,48,,4,");
    QTest::addRow("entry of a device") << "pdo"
                                       << "io-block.xml"
                                       << QByteArray(
                                              "1,\"FB-1616D 16 digital outputs, 16 digital inputs\",device,output,"
                                              "0x1600,Digital outputs,yes,yes,0,0,2,0x7000,2,8,Outputs 9 to 16,"
                                              "USINT,NONE Type,0,1,0x16160001,0x10003,1,0");
    QTest::addRow("entry of a module in a slot") << "pdo"
                                                 << "bus-coupler.xml"
                                                 << "1," + coupler
                                                        + ",slots,input,0x1a01,Inputs,yes,no,3,0,9,0x6010,9,1,"
                                                          "Input 9,BOOL,NONE Type,,,0x5001,0x30001,4,0";
    QTest::addRow("entry of a module in a slot of a drive, which choices can name")
        << "pdo"
        << "dual-axis-drive.xml"
        << QByteArray("slots,input,0x1a10,CSP inputs,no,no,3,0,2,0x6864,0,32,Position actual value,DINT,NONE Type,4,1,"
                      "0x20400,0x10005,14,0");
    QTest::addRow("entry after others in its byte")
        << "pdo"
        << "io-block.xml" << QByteArray("0x6000,3,3,Fault class,BIT3,NONE Type,1,2,0x5040002,0x20001,0,2");
    QTest::addRow("entry of a PDO on a virtual sync manager")
        << "pdo"
        << "io-block.xml" << QByteArray("UDINT,NONE Type,2,0,0x5040002,0x20001,,");
    QTest::addRow("entry of a PDO that is not assigned")
        << "pdo"
        << "servo-drive.xml"
        << QByteArray("output,0x1602,\"Torque only, outputs\",no,no,-1,0,2,0x6071,0,16,Target torque,INT,NONE Type,2,1,"
                      "0x10400,0x10002,,");
    QTest::addRow("entry of a module") << "pdo"
                                       << "bus-coupler.xml"
                                       << QByteArray(",,module 0x116,input,0x1a00,Inputs,yes,no,3,0,12,0x6000,12,1,"
                                                     "Input 12,BOOL,NONE Type,0,11,,,,");
    QTest::addRow("EoE command") << "startup"
                                 << "servo-drive.xml"
                                 << QByteArray("device,1,EoE,IP_PS,0x0,0,no,1,0,,,EoE,eoeinit, ,37");
    QTest::addRow("CoE command") << "startup"
                                 << "dual-axis-drive.xml"
                                 << QByteArray(
                                        "device,9,CoE,PS,0x1600,3,no,4,1622278160,,\"0x60b2:0, 16 bits\",PDO mapping,"
                                        "download mpdo 0x1600 entry,0x60b20010,8");
    QTest::addRow("command of a module block")
        << "startup"
        << "bus-coupler.xml"
        << "1," + coupler + ",module 0x404,8,CoE,,0x8000,2,no,4,2147450880,,,,,,";
}

void tst_ShowCsv::rows()
{
    QFETCH(QString, table);
    QFETCH(QString, name);
    QFETCH(QByteArray, row);
    const CommandRun run = runShow({"--csv", table, sample(name)});
    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.output.contains(row + "\r\n"), run.output.constData());
}

void tst_ShowCsv::quotes()
{
    const QByteArray pdo = "<RxPdo Sm=\"0\"><Index>#x1600</Index><Name>a&#10;b</Name><Entry><Index>#x7000</Index>"
                           "<BitLen>8</BitLen><Name>\"</Name><DataType>c&#13;d</DataType></Entry></RxPdo>";
    const QString path = writtenFile(m_folder, "a,b.xml", esiOf("say \"go\", then stop", pdo));
    const CommandRun run = runShow({"--csv", "pdo", path});
    QCOMPARE(run.output,
             pdoHeader + '"' + path.toUtf8()
                 + "\",1,\"say \"\"go\"\", then stop\",device,output,0x1600,\"a\nb\",no,no,0,0,1,0x7000,0,8,"
                   "\"\"\"\",\"c\rd\",NONE Type,0,0,0x2,0x0,0,0\r\n");
}

void tst_ShowCsv::spreadsheet_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("field");
    QTest::addRow("formula") << QByteArray("=1+1") << QByteArray("'=1+1");
    QTest::addRow("formula with a comma") << QByteArray("=SUM(A1,A2)") << QByteArray("\"'=SUM(A1,A2)\"");
    QTest::addRow("plus") << QByteArray("+24 V") << QByteArray("'+24 V");
    QTest::addRow("minus") << QByteArray("-24 V") << QByteArray("'-24 V");
    QTest::addRow("at") << QByteArray("@now") << QByteArray("'@now");
    QTest::addRow("tab") << QByteArray("&#9;=1") << QByteArray("'\t=1");
    QTest::addRow("wide equals sign") << QByteArray("\xEF\xBC\x9D"
                                                    "1")
                                      << QByteArray("'\xEF\xBC\x9D"
                                                    "1");
    QTest::addRow("sign inside") << QByteArray("a=1") << QByteArray("a=1");
    QTest::addRow("negative number") << QByteArray("-24") << QByteArray("-24");
    QTest::addRow("Chinese") << QByteArray("伺服") << QByteArray("伺服");
}

/// The option alone brings byte order mark and apostrophe; the number of a missing sync manager stays a number.
void tst_ShowCsv::spreadsheet()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, field);
    const QString path = writtenFile(m_folder, "formula.xml",
                                     esiOf("N", "<RxPdo><Index>#x1600</Index><Name>" + name + "</Name></RxPdo>"));
    const QByteArray row = path.toUtf8() + ",1,N,device,output,0x1600,%1,no,no,-1,0,,,,,,,,0,,0x2,0x0,,\r\n";
    QByteArray plain = name;
    plain.replace("&#9;", "\t");
    const bool needsQuotes = plain.contains(',');
    QCOMPARE(runShow({"--csv", "pdo", path}).output,
             pdoHeader + QByteArray(row).replace("%1", needsQuotes ? '"' + plain + '"' : plain));
    QCOMPARE(runShow({"--csv", "pdo", "--spreadsheet", path}).output,
             "\xEF\xBB\xBF" + pdoHeader + QByteArray(row).replace("%1", field));
}

void tst_ShowCsv::spreadsheetWithoutTable()
{
    for (const QStringList& options : {QStringList{"--spreadsheet"}, QStringList{"--spreadsheet", "--json"}}) {
        const CommandRun run = runShow(options + QStringList{sample("io-block.xml")});
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(run.output, QByteArray());
        QVERIFY2(run.errors.contains("--spreadsheet goes with --csv only"), run.errors.constData());
    }
}

/// A coupler that finds its modules itself loses their PDOs when it is selected, so choices cannot name them by the
/// rows that they have in the file; its own PDO keeps its row.
void tst_ShowCsv::choicesAfterAnotherSelection()
{
    const QByteArray slotList =
        "<Slots><Slot MaxInstances=\"1\"><Name>S</Name><ModuleIdent Default=\"1\">9</ModuleIdent>"
        "</Slot></Slots>";
    const QByteArray profile = "<Profile><ProfileNo>5001</ProfileNo></Profile>";
    const QByteArray pdo = "<TxPdo Sm=\"0\"><Index>#x1A00</Index></TxPdo>";
    const QByteArray module = "<Modules><Module><Type ModuleIdent=\"9\">M</Type>" + pdo + "</Module></Modules>";
    const QByteArray esi = esiOf("N", pdo + profile + slotList);
    const QString path =
        writtenFile(m_folder, "coupler.xml", QByteArray(esi).replace("</Devices>", "</Devices>" + module));
    const QString type = shownFile(path).value("devices").toArray().at(0).toObject().value("deviceTypeName").toString();
    QCOMPARE(type, QStringLiteral("PnpIOBlock"));
    const QByteArray csv = runShow({"--csv", "pdo", path}).output;
    const QByteArray row = ",input,0x1a00,,no,no,0,0,,,,,,,";
    QVERIFY2(csv.contains(",device" + row + ",0,,0x2,0x0,,\r\n"), csv.constData());
    QVERIFY2(csv.contains(",slots" + row + ",,,0x2,0x0,,\r\n"), csv.constData());
    QVERIFY2(csv.contains(",module 0x9" + row + ",0,,,,,\r\n"), csv.constData());
}

void tst_ShowCsv::pdoWithoutEntries()
{
    const QString path =
        writtenFile(m_folder, "no-entries.xml", esiOf("N", "<RxPdo Sm=\"0\"><Index>#x1600</Index></RxPdo>"));
    const CommandRun run = runShow({"--csv", "pdo", path});
    QCOMPARE(run.output, pdoHeader + path.toUtf8() + ",1,N,device,output,0x1600,,no,no,0,0,,,,,,,,0,,0x2,0x0,,\r\n");
}

void tst_ShowCsv::ktlFilesHaveNoDictionary()
{
    const QString ktl = m_folder.filePath("drive.ktl");
    QCOMPARE(runHere({"convert", sample("servo-drive.xml"), "-o", ktl}).exitCode, 0);
    const CommandRun run = runShow({"--csv", "dictionary", ktl});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, dictionaryHeader);
    QVERIFY(runShow({"--csv", "pdo", ktl})
                .output.contains(
                    ",1,,device,output,0x1600,,no,no,2,0,1,0x6040,0,16,,,NONE Type,,,0x10400,0x10002,0,0\r\n"));
    QVERIFY(
        runShow({"--csv", "startup", ktl}).output.contains(",1,,device,2,CoE,PS,0x2010,1,no,4,10000,,,unknown,,,\r\n"));
}

void tst_ShowCsv::everyRowHasEveryColumn_data()
{
    headers_data();
}

void tst_ShowCsv::everyRowHasEveryColumn()
{
    QFETCH(QString, table);
    const QString ktl = m_folder.filePath(table + ".ktl");
    QStringList paths{ktl};
    for (const QString& name : sampleNames())
        paths.append(sample(name));
    QCOMPARE(runHere(QStringList{"convert"} + paths.mid(1) + QStringList{"-o", ktl}).exitCode, 0);
    const QList<QStringList> all = parsed(runShow(QStringList{"--csv", table} + paths).output);
    QVERIFY(all.size() > 50);
    for (const QStringList& row : all)
        QCOMPARE(row.size(), all.at(0).size());
}

static const testMain::Registration<tst_ShowCsv, QCoreApplication> registration;
#include "tst_ShowCsv.moc"
