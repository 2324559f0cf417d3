#include "esi/esiFile.h"

#include "esi/derivation/copyLimit.h"
#include "esi/fileBeingRead.h"
#include "esi/xmlparsing.h"

#include <QFile>

namespace {

EsiLoadResult tooManyCopies()
{
    const QString message =
        QStringLiteral("the PDOs and modules of the file stand for more than %1 bytes").arg(mostCopiedBytes);
    return {EsiLoadStatus::NotWellFormed, {}, {message, 1, 1}};
}

/// Reads the document that was parsed last.
EsiLoadResult readParsed(const QString& path)
{
    switch (readEsiDocument(path)) {
    case DocumentReading::Read:
        break;
    case DocumentReading::NotEsi:
        return {EsiLoadStatus::NotEsi, {}, {}};
    case DocumentReading::TooManyCopies:
        return tooManyCopies();
    }
    return {};
}

} // namespace

EsiLoadResult loadEsiFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {EsiLoadStatus::CannotOpen, file.errorString(), {}};
    return loadOpenEsiFile(file, path);
}

EsiLoadResult loadOpenEsiFile(QFile& file, const QString& path)
{
    const FileBeingRead reading(path);
    if (XmlFormatError error; !parseXml(file, domDocument, error))
        return {EsiLoadStatus::NotWellFormed, {}, error};
    return readParsed(path);
}
