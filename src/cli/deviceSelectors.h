// deviceSelectors.h - which devices a user names on the command line.
#pragma once

#include "cli/messages.h"
#include "model/XMLParsing.h"

#include <QStringList>

#include <cstddef>
#include <optional>
#include <set>
#include <utility>
#include <vector>

/// Position of a file in the list of files, and of a device in the file.
using DevicePosition = std::pair<std::size_t, std::size_t>;

/// The devices that a selector names: `VENDOR:PRODUCT[:REVISION]`, each decimal or in one of the hexadecimal forms of
/// ESI files; or digits, which are a number counted from 1 over all devices of all files; or else a name. Several
/// devices may share a name or an identity: then all of them are meant. An empty selector names none, not even a device
/// without a name.
[[nodiscard]] std::set<DevicePosition> devicesNamed(const QString& selector,
                                                    const std::vector<struct_FilenameDevice>& files);

/// The devices that any of the selectors names; all devices if there is no selector.
/// @return  nothing if a selector names no device; that has been told
[[nodiscard]] std::optional<std::set<DevicePosition>>
selectedDevices(const QStringList& selectors, const std::vector<struct_FilenameDevice>& files, Messages& messages);
