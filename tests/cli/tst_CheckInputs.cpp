// `ktl check`: files that cannot be read, several files, standard input, and names.
// Covers checkFile.cpp, checkedInput.cpp, treeInput.cpp, inputFault.cpp, fileRules.cpp.
#include "cli/checkedInput.h"
#include "cli/commandInProcess.h"
#include "cli/showRun.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QtTest>

class tst_CheckInputs : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void faults_data();
    void faults();
    void anyNumberOfCores();
    void throughADocument();
    void ktlOffset();
    void missingSyncManager();
    void sameFile();
    void sameIdentity();
    void standardInput();
    void names();
    void uris_data();
    void uris();
    static void samples();

private:
    Workplace m_place;
};

namespace {

const QByteArray noProduct = "<Device><Type RevisionNo='1'>N</Type><Name>N</Name><Sm>Inputs</Sm></Device>";

const QStringList productCode{"--only=product-code"};

} // namespace

void tst_CheckInputs::init()
{
    m_place.make("noProduct.xml", esiWith(noProduct));
    m_place.make("broken.xml", "<a>\n<b></a>");
    m_place.make("other.xml", "<a/>");
    m_place.make("text.txt", "hello");
    m_place.make("empty.xml", "");
    m_place.make("cut.ktl", QByteArray::fromHex("409C000034000000"));
}

void tst_CheckInputs::faults_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("expected");
    const auto add = [](const char* name, const char* file, const char* expected) {
        QTest::addRow("%s", name) << QString::fromLatin1(file) << QByteArray(expected);
    };
    add("missing", "gone.xml",
        "gone.xml: error: the file cannot be read: No such file or directory [file-unreadable]\n");
    add("a folder", ".", ".: error: the file cannot be read: this is a folder [file-unreadable]\n");
    add("no name", "", "ktl: error: the name of a file is empty [file-unreadable]\n");
    add("not well-formed", "broken.xml", "broken.xml:2:7: error: tag mismatch [file-not-well-formed]\n");
    add("no vendor", "other.xml", "other.xml: error: this is no ESI file: it has no Vendor element [file-no-vendor]\n");
    add("empty", "empty.xml", "empty.xml: error: the file is empty [file-kind]\n");
    add("neither kind", "text.txt", "text.txt: error: this is neither an ESI file nor a KTL file [file-kind]\n");
}

/// They are told in the words of the other sub-commands, and a file after them is checked all the same.
void tst_CheckInputs::faults()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, expected);
    const CommandRun run = runHere(QStringList{"check", file, "noProduct.xml"} + productCode, m_place.folder());
    QCOMPARE(run.output,
             expected
                 + "noProduct.xml:4:1: warning: device 1 \"N\": the product code is missing or 0 [product-code]\n");
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 2);
    const QByteArray words = expected.left(expected.indexOf(" [")) + '\n';
    QCOMPARE(runHere({"show", file}, m_place.folder()).errors, words);
    const QJsonArray files =
        filesIn(runHere(QStringList{"check", "--json", file, "noProduct.xml"} + productCode, m_place.folder()));
    QCOMPARE(files.size(), 2);
    QCOMPARE(files.at(0).toObject().value("kind"), QJsonValue());
    QCOMPARE(files.at(1).toObject().value("kind"), QJsonValue("esi"));
}

/// Results are the same, in the order of the arguments.
void tst_CheckInputs::anyNumberOfCores()
{
    QStringList files{"broken.xml", "cut.ktl", "gone.xml", "other.xml"};
    for (int number = 0; number < 12; ++number)
        files.insert(number, m_place.make(QStringLiteral("file%1.xml").arg(number),
                                          esiWith(noProduct.repeated(1 + 40 * (number % 3)))));
    for (const char* form : {"--fail-on=error", "--json", "--sarif"}) {
        const QStringList arguments = QStringList{"check", QString::fromLatin1(form)} + files;
        const CommandRun alone = runHere(arguments, m_place.folder());
        QCOMPARE(alone.exitCode, 2);
        QVERIFY(alone.output.indexOf("file0.xml") < alone.output.indexOf("file11.xml"));
        for (const std::size_t cores : {std::size_t{2}, std::size_t{64}})
            QCOMPARE(runHere(arguments, m_place.folder(), cores).output, alone.output);
    }
}

/// Such a file has lines, but no columns.
void tst_CheckInputs::throughADocument()
{
    m_place.make("document.xml", "<!DOCTYPE EtherCATInfo>\n" + esiWith(noProduct));
    const CommandRun run = runHere(QStringList{"check", "document.xml"} + productCode, m_place.folder());
    QCOMPARE(run.throughDocuments, std::size_t{1});
    QCOMPARE(run.output,
             QByteArray("document.xml:5: warning: device 1 \"N\": the product code is missing or 0 [product-code]\n"));
}

void tst_CheckInputs::ktlOffset()
{
    const CommandRun run = runHere({"check", "cut.ktl", "--only=ktl-end"}, m_place.folder());
    QCOMPARE(run.output, QByteArray("cut.ktl:0x8: error: the file ends inside the last item [ktl-end]\n"));
    QCOMPARE(run.exitCode, 2);
    const QJsonObject file =
        filesIn(runHere({"check", "--json", "cut.ktl", "--only=ktl-end"}, m_place.folder())).at(0).toObject();
    QCOMPARE(file.value("kind"), QJsonValue("ktl"));
    QCOMPARE(file.value("findings").toArray().at(0).toObject().value("offset"), QJsonValue(8));
}

