// overwriteQuestion.h - what to do with a KTL file that exists.
#pragma once

class QWidget;

/// Answer to the question.
enum class OverwriteAnswer
{
    Overwrite, ///< Yes
    Append, ///< No
    Neither, ///< the box was closed by its window button or by Esc: leave the file alone
};

/// Asks whether a file that exists is overwritten or appended to.
[[nodiscard]] OverwriteAnswer askOverwrite(QWidget* parent);
