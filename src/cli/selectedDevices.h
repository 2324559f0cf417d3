// selectedDevices.h - the devices that a user names on the command line.
#pragma once

#include "choices/deviceSelectors.h"
#include "cli/messages.h"
#include "model/deviceRecords.h"

#include <QStringList>

#include <optional>
#include <set>
#include <vector>

namespace cli {

/// Devices of a call; nothing where all are meant.
using SelectedDevices = std::optional<std::set<choices::DevicePosition>>;

/// The devices that the selectors mean, all devices if there is no selector. Reports each selector with a problem.
/// @return  nothing if one has a problem
[[nodiscard]] std::optional<std::set<choices::DevicePosition>>
selectedDevices(const QStringList& selectors, const std::vector<struct_FilenameDevice>& files, Messages& messages);

} // namespace cli