/// A file that the others refuse is checked like any, and why they do is told.
void tst_CheckInputs::missingSyncManager()
{
    m_place.make("range.xml", esiWith("<Device><Type>R</Type><Name>R</Name><Sm>Outputs</Sm><RxPdo Sm='4'/></Device>"));
    QCOMPARE(runHere({"show", "range.xml"}, m_place.folder()).exitCode, 2);
    const CommandRun run =
        runHere(QStringList{"check", "range.xml", "--only=pdo-sync-manager"} + productCode, m_place.folder());
    QCOMPARE(run.output,
             QByteArray("range.xml:4:1: warning: device 1 \"R\": the product code is missing or 0 [product-code]\n"
                        "range.xml:4:53: error: device 1 \"R\": PDO 0x00 is on sync manager 4, the device has 1 "
                        "[pdo-sync-manager]\n"));
    QCOMPARE(run.exitCode, 1);
}

/// Its devices are not compared with themselves.
void tst_CheckInputs::sameFile()
{
    m_place.make("one.xml", esiWith("<Device><Type ProductCode='5'>O</Type><Name>O</Name><Sm>Inputs</Sm></Device>"));
    const CommandRun run = runHere(
        {"check", "one.xml", "./one.xml", "--only=file-twice", "--only=identity-twice-in-call"}, m_place.folder());
    QCOMPARE(run.output, QByteArray("./one.xml: note: the file is given more than once [file-twice]\n"));
    QCOMPARE(run.exitCode, 0);
}

void tst_CheckInputs::sameIdentity()
{
    const QByteArray device = "<Device><Type ProductCode='5'>O</Type><Name>O</Name><Sm>Inputs</Sm></Device>\n";
    m_place.make("one.xml", esiWith(device));
    m_place.make("two.xml", esiWith("\n" + device));
    const QStringList only{"--only=identity-twice-in-call", "--only=product-code"};
    QCOMPARE(runHere(QStringList{"check", "noProduct.xml", "one.xml", "two.xml"} + only, m_place.folder()).output,
             QByteArray("noProduct.xml:4:1: warning: device 1 \"N\": the product code is missing or 0 [product-code]\n"
                        "two.xml:5:1: note: device 3 \"O\": its identity 0x7e570009:0x5:0x00 is also that of device 2 "
                        "in one.xml [identity-twice-in-call]\n"));
}

void tst_CheckInputs::standardInput()
{
    CommandStart start;
    start.folder = m_place.folder();
    start.input = esiWith(noProduct);
    const CommandRun run = runKtl(QStringList{"check", "-", "noProduct.xml"} + productCode, start);
    QCOMPARE(
        run.output,
        QByteArray("<stdin>:4:1: warning: device 1 \"N\": the product code is missing or 0 [product-code]\n"
                   "noProduct.xml:4:1: warning: device 2 \"N\": the product code is missing or 0 [product-code]\n"));
    QCOMPARE(run.errors, QByteArray());
}

/// One line each, whatever is in the names.
void tst_CheckInputs::names()
{
    m_place.make("odd\nname.xml", esiWith("<Device><Name>two\nlines &#x202E;</Name><Sm>Inputs</Sm></Device>"));
    const CommandRun run = runHere(QStringList{"check", "odd\nname.xml"} + productCode, m_place.folder());
    QCOMPARE(run.output, QByteArray("odd name.xml:4:1: warning: device 1 \"two lines  \": the product code is missing "
                                    "or 0 [product-code]\n"));
}

void tst_CheckInputs::uris_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("uri");
    const QString absolute = QDir(m_place.folder()).canonicalPath();
    QTest::addRow("below the working folder") << QStringLiteral("esi/drive.xml") << QByteArray("esi/drive.xml");
    QTest::addRow("by an absolute path") << absolute + "/drive.xml" << QByteArray("drive.xml");
    QTest::addRow("with dots") << QStringLiteral("./esi/../drive.xml") << QByteArray("drive.xml");
    QTest::addRow("above it") << QStringLiteral("/usr/x y.xml") << QByteArray("file:///usr/x%20y.xml");
    QTest::addRow("beside it, with its name")
        << absolute + "2/a.xml" << QByteArray("file://" + absolute.toUtf8() + "2/a.xml");
    QTest::addRow("blanks, colons, letters")
        << QString::fromUtf8("a b:\xC3\xA4#?%.xml") << QByteArray("a%20b%3A%C3%A4%23%3F%25.xml");
    QTest::addRow("standard input") << QStringLiteral("-") << QByteArray();
    QTest::addRow("no name") << QString() << QByteArray();
}

void tst_CheckInputs::uris()
{
    QFETCH(QString, path);
    const WorkingFolder folder(m_place.folder());
    QTEST(QByteArray::fromStdString(cli::uriOf(path)), "uri");
}

/// What is found in them is named in their description.
void tst_CheckInputs::samples()
{
    const QByteArray readme = contentOf(sample("README.md"));
    for (const QString& name : sampleNames())
        for (const QJsonValue& file : filesIn(runHere({"check", "--json", sample(name)})))
            for (const QJsonValue& value : file.toObject().value("findings").toArray()) {
                const QByteArray found = value.toObject().value("rule").toString().toUtf8();
                QVERIFY2(readme.contains("(`" + found + "`)"), found.constData());
            }
}

static const testMain::Registration<tst_CheckInputs, QCoreApplication> registration;
#include "tst_CheckInputs.moc"
