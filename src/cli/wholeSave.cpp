#include "cli/wholeSave.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

std::string encoded(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

QString dumpOf(const QString& path)
{
    return QFile::decodeName(dumpPathOf(encoded(path)).c_str());
}

/// The file behind a path that may be a link.
QString linkTarget(const QString& path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? path : canonical;
}

/// Why a file cannot be replaced, nothing if it can. A device or pipe would be replaced by a file of its name.
std::optional<QString> obstacle(const QString& path)
{
    const QFileInfo info(path);
    if (info.isDir())
        return QStringLiteral("this is a folder");
    if (info.exists() && !info.isFile())
        return QStringLiteral("this is no regular file");
    if (info.exists() && !info.isWritable())
        return QStringLiteral("the file does not have write permission");
    if (info.isSymLink() && !info.exists())
        return QStringLiteral("this is a link to a file that does not exist");
    return std::nullopt;
}

/// A file that is moved to its place.
struct Move
{
    QString from;
    QString to;
};

/// Moves a file over another one in one step.
bool moveOver(const Move& move)
{
    return std::rename(encoded(move.from).c_str(), encoded(move.to).c_str()) == 0;
}

/// Gives a file a second name, where the disk knows such; else copies it. The file itself stays in its place.
bool keep(const QString& path, const QString& kept)
{
    return link(encoded(path).c_str(), encoded(kept).c_str()) == 0 || QFile::copy(path, kept);
}

/// Moves two files to their places. If the second cannot be moved, the first place gets back what stood there.
/// @param kept  a free name on the same disk for what stands in the first place
/// @return  the move that failed, null if none
const Move* moveBoth(const Move& first, const Move& second, const QString& kept)
{
    const bool hadFirst = QFile::exists(first.to);
    if ((hadFirst && !keep(first.to, kept)) || !moveOver(first))
        return &first;
    if (moveOver(second))
        return nullptr;
    if (hadFirst)
        moveOver({kept, first.to});
    else
        QFile::remove(first.to);
    return &second;
}

void copyPermissions(const Move& move)
{
    if (QFile::exists(move.to))
        QFile::setPermissions(move.from, QFile::permissions(move.to));
}

/// Keeps the signals by which a user or a build server ends programs waiting as long as it lives, so that no run leaves
/// half of its files behind.
class SignalsWait
{
public:
    SignalsWait()
    {
        sigset_t signalSet;
        sigemptyset(&signalSet);
        for (const int number : {SIGINT, SIGTERM, SIGHUP})
            sigaddset(&signalSet, number);
        m_isSet = pthread_sigmask(SIG_BLOCK, &signalSet, &m_before) == 0;
    }
    ~SignalsWait()
    {
        if (m_isSet)
            pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
    }
    SignalsWait(const SignalsWait&) = delete;
    SignalsWait& operator=(const SignalsWait&) = delete;
    SignalsWait(SignalsWait&&) = delete;
    SignalsWait& operator=(SignalsWait&&) = delete;

private:
    sigset_t m_before{};
    bool m_isSet = false;
};

/// Lets one run at a time write into a folder: of two that add to the same file at once, one would be lost. Where the
/// disk knows no locks, or the folder cannot be read, it does nothing.
class FolderLock
{
public:
    explicit FolderLock(const QString& folder)
        : m_folder(open(encoded(folder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        if (m_folder >= 0)
            static_cast<void>(flock(m_folder, LOCK_EX));
    }
    ~FolderLock()
    {
        if (m_folder >= 0)
            close(m_folder); // gives the lock back
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    FolderLock(FolderLock&&) = delete;
    FolderLock& operator=(FolderLock&&) = delete;

private:
    int m_folder;
};

QString reasonOf(const KtlSaveResult& result)
{
    const QString words = result.status == KtlSaveStatus::CannotReopen
                              ? QStringLiteral("the file was written, but cannot be opened again for its text dump")
                              : QStringLiteral("the file cannot be written in full");
    return result.reason.empty() ? words : words + QStringLiteral(": ") + QString::fromStdString(result.reason);
}

} // namespace

std::optional<WholeSaveFailure> saveWhole(const QString& path, KtlSaveMode mode,
                                          const std::function<bool(std::FILE* out, int* errorCode)>& writeRun)
{
    const QString ktl = linkTarget(path);
    const QString dump = linkTarget(dumpOf(path));
    for (const QString& target : {ktl, dump})
        if (const std::optional<QString> reason = obstacle(target))
            return WholeSaveFailure{target == ktl ? path : dumpOf(path), *reason};

    const SignalsWait signalsWait;
    const FolderLock lock(QFileInfo(ktl).absolutePath());
    const QTemporaryDir folder(QFileInfo(ktl).absolutePath() + QStringLiteral("/.ktl-XXXXXX"));
    if (!folder.isValid())
        return WholeSaveFailure{path, QStringLiteral("the file cannot be written: ") + folder.errorString()};
    const QString newKtl = folder.filePath(QStringLiteral("new.ktl"));
    const bool appends = mode == KtlSaveMode::Append && QFile::exists(ktl);
    if (QFile earlier(ktl); appends && !earlier.copy(newKtl))
        return WholeSaveFailure{path, QStringLiteral("the file cannot be copied: ") + earlier.errorString()};

    std::exception_ptr error;
    const auto guardedRun = [&](std::FILE* out, int* errorCode) {
        try {
            return writeRun(out, errorCode);
        } catch (...) {
            error = std::current_exception();
            return false;
        }
    };
    const KtlSaveResult result = saveKtlFile(encoded(newKtl), mode, guardedRun);
    if (error != nullptr)
        std::rethrow_exception(error);
    if (result.status != KtlSaveStatus::Saved)
        return WholeSaveFailure{result.status == KtlSaveStatus::CannotWriteDump ? dumpOf(path) : path,
                                reasonOf(result)};

    const Move moves[] = {{newKtl, ktl}, {dumpOf(newKtl), dump}};
    for (const Move& move : moves)
        copyPermissions(move);
    const Move* const failed = moveBoth(moves[0], moves[1], folder.filePath(QStringLiteral("kept.ktl")));
    const QString reason = qt_error_string(errno);
    if (failed == nullptr)
        return std::nullopt;
    return WholeSaveFailure{failed == &moves[0] ? path : dumpOf(path),
                            QStringLiteral("the file cannot be replaced by the new one: ") + reason};
}
