#include "esi/fileBeingRead.h"

#include <exception>

namespace {

/// The one place of the name: a terminate handler gets no arguments, so it has to find the name by itself.
QString& currentPath()
{
    static QString path;
    return path;
}

} // namespace

FileBeingRead::FileBeingRead(const QString& path)
    : m_exceptionsAtStart(std::uncaught_exceptions())
{
    currentPath() = path;
}

FileBeingRead::~FileBeingRead()
{
    if (std::uncaught_exceptions() == m_exceptionsAtStart)
        currentPath().clear();
}

QString FileBeingRead::path()
{
    return currentPath();
}
