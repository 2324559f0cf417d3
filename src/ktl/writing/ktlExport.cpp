// ktlExport.cpp - the order of items in a run.
#include "ktl/ktlExport.h"

#include "model/missingSyncManager.h"

#include <cstdint>

namespace {

/// Writes the items of one device.
/// @return  result of the General item; if that is not above 0 nothing else was written
int writeItems(std::FILE* out, struct_EtherCatDevice& device, struct_FilenameDevice& file, const QDateTime& exportTime)
{
    const int result = KTL_write_device_General(out, &device, &file);
    if (result <= 0)
        return result;
    const std::uint16_t type = device.m_iDeviceType;
    KTL_write_device_FmmuInfo(out, &device);
    KTL_write_device_SmInfo(out, &device);
    KTL_write_device_DcInfo(out, &device);
    KTL_write_device_RxPdoinfo(out, &device);
    KTL_write_device_TxPdoinfo(out, &device);
    if (hasModulePdos(type)) {
        KTL_write_device_AddModuleRPdo(out, &device);
        KTL_write_device_AddModuleTPdo(out, &device);
    }
    KTL_write_device_EoEInitCmd(out, &device);
    KTL_write_device_CoEInitCmd(out, &device);
    KTL_write_device_Slots(out, &device);
    if (type == KTL_DEVICE_TYPE_ManualIOBlock)
        KTL_write_device_SlotPreConfig(out, &device);
    writeDeviceMoreInfo(out, device, file, exportTime);
    if (hasModuleBlocks(type))
        KTL_write_device_Module(out, &device, &file);
    return result;
}

} // namespace

int writeDevice(std::FILE* out, struct_EtherCatDevice& device, struct_FilenameDevice& file, const QDateTime& exportTime)
{
    int result = 0;
    onDevice(file, device, [&] { result = writeItems(out, device, file, exportTime); });
    return result;
}

bool writeDevices(std::FILE* out, std::vector<struct_FilenameDevice>& files, const DeviceSelection& isSelected,
                  int* piErrorCode, const QDateTime& exportTime)
{
    if (out == nullptr || piErrorCode == nullptr)
        return false;
    int result = 0;
    for (std::size_t fileIndex = 0; fileIndex < files.size(); ++fileIndex) {
        struct_FilenameDevice& file = files[fileIndex];
        for (std::size_t deviceIndex = 0; deviceIndex < file.device.size(); ++deviceIndex) {
            if (!isSelected(fileIndex, deviceIndex))
                continue;
            result = writeDevice(out, file.device[deviceIndex], file, exportTime);
            if (result <= 0)
                return false;
        }
    }
    KTL_write_device_end(out);
    *piErrorCode = result;
    return true;
}
