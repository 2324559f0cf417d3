// deviceSelectors.h - which devices a user names, on the command line or in a choices file.
#pragma once

#include "model/XMLParsing.h"

#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace choices {

/// Position of a file in the list of files, and of a device in the file.
using DevicePosition = std::pair<std::size_t, std::size_t>;

/// What a selector means.
struct MeantDevices
{
    std::set<DevicePosition> devices; ///< empty if there is a problem
    QString problem; ///< why the selector cannot be used; empty if it can
    std::size_t count = 0; ///< of the devices that it fits, also if that they are several is the problem
};

/// The devices of all files, by selectors: `VENDOR:PRODUCT[:REVISION]`, each number decimal or hexadecimal as in ESI
/// files; or digits, which count the devices of all files from 1; or a name or the text of a `Type`. A `*` means any
/// run of characters of a name or type, or any number of an identity. Digits are never a name.
class DeviceSelectors
{
public:
    /// @param files  have to outlive this, with their devices and the names of these
    explicit DeviceSelectors(const std::vector<struct_FilenameDevice>& files);

    /// The one device that a selector means, or all that fit one with `*`. That several are meant without a `*` is a
    /// problem, and so is an empty selector: a variable of a script that is not set.
    [[nodiscard]] MeantDevices devicesOf(const QString& selector) const;

    /// As above, but several devices are a problem in any case.
    [[nodiscard]] MeantDevices deviceOf(const QString& selector) const;

    /// For a selector with a problem, the devices that its user may have had in mind, a line each: those that it means
    /// if it means several, else the nearest ones, five at most.
    /// @param maxLines  what does not fit is counted in a last line of its own
    [[nodiscard]] QStringList candidatesOf(const QString& selector, std::size_t maxLines) const;

    /// A device as messages name it.
    [[nodiscard]] QString labelOf(const DevicePosition& device) const;

private:
    using Places = std::vector<std::size_t>; ///< of devices, from 0 over all files, in their order

    [[nodiscard]] Places placesOf(const QString& selector) const;
    [[nodiscard]] Places placesThatFit(const QString& pattern) const;
    [[nodiscard]] Places nearestTo(const QString& selector) const;
    [[nodiscard]] QString whyNone(const QString& selector) const;
    [[nodiscard]] MeantDevices meantBy(const QString& selector, bool takesSeveral) const;
    [[nodiscard]] QString lineOf(std::size_t place) const;
    [[nodiscard]] const struct_FilenameDevice& fileAt(std::size_t place) const;
    [[nodiscard]] const struct_EtherCatDevice& deviceAt(std::size_t place) const;

    const std::vector<struct_FilenameDevice>& m_files;
    std::vector<DevicePosition> m_devices;
    std::unordered_map<std::string_view, Places> m_byText; ///< name or type
    std::map<std::pair<std::uint32_t, std::uint32_t>, Places> m_byProduct; ///< vendor id and product code
};

} // namespace choices
