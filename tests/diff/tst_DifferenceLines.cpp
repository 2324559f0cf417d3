// Differences as lines and as JSON.
// Covers difference.cpp, differenceJson.cpp, differenceWords.cpp, value.cpp, words.cpp.
#include "comparedFiles.h"
#include "diff/compareDevices.h"
#include "diff/devicePairs.h"
#include "diff/differenceWriter.h"
#include "diff/words.h"
#include "facts/unitParts.h"
#include "model/deviceType.h"
#include "testMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <sstream>

using comparedFiles::EsiFile;

class tst_DifferenceLines : public QObject
{
    Q_OBJECT

private slots:
    static void lines();
    static void narrowAndColored();
    static void nothing();
    static void noPartner();
    static void controlCharacters();
    static void json();
    static void values();
};

namespace {

using MakeWriter = std::function<std::unique_ptr<diff::DifferenceWriter>(
    std::ostream& out, const diff::WrittenFile& before, const diff::WrittenFile& after)>;

std::string written(const QByteArray& before, const QByteArray& after, const MakeWriter& make)
{
    EsiFile oldFile(before);
    EsiFile newFile(after);
    std::ostringstream out;
    const std::unique_ptr<diff::DifferenceWriter> writer =
        make(out, {"old.xml", "old.xml", &oldFile.source}, {"new.xml", "new.xml", &newFile.source});
    diff::CompareRequest request;
    request.pairs = diff::devicePairsOf(oldFile.source.devices(), newFile.source.devices());
    diff::DifferenceCounts counts;
    writer->begin();
    diff::compareSources(oldFile.source, newFile.source, request, [&](const diff::ComparedDevices& compared) {
        for (const diff::Difference& difference : compared.differences)
            counts.count(difference.weight);
        writer->write(compared);
    });
    writer->end(counts);
    return out.str();
}

std::string linesOf(const QByteArray& before, const QByteArray& after, const diff::LineStyle& style = {})
{
    return written(before, after, [&](std::ostream& out, const auto& oldFile, const auto& newFile) {
        return diff::makeLineWriter(out, oldFile, newFile, style);
    });
}

QByteArray device(const QByteArray& name, const QByteArray& revision, const QByteArray& parts = {})
{
    return "<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices>\n<Device><Type ProductCode='2' "
           "RevisionNo='"
           + revision + "'>T</Type><Name>" + name + "</Name>\n" + parts
           + "</Device></Devices></Descriptions></EtherCATInfo>";
}

} // namespace

void tst_DifferenceLines::lines()
{
    QCOMPARE(linesOf(device("A", "1", "<Sm>MBoxOut</Sm>\n<Sm>MBoxIn</Sm>"), device("B", "3", "\n<Sm>MBoxOut</Sm>")),
             std::string("0x1:0x2:0x1 \"A\" -> 0x1:0x2:0x3 \"B\"\n"
                         "  breaking   revision: 0x1 -> 0x3\n"
                         "             old.xml:2, new.xml:2\n"
                         "  text       name: \"A\" -> \"B\"\n"
                         "             old.xml:2, new.xml:2\n"
                         "  breaking   sync manager 1 removed: MBoxIn\n"
                         "             old.xml:4\n"));
}

void tst_DifferenceLines::narrowAndColored()
{
    const std::string text =
        linesOf(device("A", "1"), device("B", "1", "<Dc><OpMode><Name>M</Name></OpMode></Dc>"), {40, true, true});
    QCOMPARE(text, std::string("\x1b[1m0x1:0x2:0x1 \"A\" -> 0x1:0x2:0x1 \"B\"\x1b[0m\n"
                               "  text       name: \"A\" -> \"B\"\n"
                               "             old.xml:2, new.xml:2\n"
                               "\x1b[33m  behaviour  \x1b[0moperation mode \"M\" added\n"
                               "             new.xml:3\n"
                               "\n"
                               "2 differences: 0 breaking, 1 behaviour, 1 text\n"));
}

void tst_DifferenceLines::nothing()
{
    QCOMPARE(linesOf(device("A", "1"), device("A", "1")), std::string());
    QCOMPARE(linesOf(device("A", "1"), device("A", "1"), {80, false, true}), std::string("0 differences\n"));
}

void tst_DifferenceLines::noPartner()
{
    QCOMPARE(linesOf(device("A", "1"), QByteArray(device("B", "1")).replace("'2'", "'3'")),
             std::string("0x1:0x2:0x1 \"A\"\n"
                         "  breaking   device removed\n"
                         "             old.xml:2\n"
                         "\n"
                         "0x1:0x3:0x1 \"B\"\n"
                         "  behaviour  device added\n"
                         "             new.xml:2\n"));
}

/// A name cannot write to the terminal.
void tst_DifferenceLines::controlCharacters()
{
    QCOMPARE(linesOf(device("A", "1"), device("B&#x9b;31m&#x202e;&#10;C", "1")),
             std::string("0x1:0x2:0x1 \"A\" -> 0x1:0x2:0x1 \"B 31m  C\"\n"
                         "  text       name: \"A\" -> \"B 31m  C\"\n"
                         "             old.xml:2, new.xml:2\n"));
}

void tst_DifferenceLines::json()
{
    const std::string text =
        written(device("A", "1", "<Sm>MBoxOut</Sm>"), device("A", "1", "<Sm MaxSize='5'>MBoxOut</Sm><Sm>MBoxIn</Sm>"),
                [](std::ostream& out, const auto& oldFile, const auto& newFile) {
                    return diff::makeJsonWriter(out, oldFile, newFile);
                });
    QCOMPARE(text, std::string(R"({
  "before": {"file": "old.xml", "kind": "esi"},
  "after": {"file": "new.xml", "kind": "esi"},
  "devices": [
    {
      "before": {"identity": "0x1:0x2:0x1", "type": "T", "name": "A", "line": 2},
      "after": {"identity": "0x1:0x2:0x1", "type": "T", "name": "A", "line": 2},
      "differences": [
        {
          "weight": "breaking",
          "change": "changed",
          "area": "sync-manager",
          "part": "sync manager 0",
          "value": "maxSize",
          "before": 0,
          "after": 5,
          "placeBefore": {"line": 3},
          "placeAfter": {"line": 3}
        },
        {
          "weight": "breaking",
          "change": "added",
          "area": "sync-manager",
          "part": "sync manager 1",
          "before": null,
          "after": "MBoxIn",
          "placeBefore": null,
          "placeAfter": {"line": 3}
        }
      ]
    }
  ],
  "summary": {"breaking": 2, "behaviour": 0, "text": 0}
}
)"));
    QVERIFY(QJsonDocument::fromJson(QByteArray::fromStdString(text)).isObject());
}

void tst_DifferenceLines::values()
{
    QCOMPARE(diff::text(" a b\n").text, std::string("a b"));
    QVERIFY(diff::text("") != diff::noValue());
    QVERIFY(diff::saysNothing(diff::decimal(0)));
    QVERIFY(diff::saysNothing(diff::hexadecimal(0)));
    QVERIFY(!diff::saysNothing(diff::decimal(10)));
    QCOMPARE(diff::shown(diff::noValue()), std::string("none"));
    QCOMPARE(diff::shown(diff::text("x")), std::string("\"x\""));
    QCOMPARE(diff::shown(diff::decimal(-3)), std::string("-3"));
    QCOMPARE(diff::named("module 0x10", std::string(81, 'a')), "module 0x10 \"" + std::string(80, 'a') + "...\"");
}

static const testMain::Registration<tst_DifferenceLines, testMain::NoApplication> registration;
#include "tst_DifferenceLines.moc"
