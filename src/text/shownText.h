// shownText.h - a text of a file as messages show it.
#pragma once

#include <QString>

/// A text as a message shows it: in quotation marks, cut where it is longer than people read.
[[nodiscard]] QString shownText(const QString& text);
