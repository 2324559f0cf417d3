#include "esi/esiFile.h"

#include "esi/fileBeingRead.h"
#include "esi/xmlparsing.h"

#include <QFile>

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
    EsiLoadResult result;
    if (!parseXml(file, domDocument, result.formatError))
        result.status = EsiLoadStatus::NotWellFormed;
    else if (!read_xmldevice(path))
        result.status = EsiLoadStatus::NotEsi;
    return result;
}
