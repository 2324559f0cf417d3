// fuzzEsi.cpp - any bytes as an ESI file, on the whole road: parsed, read into the model with all passes, and written
// as KTL items.
#include "fuzzStreams.h"

#include "esi/xml/boundedXmlReader.h"
#include "esi/xmlparsing.h"
#include "ktl/ktlExport.h"

#include <QFile>

#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    g_xmlfiledevices.clear();
    const FileHandle bytes = streamOf(data, size);
    QFile file;
    if (bytes == nullptr || !file.open(bytes.get(), QIODevice::ReadOnly))
        return 0;
    XmlFormatError error;
    if (!parseXml(file, domDocument, error))
        return 0;
    const FileHandle out = streamToNowhere();
    int errorCode = 0;
    try {
        if (read_xmldevice(QStringLiteral("fuzz.xml")))
            static_cast<void>(writeDevices(
                out.get(), g_xmlfiledevices, [](std::size_t, std::size_t) { return true; }, &errorCode));
    } catch (const std::out_of_range&) { // a PDO on a sync manager that its device does not have
    }
    domDocument.clear();
    return 0;
}
