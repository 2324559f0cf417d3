// fuzzShowEsi.cpp - any bytes as an ESI file: what could be loaded is shown as JSON, with the model of each device and
// what an export of it holds, and as a summary.
#include "fuzzShow.h"
#include "fuzzStreams.h"

#include "esi/esiFile.h"
#include "esi/xml/boundedXmlReader.h"

#include <QDomDocument>
#include <QFile>

#include <stdexcept>
#include <utility>

namespace {

void showDocument(const QDomDocument& document)
{
    EsiLoadResult loaded = fileFrom(document, QStringLiteral("fuzz.xml"));
    if (loaded.status != EsiLoadStatus::Loaded)
        return;
    show::ShownFile file;
    file.name = "fuzz.xml";
    file.setEsi(std::move(loaded.file), [](const show::ExportProblem& /*problem*/) {});
    showNowhere(file, jsonForm());
    showNowhere(file, textForm(show::TextContent::Summary));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const FileHandle bytes = streamOf(data, size);
    QFile file;
    if (bytes == nullptr || !file.open(bytes.get(), QIODevice::ReadOnly))
        return 0;
    QDomDocument document;
    XmlFormatError error;
    if (!parseXml(file, document, error))
        return 0;
    try {
        showDocument(document);
    } catch (const std::out_of_range&) { // a PDO on a sync manager that its device does not have: nothing is loaded
    }
    return 0;
}
