#include "ktl/writing/deviceBytes.h"

#include "ktl/ktlExport.h"
#include "system/cStreams.h"

#include <new>

std::vector<unsigned char> deviceBytesOf(struct_EtherCatDevice& device, struct_FilenameDevice& file,
                                         const QDateTime& exportTime)
{
    os::MemoryFile written;
    if (writeDevice(written.stream(), device, file, exportTime) <= 0)
        throw std::bad_alloc(); // memory is all that can be short
    written.finish();
    return {written.data(), written.data() + written.size()};
}
