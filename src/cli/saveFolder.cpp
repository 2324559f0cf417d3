#include "cli/saveFolder.h"

#include "cli/saveTargets.h"
#include "system/scratchFolder.h"

#include <QFile>

#include <cerrno>

namespace cli {

SaveFolder::SaveFolder(const QString& path)
    : m_path(path)
    , m_lock(encodedPath(path))
{}

bool SaveFolder::tryOpen()
{
    switch (m_lock.tryLock()) {
    case os::LockAnswer::InUse:
        return false;
    case os::LockAnswer::Failed:
        m_failure = QStringLiteral("the file cannot be written, for %1 cannot be opened: ").arg(lockFile())
                    + qt_error_string(errno);
        return false;
    case os::LockAnswer::Held:
        os::removeLeftScratchFolders(encodedPath(m_path));
        break;
    case os::LockAnswer::NotKnown:
        break;
    }
    makeScratch();
    return m_failure.isEmpty();
}

void SaveFolder::makeScratch()
{
    m_scratch = os::makeScratchFolder(encodedPath(m_path));
    if (m_scratch.empty())
        m_failure = QStringLiteral("the file cannot be written: ") + qt_error_string(errno);
}

void SaveFolder::close()
{
    if (!m_scratch.empty())
        os::removeScratchFolder(m_scratch);
    m_scratch.clear();
    m_lock.release(); // removes its file itself, and only once: the next one of that name is another run's
}

void SaveFolder::discard() const
{
    if (!m_scratch.empty())
        os::removeScratchFolder(m_scratch);
    m_lock.removeFile();
}

QString SaveFolder::lockFile() const
{
    return QFile::decodeName(m_lock.path().c_str());
}

} // namespace cli
