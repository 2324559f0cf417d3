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
EsiTreeResult treeThroughDocument(QIODevice& file)
{
    QDomDocument document;
    if (XmlFormatError error; !parseXml(file, document, error))
        return {EsiLoadStatus::NotWellFormed, {error.message, error.line, error.column}, {}};
    EsiTreeResult result;
    result.tree = xml::treeOf(document.documentElement());
    return result;
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

using BytesLook = std::function<void(std::string_view bytes)>;

void showBytes(const std::string& bytes, const BytesLook& lookAt)
{
    if (lookAt != nullptr && bytes.size() <= std::size_t{maxXmlFileBytes})
        lookAt(bytes);
}

/// The tree of a file that can be read twice.
/// @return  nothing if the file is not plain, too large, or too large for the memory: its document tells which
std::optional<xml::Tree> plainTreeOf(QFile& file, const BytesLook& lookAt)
{
    if (file.bytesAvailable() > maxXmlFileBytes)
        return std::nullopt;
    try {
        std::string bytes = bytesOf(file);
        showBytes(bytes, lookAt);
        return xml::treeOfPlainXml(std::move(bytes));
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

} // namespace

EsiTreeResult esiTreeOf(const std::string& bytes)
{
    if (bytes.size() <= std::size_t{maxXmlFileBytes})
        if (std::optional<xml::Tree> tree = xml::treeOfPlainXml(bytes))
            return {EsiLoadStatus::Loaded, {}, std::move(tree), EsiRoad::Plain};
    QByteArray view = QByteArray::fromRawData(bytes.data(), static_cast<int>(bytes.size()));
    QBuffer file(&view);
    file.open(QIODevice::ReadOnly);
    return treeThroughDocument(file);
}

EsiTreeResult esiTreeOf(QFile& file, const BytesLook& lookAt)
{
    file.setTextModeEnabled(false);
    if (file.isSequential()) {
        const std::string bytes = bytesOf(file);
        showBytes(bytes, lookAt);
        return esiTreeOf(bytes);
    }
    const qint64 start = file.pos();
    if (std::optional<xml::Tree> tree = plainTreeOf(file, lookAt))
        return {EsiLoadStatus::Loaded, {}, std::move(tree), EsiRoad::Plain};
    file.seek(start);
    return treeThroughDocument(file);
}

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
    const EsiTreeResult read = esiTreeOf(file, nullptr);
    if (!read.tree.has_value())
        return {read.status, read.reason, {}};
    EsiLoadResult result = fileFrom(*read.tree, path, dictionaries);
    result.road = read.road;
    return result;
}
