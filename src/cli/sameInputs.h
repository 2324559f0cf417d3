// sameInputs.h - files that are given more than once.
#pragma once

#include <QMap>
#include <QString>

namespace cli {

/// Counts how often files are given.
class SameInputs
{
public:
    /// @return  how often the file has been given by now; 1 for a pipe, which is another one each time
    int add(const QString& path);

private:
    QMap<QString, int> m_counts; ///< by canonical path
};

} // namespace cli
