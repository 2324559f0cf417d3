#include "esi/esiFile.h"

#include "esi/fileBeingRead.h"
#include "esi/xml/boundedXmlReader.h"
#include "esi/xml/documentTree.h"
#include "esi/xml/plainScanner.h"
#include "esi/xml/xmlLimits.h"

#include <QBuffer>

#include <algorithm>
#include <cstddef>
#include <new>
#include <optional>
#include <string>
#include <utility>

namespace {

/// Reads through a document that need not live longer.
EsiLoadResult loadThroughDocument(QIODevice& file, const QString& path, Dictionaries dictionaries)
{
    QDomDocument document;
    if (XmlFormatError error; !parseXml(file, document, error))
        return {EsiLoadStatus::NotWellFormed, {error.message, error.line, error.column}, {}};
    return fileFrom(xml::treeOf(document.documentElement()), path, dictionaries);
}

/// The bytes of a file, from its place on: all of them, or one more than a file may have.
std::string bytesOf(QFile& file)
{
    constexpr std::size_t maxBytes = std::size_t{maxXmlFileBytes} + 1;
    constexpr std::size_t blockSize = 65536;
    std::string bytes;
    std::size_t length = 0;
    bytes.resize(std::min(static_cast<std::size_t>(file.bytesAvailable()) + 1, maxBytes));
    while (true) {
        const qint64 count = file.read(&bytes[length], static_cast<qint64>(bytes.size() - length));
        if (count <= 0)
            break;
        length += static_cast<std::size_t>(count);
        if (length == maxBytes)
            break;
        if (length == bytes.size())
            bytes.resize(std::min(bytes.size() + std::max(bytes.size(), blockSize), maxBytes));
    }
    bytes.resize(length);
    return bytes;
}

/// The tree of a file that can be read twice.
/// @return  nothing if the file is not plain, too large, or too large for the memory: its document tells which
std::optional<xml::Tree> plainTreeOf(QFile& file)
{
    if (file.bytesAvailable() > maxXmlFileBytes)
        return std::nullopt;
    try {
        return xml::treeOfPlainXml(bytesOf(file));
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

EsiLoadResult plainResult(const xml::Tree& tree, const QString& path, Dictionaries dictionaries)
{
    EsiLoadResult result = fileFrom(tree, path, dictionaries);
    result.road = EsiRoad::Plain;
    return result;
}

/// Loads what was read of a file that cannot be read twice.
EsiLoadResult loadBytes(const std::string& bytes, const QString& path, Dictionaries dictionaries)
{
    if (bytes.size() <= std::size_t{maxXmlFileBytes})
        if (const std::optional<xml::Tree> tree = xml::treeOfPlainXml(bytes))
            return plainResult(*tree, path, dictionaries);
    QByteArray view = QByteArray::fromRawData(bytes.data(), static_cast<int>(bytes.size()));
    QBuffer file(&view);
    file.open(QIODevice::ReadOnly);
    return loadThroughDocument(file, path, dictionaries);
}

} // namespace

EsiLoadResult loadEsiFile(const QString& path, QDomDocument& document)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {EsiLoadStatus::CannotOpen, {file.errorString()}, {}};
    const FileBeingRead reading(path);
    if (XmlFormatError error; !parseXml(file, document, error))
        return {EsiLoadStatus::NotWellFormed, {error.message, error.line, error.column}, {}};
    return fileFrom(document, path);
}

EsiLoadResult loadOpenEsiFile(QFile& file, const QString& path, Dictionaries dictionaries)
{
    const FileBeingRead reading(path);
    file.setTextModeEnabled(false);
    if (file.isSequential())
        return loadBytes(bytesOf(file), path, dictionaries);
    const qint64 start = file.pos();
    if (const std::optional<xml::Tree> tree = plainTreeOf(file))
        return plainResult(*tree, path, dictionaries);
    file.seek(start);
    return loadThroughDocument(file, path, dictionaries);
}
