// shownFile.h - a file that is shown.
#pragma once

#include "ktl/reading/ktlDeviceBlocks.h"
#include "ktl/reading/ktlItemWalk.h"
#include "model/deviceRecords.h"
#include "show/exportedDevices.h"
#include "show/shownDevices.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace show {

/// An ESI or KTL file. It stays at its place in memory, since its devices are made from it.
struct ShownFile
{
    ShownFile() = default;
    ~ShownFile() = default;
    ShownFile(const ShownFile&) = delete;
    ShownFile& operator=(const ShownFile&) = delete;
    ShownFile(ShownFile&&) = delete;
    ShownFile& operator=(ShownFile&&) = delete;

    /// Takes a loaded ESI file. Its devices are those that an export of it would hold.
    /// @param report  takes what is wrong with a device, once, when that is first asked for
    void setEsi(struct_FilenameDevice loaded, const ExportProblemSink& report);

    /// Takes the bytes of a KTL file. It is complete if it ends as it should.
    void setKtl(std::vector<unsigned char> contents);

    /// Lets some of the devices be shown, and nothing of the file that belongs to no device.
    /// @param indexes  ascending
    void limitTo(std::vector<std::size_t> indexes);

    std::string name; ///< as results have it, with every byte that is there
    bool isComplete = true; ///< false as soon as an error is known; of a device, that is when it is asked for
    std::unique_ptr<struct_FilenameDevice> esi; ///< null for a KTL file
    std::vector<unsigned char> bytes; ///< of a KTL file
    KtlWalk walk; ///< the items in `bytes`
    std::vector<KtlBlockPlace> places; ///< of the devices in `walk`
    ShownDevices devices; ///< all of the file
    std::vector<std::size_t> shown; ///< those of them that are shown, ascending
    bool isPart = false; ///< some devices alone are shown
};

} // namespace show
