#include "cli/saveFolder.h"

#include "cli/saveTargets.h"
#include "system/scratchFolder.h"

#include <QFile>

#include <cerrno>

SaveFolder::SaveFolder(const QString& path)
    : m_path(path)
    , m_lock(encodedPath(path))
{}

bool SaveFolder::tryOpen()
{
    switch (m_lock.tryLock()) {
    case LockAnswer::InUse:
        return false;
    case LockAnswer::Failed:
        m_failure = QStringLiteral("the file cannot be written, for %1 cannot be opened: ").arg(lockFile())
                    + qt_error_string(errno);
        return false;
    case LockAnswer::Held:
        removeLeftScratchFolders(encodedPath(m_path));
        break;
    case LockAnswer::NotKnown:
        break;
    }
    makeScratch();
    return m_failure.isEmpty();
}

void SaveFolder::makeScratch()
{
    m_scratch = makeScratchFolder(encodedPath(m_path));
    if (m_scratch.empty())
        m_failure = QStringLiteral("the file cannot be written: ") + qt_error_string(errno);
}

void SaveFolder::close()
{
    if (!m_scratch.empty())
        removeScratchFolder(m_scratch);
    m_scratch.clear();
    m_lock.release(); // removes its file itself, and once: the next one of that name is another run's
}

void SaveFolder::discard() const
{
    if (!m_scratch.empty())
        removeScratchFolder(m_scratch);
    m_lock.removeFile();
}

QString SaveFolder::lockFile() const
{
    return QFile::decodeName(m_lock.path().c_str());
}
