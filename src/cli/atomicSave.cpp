#include "cli/atomicSave.h"

#include "cli/ktlEnd.h"
#include "cli/ktlInput.h"
#include "cli/saveFolder.h"
#include "ktl/writing/ktlFile.h"
#include "system/diskSync.h"
#include "system/endingSignals.h"
#include "system/fileMoves.h"
#include "system/fileRights.h"
#include "system/scratchFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <exception>
#include <filesystem>
#include <list>
#include <set>
#include <system_error>
#include <vector>

namespace cli {

namespace {

using Failure = std::optional<SaveFailure>;

SaveFailure notAllowed(const SaveTarget& target, const QString& reason)
{
    return {SaveFailure::Kind::NotAllowed, target.named, reason};
}

SaveFailure notWritten(const SaveTarget& target, const QString& reason)
{
    return {SaveFailure::Kind::NotWritten, target.named, reason};
}

QString reasonOf(const KtlSaveResult& result)
{
    const QString words = result.status == KtlSaveStatus::CannotReopen
                              ? QStringLiteral("the file was written, but cannot be opened again for its text dump")
                              : QStringLiteral("the file cannot be written in full");
    return result.reason.empty() ? words : words + QStringLiteral(": ") + QString::fromStdString(result.reason);
}

/// The folder of a file, by its one name without links.
QString folderOf(const QString& path)
{
    const QFileInfo folder(QFileInfo(path).absolutePath());
    const QString canonical = folder.canonicalFilePath();
    return canonical.isEmpty() ? folder.filePath() : canonical;
}

std::vector<QString> foldersOf(const std::vector<SaveTarget>& targets)
{
    std::vector<QString> folders;
    folders.reserve(targets.size());
    for (const SaveTarget& target : targets)
        folders.push_back(folderOf(target.path));
    return folders;
}

/// What is wrong with a file that a run is to be added to: it must be whole, or the run after it cannot be found.
QString problemOfEarlier(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("the file cannot be read: ") + file.errorString();
    if (file.size() > maxKtlFileSize)
        return QStringLiteral("nothing can be added to a file of more than %1 bytes").arg(maxKtlFileSize);
    std::vector<unsigned char> bytes(static_cast<std::size_t>(file.size()));
    if (file.read(reinterpret_cast<char*>(bytes.data()), file.size()) != file.size())
        return QStringLiteral("the file cannot be read: ") + file.errorString();
    const QString problem = bytes.empty() ? QString() : problemAtEnd(walkItems(bytes));
    return problem.isEmpty() ? QString()
                             : QStringLiteral("nothing can be added, for this is no whole KTL file: ") + problem;
}

/// One saving, step by step. INT, TERM and HUP end the process at once, with nothing written, or once both files are in
/// their places.
class Saving
{
public:
    Saving(const SaveRequest& request, const WriteRun& writeRun, const Patience& patience);
    ~Saving();
    Saving(const Saving&) = delete;
    Saving& operator=(const Saving&) = delete;
    Saving(Saving&&) = delete;
    Saving& operator=(Saving&&) = delete;

    [[nodiscard]] Failure run();

private:
    Failure openFolders();
    Failure openFolder(SaveFolder& folder);
    Failure lookAtTargets();
    Failure takeEarlier();
    Failure write();
    Failure placeDump();
    Failure bringToDisk();
    Failure move();

    SaveFolder& folderAt(std::size_t target);
    std::vector<os::FileMove> moves();

