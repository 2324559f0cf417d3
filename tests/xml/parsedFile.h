// parsedFile.h - parses a text as the file that it would be.
#pragma once

#include "esi/xml/boundedXmlReader.h"
#include "xml/temporaryFile.h"

#include <QDomDocument>
#include <QFile>
#include <QString>
#include <QtGlobal>

/// What came of a parse.
struct Parsed
{
    bool isRead = false;
    QDomDocument document;
    XmlFormatError error;
};

/// Parses a file with this content.
[[nodiscard]] inline Parsed parsed(const QString& content)
{
    const QTemporaryDir folder;
    QFile file(writeFile(folder, QStringLiteral("file.xml"), content.toUtf8()));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        qFatal("cannot open the test file");
    Parsed result;
    result.isRead = parseXml(file, result.document, result.error);
    return result;
}
