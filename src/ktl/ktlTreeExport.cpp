// ktlTreeExport.cpp - exports what is checked in the device tree.
#include "ktl/ktlExport.h"
#include "ktl/treeSelection.h"

bool KTL_write_devices(std::FILE* out, QTreeWidget* tree, int* piErrorCode)
{
    if (out == nullptr || tree == nullptr || piErrorCode == nullptr)
        return false;
    const auto isSelected = [tree](std::size_t file, std::size_t device) {
        return isCheckedForExport(*tree, file, device);
    };
    return writeDevices(out, g_xmlfiledevices, isSelected, piErrorCode, QDateTime::currentDateTime());
}
