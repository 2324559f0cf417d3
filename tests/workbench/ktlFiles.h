// ktlFiles.h - small KTL files as the tests of the window need them.
#pragma once

#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"

#include <initializer_list>
#include <vector>

/// The KTL file of one run that holds all devices of some files, as an export writes it; empty if that failed.
inline QByteArray ktlOf(std::vector<struct_FilenameDevice> files)
{
    const auto all = [](std::size_t /*file*/, std::size_t /*device*/) { return true; };
    int code = 0;
    bool isWritten = false;
    const QByteArray ktl = writtenBy([&](std::FILE* out) { isWritten = writeDevices(out, files, all, &code); });
    return isWritten ? ktl : QByteArray();
}

/// A KTL file of one run whose devices differ by their product codes.
inline QByteArray ktlOfProducts(std::initializer_list<std::uint32_t> productCodes)
{
    struct_FilenameDevice file;
    for (const std::uint32_t productCode : productCodes) {
        file.device.emplace_back();
        file.device.back().TypeAttributes.Product_Code = productCode;
    }
    return ktlOf({file});
}
