#include "esi/fileBeingRead.h"

#include <exception>

namespace {

/// The one place of the name, of each thread: a terminate handler gets no arguments, so it has to look the name up.
QString& currentPath()
{
    thread_local QString path;
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
