// Process images as JSON.
// Covers imageJson.cpp.
#include "image/imageParts.h"
#include "testMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

class tst_ImageJson : public QObject
{
    Q_OBJECT

private slots:
    static void values();
    static void nothing();
    static void tooLong();
};

namespace {

QJsonObject parsed(const char* text)
{
    return QJsonDocument::fromJson(text).object();
}

} // namespace

void tst_ImageJson::values()
{
    image::Device device = imageParts::deviceWith({imageParts::mixedArea()});
    device.notes = {"Something is missing."};
    const QJsonObject all = QJsonDocument::fromJson(imageParts::written(image::Form::Json, device)).object();
    const QJsonObject file = all["files"].toArray().at(0).toObject();
    QCOMPARE(file["file"].toString(), QStringLiteral("a.xml"));
    QCOMPARE(file["kind"].toString(), QStringLiteral("esi"));
    QJsonObject told = file["devices"].toArray().at(0).toObject();
    const QJsonArray syncManagers = told.take(QStringLiteral("syncManagers")).toArray();
    QCOMPARE(told, parsed(R"({"number": 2, "identity": "0x7e57:0x1:0x20", "vendor": 32343, "product": 1, "revision": 32,
        "type": "T1", "name": "Drive, left", "isComplete": true, "notes": ["Something is missing."]})"));
    QJsonObject area = syncManagers.at(0).toObject();
    const QJsonArray pdos = area.take(QStringLiteral("pdos")).toArray();
    QCOMPARE(area, parsed(R"({"number": 3, "direction": "inputs", "usedBits": 18, "usedBytes": 3, "length": 2,
        "maxLength": 64, "exceedsMaxLength": false, "padding": {"byte": 2, "bit": 2, "bitLength": 6}})"));
    QJsonObject first = pdos.at(0).toObject();
    const QJsonArray entries = first.take(QStringLiteral("entries")).toArray();
    QCOMPARE(first, parsed(R"({"index": 6656, "name": "Status", "slot": null, "byte": 0, "bit": 0, "bitLength": 15})"));
    QCOMPARE(entries.size(), 3);
    QCOMPARE(entries.at(1).toObject(),
             parsed(R"({"kind": "entry", "byte": 0, "bit": 1, "bitLength": 12, "index": 24577, "subIndex": 1,
        "name": "Level", "type": "UINT", "link": 0, "linkName": "NONE Type"})"));
    QCOMPARE(entries.at(2).toObject()["kind"].toString(), QStringLiteral("gap"));
    QCOMPARE(pdos.at(1).toObject()["slot"].toInt(), 2);
}

/// What is not known is null.
void tst_ImageJson::nothing()
{
    image::Area area;
    const QByteArray text = imageParts::written(image::Form::Json, imageParts::deviceWith({area}));
    const QJsonObject file = QJsonDocument::fromJson(text).object()["files"].toArray().at(0).toObject();
    const QJsonObject device = file["devices"].toArray().at(0).toObject();
    QCOMPARE(device["syncManagers"].toArray().at(0).toObject(),
             parsed(R"({"number": 0, "direction": "outputs", "usedBits": 0, "usedBytes": 0, "length": null,
        "maxLength": null, "exceedsMaxLength": false, "pdos": [], "padding": null})"));
}

/// 3 bytes on a sync manager of at most 2.
void tst_ImageJson::tooLong()
{
    image::Area area = imageParts::mixedArea();
    area.maxLength = 2;
    QVERIFY(imageParts::written(image::Form::Json, imageParts::deviceWith({area}))
                .contains("\"maxLength\": 2,\n              \"exceedsMaxLength\": true,\n"));
}

static const testMain::Registration<tst_ImageJson, testMain::NoApplication> registration;
#include "tst_ImageJson.moc"
