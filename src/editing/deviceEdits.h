// deviceEdits.h - what selecting a device does to it, and its settings but for modules and lists.
#pragma once

#include "model/deviceRecords.h"

#include <cstddef>
#include <cstdint>
#include <set>

/// Gives a device a type, and the drive axes that go with it. What its modules bring in follows the type only when
/// `renewModuleData` runs.
void setDeviceType(struct_EtherCatDevice& device, std::uint16_t type);

/// Gives a multi-axis drive back the axes that it had before the list of device types was set to its entry; another
/// type is left as it is.
void keepDriveAxes(struct_EtherCatDevice& device, std::uint16_t axes);

/// Sets the drive axes, in 16 bits. Only a multi-axis drive has axes to set: every other type takes 0.
void setDriveAxes(struct_EtherCatDevice& device, std::uint32_t axes);

/// Device type and drive axes.
struct TypeAndAxes
{
    std::uint16_t deviceType = 0;
    std::uint16_t driveAxes = 0;
};

/// Those that a device has now.
[[nodiscard]] TypeAndAxes typeAndAxesOf(const struct_EtherCatDevice& device);

/// The drive axes that clicks can give a device that is no multi-axis drive: those that it has; and while its type is
/// the one it was loaded with, those that it was loaded with and those of the type, since the order in which devices
/// are clicked decides between them (see `DeviceClicks::select`); and 0, which the field for the axes of a multi-axis
/// drive sets where it is still open. A multi-axis drive can have any number.
[[nodiscard]] std::set<std::uint16_t> axesOfClicks(const struct_EtherCatDevice& device, const TypeAndAxes& loaded);

/// Gives a device drive axes that clicks can give it.
/// @param loaded  what the device was loaded with
/// @return        false, with nothing changed, for others
[[nodiscard]] bool chooseDriveAxes(struct_EtherCatDevice& device, std::uint16_t axes, const TypeAndAxes& loaded);

/// Chooses an operation mode: it changes places with the first one, which is the chosen one.
/// @param position  in `vopmode` as it is now
/// @return  false, with nothing changed, if there are not so many modes
[[nodiscard]] bool chooseOperationMode(struct_EtherCatDevice& device, std::size_t position);

/// Whether a device of that type has module indexes to enter: only couplers that find their modules by themselves, and
/// special devices.
[[nodiscard]] bool takesModuleIndexes(std::uint16_t deviceType);

/// Sets the object indexes of module configuration and detection, each in 16 bits.
void setModuleIndexes(struct_EtherCatDevice& device, std::uint32_t configuration, std::uint32_t detection);

/// Sets the minimum size of a sync manager, in 16 bits.
void setMinSize(struct_SM& syncManager, std::uint32_t bytes);

/// Selects devices one after the other as clicks in the device tree do, for callers without a window. A window has the
/// list of device types itself: there `m_shownType` is its current entry, and a change of that entry runs the slots.
class DeviceClicks
{
public:
    /// Does what selecting a device does: the list of types moves to its type, and the module data is made again.
    /// ODD, KEPT: a device of the listed type keeps its drive axes, and so does a multi-axis drive; any other one takes
    /// those of its type. One would expect no change. Pinned by tst_DeviceEdits::axesOfSelection.
    /// @throws MissingSyncManager as `renewModuleData`
    void select(struct_EtherCatDevice& device);

    /// Chooses a type for the device that was selected last. The current entry of the list is no choice: nothing
    /// changes then.
    /// @return  whether the device has changed
    /// @throws MissingSyncManager as `renewModuleData`
    bool chooseType(struct_EtherCatDevice& device, std::uint16_t type);

    /// Chooses a type for a device that the tree no longer has as its current item, as after opening another file: the
    /// list moves, and nothing is made again.
    void chooseTypeOnly(struct_EtherCatDevice& device, std::uint16_t type);

private:
    int m_shownType = 0; ///< entry of the list of device types, which starts at its first one; -1 for none
};
