#include "esi/esiFile.h"

#include "esi/fileBeingRead.h"
#include "esi/xml/boundedXmlReader.h"

EsiLoadResult loadEsiFile(const QString& path, QDomDocument& document)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {EsiLoadStatus::CannotOpen, {file.errorString()}, {}};
    return loadOpenEsiFile(file, path, document);
}

EsiLoadResult loadOpenEsiFile(QFile& file, const QString& path, QDomDocument& document)
{
    const FileBeingRead reading(path);
    if (XmlFormatError error; !parseXml(file, document, error))
        return {EsiLoadStatus::NotWellFormed, {error.message, error.line, error.column}, {}};
    return fileFrom(document, path);
}
