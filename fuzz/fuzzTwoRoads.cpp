// fuzzTwoRoads.cpp - any bytes as an ESI file, straight from the bytes and through a document: what takes the first
// road has the same tree and gives the same record by both, and one that takes it is well-formed. It stops at the first
// difference.
#include "fuzzShow.h"

#include "esi/esiFile.h"
#include "esi/xml/boundedXmlReader.h"
#include "esi/xml/documentTree.h"
#include "esi/xml/plainScanner.h"
#include "xml/sameTree.h"

#include <QBuffer>
#include <QDomDocument>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

[[noreturn]] void stopAt(const char* difference)
{
    std::fprintf(stderr, "%s\n", difference);
    std::abort();
}

/// All that a tree loads to: the reason why not, or every field of the record and of its export.
std::string outcomeOf(const xml::Tree& tree)
{
    try {
        EsiLoadResult loaded = fileFrom(tree, QStringLiteral("fuzz.xml"), Dictionaries::AreRead);
        if (loaded.status != EsiLoadStatus::Loaded)
            return std::to_string(static_cast<int>(loaded.status)) + loaded.reason.text.toStdString();
        show::ShownFile file;
        file.setEsi(std::move(loaded.file), [](const show::ExportProblem& /*problem*/) {});
        return shownAs(file, jsonForm());
    } catch (const std::out_of_range& error) { // a PDO on a sync manager that its device does not have
        return error.what();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string bytes(size, '\0');
    std::copy(data, data + size, bytes.begin());
    const std::optional<xml::Tree> plain = xml::treeOfPlainXml(bytes);
    if (!plain.has_value())
        return 0; // a document judges it
    QByteArray contents = QByteArray::fromStdString(bytes);
    QBuffer file(&contents);
    QDomDocument document;
    XmlFormatError error;
    if (!file.open(QIODevice::ReadOnly) || !parseXml(file, document, error))
        stopAt("the file is plain and not well-formed, or beyond a limit");
    const xml::Tree ofDocument = xml::treeOf(document.documentElement());
    if (!areSame(plain->root(), ofDocument.root()))
        stopAt("the trees differ");
    if (outcomeOf(*plain) != outcomeOf(ofDocument))
        stopAt("the records differ");
    return 0;
}
