// writer.h - writes choices as a choices file.
#pragma once

#include "choices/choices.h"

#include <QJsonObject>

#include <iosfwd>
#include <vector>

namespace choices {

/// What a choices file says of itself, for people: nothing of it is read.
struct AboutChoices
{
    QJsonObject file; ///< left out if it is empty, as below
    std::vector<QJsonObject> devices; ///< in the order of the choices; may be shorter
};

/// Writes choices as a choices file that reads back as the same choices. Lists and values that choose nothing are left
/// out.
void writeChoices(std::ostream& out, const FileChoices& choices, const AboutChoices& about);

} // namespace choices