    const SaveRequest m_request;
    const WriteRun& m_writeRun;
    const Patience& m_patience;
    const std::vector<SaveTarget> m_targets;
    const std::vector<QString> m_folderPaths; ///< of each target, as they were in the beginning
    bool m_hasEarlier = false; ///< a file that the run is added to
    std::list<SaveFolder> m_folders; ///< changed with signals held back only
    os::EndingSignals m_signals;
};

Saving::Saving(const SaveRequest& request, const WriteRun& writeRun, const Patience& patience)
    : m_request(request)
    , m_writeRun(writeRun)
    , m_patience(patience)
    , m_targets(targetsOf(request))
    , m_folderPaths(foldersOf(m_targets))
    , m_signals([this] {
        for (const SaveFolder& folder : m_folders)
            folder.discard();
    })
{}

Saving::~Saving()
{
    const auto held = m_signals.heldBack();
    m_folders.clear();
}

Failure Saving::run()
{
    Failure (Saving::*const steps[])() = {
        &Saving::openFolders, &Saving::lookAtTargets, &Saving::takeEarlier, &Saving::write,
        &Saving::placeDump,   &Saving::bringToDisk,   &Saving::move,
    };
    for (const auto step : steps)
        if (Failure failure = (this->*step)())
            return failure;
    return std::nullopt;
}

/// Takes the folders of all targets, in the order of their names: two runs never wait for each other.
Failure Saving::openFolders()
{
    for (const QString& path : std::set<QString>(m_folderPaths.begin(), m_folderPaths.end())) {
        auto held = m_signals.heldBack();
        SaveFolder& folder = m_folders.emplace_back(path);
        held.unlock();
        if (Failure failure = openFolder(folder))
            return failure;
    }
    return std::nullopt;
}

Failure Saving::openFolder(SaveFolder& folder)
{
    const auto tryOpen = [&] {
        const auto held = m_signals.heldBack();
        return folder.tryOpen() || !folder.failure().isEmpty();
    };
    const auto ofFolder = std::find(m_folderPaths.begin(), m_folderPaths.end(), folder.path()) - m_folderPaths.begin();
    const SaveTarget& target = m_targets[static_cast<std::size_t>(ofFolder)];
    if (!waitFor(m_patience, tryOpen))
        return notWritten(
            target, QStringLiteral("another run has been writing into the folder for %1 seconds; if there is none, "
                                   "remove %2")
                        .arg(std::chrono::duration_cast<std::chrono::seconds>(m_patience.limit).count())
                        .arg(folder.lockFile()));
    if (!folder.failure().isEmpty())
        return notWritten(target, folder.failure());
    return std::nullopt;
}

/// Looks at the files when no other run can change them any more.
Failure Saving::lookAtTargets()
{
    const std::vector<SaveTarget> now = targetsOf(m_request);
    if (foldersOf(now) != m_folderPaths)
        return notWritten(m_targets[0], QStringLiteral("its folder or a link to it has changed meanwhile"));
    return obstacleTo(m_request);
}

/// Copies what the new run is added to.
Failure Saving::takeEarlier()
{
    const SaveTarget& ktl = m_targets[0];
    m_hasEarlier = m_request.existing == ExistingFiles::AreAddedTo && QFile::exists(ktl.path);
    if (!m_hasEarlier)
        return std::nullopt;
    if (const QString problem = problemOfEarlier(ktl.path); !problem.isEmpty())
        return notAllowed(ktl, problem);
    std::error_code error;
    if (std::filesystem::copy_file(encodedPath(ktl.path), folderAt(0).scratchFile(os::scratchName::newKtl), error))
        return std::nullopt;
    return notWritten(ktl, QStringLiteral("the file cannot be copied: ") + qt_error_string(error.value()));
}

Failure Saving::write()
{
    std::exception_ptr error;
    const WriteRun guardedRun = [&](std::FILE* out, int* errorCode) {
        try {
            return m_writeRun(out, errorCode);
        } catch (...) {
            error = std::current_exception();
            return false;
        }
    };
    const std::string newKtl = folderAt(0).scratchFile(os::scratchName::newKtl);
    const KtlSaveMode mode = m_hasEarlier ? KtlSaveMode::Append : KtlSaveMode::Overwrite;
    const KtlSaveResult result =
        m_request.hasDump ? saveKtlFile(newKtl, mode, guardedRun) : saveKtlFileOnly(newKtl, mode, guardedRun);
    if (error != nullptr)
        std::rethrow_exception(error);
    if (result.status == KtlSaveStatus::Saved)
        return std::nullopt;
    return notWritten(result.status == KtlSaveStatus::CannotWriteDump ? m_targets[1] : m_targets[0], reasonOf(result));
}

/// The dump is written beside the new file; one that belongs in another folder has to be on the disk of that one.
Failure Saving::placeDump()
{
    const std::string written = dumpPathOf(folderAt(0).scratchFile(os::scratchName::newKtl));
    const std::string placed = moves().back().from;
    std::error_code error;
    if (!m_request.hasDump || written == placed || std::filesystem::copy_file(written, placed, error))
        return std::nullopt;
    return notWritten(m_targets[1], QStringLiteral("the file cannot be written: ") + qt_error_string(error.value()));
}

/// Waits until all is on the disk, so that no name ever leads to a file that a power cut has emptied.
Failure Saving::bringToDisk()
{
    const std::vector<os::FileMove> all = moves();
    for (std::size_t index = 0; index < all.size(); ++index) {
        if (!os::syncFile(all[index].from))
            return notWritten(m_targets[index],
                              QStringLiteral("the file cannot be written in full: ") + qt_error_string(errno));
        os::takeOverRights(all[index].from, all[index].to); // which may close the file to its user, so it comes last
    }
    return std::nullopt;
}

Failure Saving::move()
{
    const std::vector<os::FileMove> all = moves();
    auto held = m_signals.heldBack();
    if (const os::FileMove* const failed = os::moveAll(all)) {
        const int reason = errno;
        const SaveTarget& target = m_targets[static_cast<std::size_t>(failed - all.data())];
        if (reason != EEXIST)
            return notWritten(target,
                              QStringLiteral("the file cannot be replaced by the new one: ") + qt_error_string(reason));
        return notAllowed(target, m_request.existing == ExistingFiles::Stay
                                      ? fileExistsWords()
                                      : QStringLiteral("a file of this name has just appeared"));
    }
    held.unlock();
    for (const SaveFolder& folder : m_folders)
        os::syncFolder(encodedPath(folder.path()));
    return std::nullopt;
}

/// @param target  position in `m_targets`, whose folder is open
SaveFolder& Saving::folderAt(std::size_t target)
{
    return *std::find_if(m_folders.begin(), m_folders.end(),
                         [&](const SaveFolder& folder) { return folder.path() == m_folderPaths[target]; });
}

/// The KTL file, and after it its dump. Beside a file that the run is added to, and where files are to be replaced,
/// the dump replaces an old one.
std::vector<os::FileMove> Saving::moves()
{
    struct Names
    {
        const char* fresh;
        const char* kept;
        bool replaces;
    };
    const bool stay = m_request.existing == ExistingFiles::Stay;
    const Names names[] = {
        {os::scratchName::newKtl, os::scratchName::keptKtl,
         m_request.existing == ExistingFiles::AreReplaced || m_hasEarlier},
        {os::scratchName::newDump, os::scratchName::keptDump, !stay},
    };
    std::vector<os::FileMove> all;
    for (std::size_t index = 0; index < m_targets.size(); ++index) {
        const SaveFolder& folder = folderAt(index);
        all.push_back({folder.scratchFile(names[index].fresh), encodedPath(m_targets[index].path),
                       folder.scratchFile(names[index].kept), names[index].replaces});
    }
    return all;
}

} // namespace

Failure saveAtomically(const SaveRequest& request, const WriteRun& writeRun, const Patience& patience)
{
    return Saving(request, writeRun, patience).run();
}

} // namespace cli
