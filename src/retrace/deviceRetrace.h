// deviceRetrace.h - the choices that make a device of a description one of an export.
#pragma once

#include "choices/choices.h"
#include "choices/moduleLookUp.h"
#include "ktl/reading/ktlDeviceBlocks.h"
#include "model/deviceRecords.h"
#include "retrace/moduleNames.h"

#include <QDateTime>

#include <cstddef>
#include <limits>
#include <optional>
#include <vector>

namespace retrace {

/// A device block of a KTL file.
struct ExportedBlock
{
    KtlDeviceBlock content;
    std::vector<unsigned char> bytes;
    QDateTime exportTime; ///< valid; any time where the block has none
};

/// What was done to a device before its export.
struct RetracedDevice
{
    choices::DeviceChoices choices; ///< without the name of the device
    bool isSelected = false; ///< the device is in the list of choices; there are none for it if not
    bool isExact = false; ///< an export gives the bytes of the block then
    std::size_t bytesApart = std::numeric_limits<std::size_t>::max(); ///< of the export and the block
};

/// A file without its devices: what an export of one of them reads of it.
[[nodiscard]] struct_FilenameDevice withoutDevices(const struct_FilenameDevice& file);

/// Finds what was done to devices of one file.
class DeviceRetrace
{
public:
    /// @param file  without devices, its modules linked as they were for the export; has to outlive this
    explicit DeviceRetrace(struct_FilenameDevice& file);

    /// What makes a device the one of a block, or comes as near as can be. Nothing was done where that comes as near.
    /// @param device  as it was loaded
    [[nodiscard]] RetracedDevice retraced(const struct_EtherCatDevice& device, const ExportedBlock& block) const;

    /// As above, of a device that someone has clicked.
    [[nodiscard]] RetracedDevice retracedAsSelected(const struct_EtherCatDevice& device,
                                                    const ExportedBlock& block) const;

private:
    [[nodiscard]] RetracedDevice untouched(struct_EtherCatDevice device, const ExportedBlock& block) const;
    [[nodiscard]] RetracedDevice selected(const struct_EtherCatDevice& device, const ExportedBlock& block) const;
    [[nodiscard]] RetracedDevice withModules(const RetracedDevice& settings, const struct_EtherCatDevice& device,
                                             std::vector<std::vector<choices::ModuleChoice>> likely,
                                             const ExportedBlock& block) const;
    [[nodiscard]] std::optional<RetracedDevice> exactOfUnusual(const struct_EtherCatDevice& device,
                                                               const ExportedBlock& block) const;
    [[nodiscard]] KtlDeviceBlock blockOf(struct_EtherCatDevice device, const ExportedBlock& like) const;
    void finish(RetracedDevice& retraced, const struct_EtherCatDevice& device, const ExportedBlock& block) const;
    [[nodiscard]] struct_EtherCatDevice after(const choices::DeviceChoices& choices,
                                              const struct_EtherCatDevice& device) const;
    void compare(RetracedDevice& retraced, struct_EtherCatDevice& device, const ExportedBlock& block) const;

    struct_FilenameDevice& m_file;
    std::vector<NamedModule> m_modules;
    choices::ModuleLookUp m_lookUp;
};

} // namespace retrace
