// fuzzKtlDump.cpp - any bytes as a KTL file: they are dumped as text.
#include "fuzzStreams.h"

#include "ktl/ktlExport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const FileHandle ktl = streamOf(data, size);
    const FileHandle log = streamToNowhere();
    int errorCode = 0;
    KTL_write_log_devices(log.get(), ktl.get(), &errorCode);
    return 0;
}
