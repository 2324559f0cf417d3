// `ktl show`: characters of names that would do something to a terminal, or that take other than one column there.
#include "cli/showRun.h"
#include "testMain.h"

#include <QtTest>

class tst_ShowCharacters : public QObject
{
    Q_OBJECT

private slots:
    void unsafe_data();
    void unsafe();

private:
    QTemporaryDir m_folder;
};

namespace {

QByteArray esiNamed(const QByteArray& name)
{
    return "<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices><Device><Type ProductCode=\"2\">D</Type>"
           "<Name>"
           + name
           + "</Name><Sm>Outputs</Sm><RxPdo Sm=\"0\"><Index>#x1600</Index></RxPdo></Device></Devices></Descriptions>"
             "</EtherCATInfo>";
}

} // namespace

void tst_ShowCharacters::unsafe_data()
{
    QTest::addColumn<QByteArray>("reference");
    QTest::addColumn<QByteArray>("bytes"); // of the character in UTF-8
    QTest::addColumn<QByteArray>("escape"); // in JSON; empty where the character stays
    QTest::addColumn<bool>("isInCsv");
    QTest::addRow("delete") << QByteArray("&#x7f;") << QByteArray("\x7F") << QByteArray("\\u007f") << false;
    QTest::addRow("first C1 control") << QByteArray("&#x80;") << QByteArray("\xC2\x80") << QByteArray("\\u0080")
                                      << false;
    QTest::addRow("C1 control that begins a sequence")
        << QByteArray("&#x9b;") << QByteArray("\xC2\x9B") << QByteArray("\\u009b") << false;
    QTest::addRow("last C1 control") << QByteArray("&#x9f;") << QByteArray("\xC2\x9F") << QByteArray("\\u009f")
                                     << false;
    QTest::addRow("after the C1 controls") << QByteArray("&#xa0;") << QByteArray("\xC2\xA0") << QByteArray() << true;
    QTest::addRow("Arabic letter mark") << QByteArray("&#x61c;") << QByteArray("\xD8\x9C") << QByteArray("\\u061c")
                                        << false;
    QTest::addRow("left-to-right mark") << QByteArray("&#x200e;") << QByteArray("\xE2\x80\x8E") << QByteArray("\\u200e")
                                        << false;
    QTest::addRow("right-to-left override")
        << QByteArray("&#x202e;") << QByteArray("\xE2\x80\xAE") << QByteArray("\\u202e") << false;
    QTest::addRow("first isolate") << QByteArray("&#x2066;") << QByteArray("\xE2\x81\xA6") << QByteArray("\\u2066")
                                   << false;
    QTest::addRow("last isolate") << QByteArray("&#x2069;") << QByteArray("\xE2\x81\xA9") << QByteArray("\\u2069")
                                  << false;
    QTest::addRow("joiner") << QByteArray("&#x200d;") << QByteArray("\xE2\x80\x8D") << QByteArray() << true;
    QTest::addRow("tab") << QByteArray("&#9;") << QByteArray("\t") << QByteArray("\\u0009") << true;
}

/// JSON has an escape for it; the table has none and replaces it; the text has a blank.
void tst_ShowCharacters::unsafe()
{
    QFETCH(QByteArray, reference);
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, escape);
    QFETCH(bool, isInCsv);
    const QString path = writtenFile(m_folder, "unsafe.xml", esiNamed("a" + reference + "b"));
    const bool isKept = escape.isEmpty();

    const QByteArray json = runShow({"--json", path}).output;
    QVERIFY2(json.contains("\"name\": \"a" + (isKept ? bytes : escape) + "b\""), json.constData());
    const QJsonObject device = shownFile(path).value("devices").toArray().at(0).toObject();
    QCOMPARE(device.value("model").toObject().value("name").toString().toUtf8(), "a" + bytes + "b");

    const QByteArray choices = runHere({"choices", path}).output;
    QCOMPARE(choices.contains("a" + bytes + "b"), isKept);
    QVERIFY(QJsonDocument::fromJson(choices).isObject());

    const QByteArray csv = runShow({"--csv", "pdo", path}).output;
    QVERIFY2(csv.contains(",a" + (isInCsv ? bytes : QByteArray("\xEF\xBF\xBD")) + "b,"), csv.constData());

    const QByteArray text = runShow({"--full", path}).output;
    QVERIFY2(text.contains("a" + (isKept ? bytes : QByteArray(" ")) + "b\n"), text.constData());
}

static const testMain::Registration<tst_ShowCharacters, QCoreApplication> registration;
#include "tst_ShowCharacters.moc"
