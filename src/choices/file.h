// file.h - a choices file, from its bytes to what it does to the loaded files.
#pragma once

#include "choices/apply.h"
#include "choices/choices.h"
#include "choices/deviceSelectors.h"
#include "choices/problems.h"
#include "model/XMLParsing.h"

#include <QByteArray>
#include <QIODevice>

#include <optional>
#include <vector>

namespace choices {

/// Reads a choices file, and no more of it than shows that it is too large.
/// @param file  open for reading; says itself if it cannot be read to its end
/// @throws std::bad_alloc
[[nodiscard]] QByteArray textOf(QIODevice& file);

/// The choices of a text; everything that is not in the form of a choices file is told.
/// @return  nothing if the text is too large, or no JSON
/// @throws std::bad_alloc
[[nodiscard]] std::optional<FileChoices> choicesIn(const QByteArray& text, Problems& problems);

/// Makes the choices of a text in the loaded files. The files are of no use if there is a problem.
/// @param selectors  of these files
/// @throws std::bad_alloc
[[nodiscard]] MadeChoices applyFile(const QByteArray& text, std::vector<struct_FilenameDevice>& files,
                                    const DeviceSelectors& selectors, Problems& problems);

} // namespace choices
