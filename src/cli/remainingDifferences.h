// remainingDifferences.h - what an export has that choices do not make of descriptions.
#pragma once

#include "cli/messages.h"
#include "cli/treeInput.h"
#include "model/deviceRecords.h"
#include "retrace/exportedRun.h"
#include "retrace/runRetrace.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <vector>

namespace cli {

/// Descriptions with choices made in them, and the export that they should become.
struct RetracedInputs
{
    const QStringList& paths; ///< of the descriptions
    const std::vector<TreeInput>& trees; ///< of the descriptions
    std::vector<struct_FilenameDevice>& files; ///< of the descriptions, with the choices
    QString exportPath;
    const std::vector<unsigned char>& exportBytes; ///< of the whole KTL file
    const retrace::ExportedRun& run;
    const retrace::RetracedRun& retraced;
};

/// Warns of each difference, with its place in the export.
/// @return  how many there are
std::size_t tellRemainingDifferences(const RetracedInputs& inputs, Messages& messages);

} // namespace cli
