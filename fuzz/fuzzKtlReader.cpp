// fuzzKtlReader.cpp - any bytes as a KTL file: they are read into the model, and what came out is written again.
#include "fuzzStreams.h"

#include "ktl/ktlExport.h"
#include "ktl/reading/ktlReader.h"

#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    g_xmlfiledevices.clear();
    const FileHandle ktl = streamOf(data, size);
    int errorCode = 0;
    device_writektltodevices(ktl.get(), QStringLiteral("fuzz.ktl"), &errorCode);
    const FileHandle out = streamToNowhere();
    try {
        static_cast<void>(writeDevices(
            out.get(), g_xmlfiledevices, [](std::size_t, std::size_t) { return true; }, &errorCode));
    } catch (const std::out_of_range&) { // a PDO on a sync manager that its device does not have
    }
    return 0;
}
