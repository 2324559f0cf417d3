// textMatching.h - texts that fit a pattern, and texts that nearly are another.
#pragma once

#include <QString>
#include <QStringView>

/// Whether a text fits a pattern, in which each `*` means any run of characters, none included. Case counts.
[[nodiscard]] bool fitsPattern(QStringView text, const QString& pattern);

/// Characters to add, leave out or change that make a word the beginning of a text: 0 for "el67" and "EL6720", 1 for
/// "EL6721" and "EL6720 Master". Case does not count. Takes time by the square of the word's length.
[[nodiscard]] int distanceToBeginning(const QString& word, const QString& text);
