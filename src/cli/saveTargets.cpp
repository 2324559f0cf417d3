#include "cli/saveTargets.h"

#include "ktl/writing/ktlFile.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace cli {

namespace {

/// The file that a path leads to, which may be a link.
QString linkTarget(const QString& path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? path : canonical;
}

bool areSameFile(const SaveTarget& one, const SaveTarget& other)
{
    std::error_code isNotThere;
    return std::filesystem::equivalent(encodedPath(one.path), encodedPath(other.path), isNotThere);
}

/// What may be wrong with a file. A device or pipe would be replaced by a file of its name.
struct Obstacle
{
    bool isThere;
    SaveFailure::Kind kind;
    QString reason;
};

std::optional<SaveFailure> obstacleAt(const SaveTarget& target, ExistingFiles existing)
{
    using Kind = SaveFailure::Kind;
    const QFileInfo file(target.path);
    const Obstacle obstacles[] = {
        {file.isDir(), Kind::NotWritten, QStringLiteral("this is a folder")},
        {file.exists() && !file.isFile(), Kind::NotWritten, QStringLiteral("this is no regular file")},
        {file.exists() && existing == ExistingFiles::Stay, Kind::NotAllowed, fileExistsWords()},
        {file.exists() && !file.isWritable(), Kind::NotWritten,
         QStringLiteral("the file does not have write permission")},
        {file.isSymLink() && !file.exists(), Kind::NotWritten,
         QStringLiteral("this is a link to a file that does not exist")},
    };
    for (const Obstacle& obstacle : obstacles)
        if (obstacle.isThere)
            return SaveFailure{obstacle.kind, target.named, obstacle.reason};
    return std::nullopt;
}

} // namespace

std::string encodedPath(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

QString dumpOf(const QString& ktlPath)
{
    return QFile::decodeName(dumpPathOf(encodedPath(ktlPath)).c_str());
}

std::vector<SaveTarget> targetsOf(const SaveRequest& request)
{
    std::vector<SaveTarget> targets{{request.path, linkTarget(request.path)}};
    if (request.hasDump)
        targets.push_back({dumpOf(request.path), linkTarget(dumpOf(request.path))});
    return targets;
}

std::optional<SaveFailure> obstacleTo(const SaveRequest& request)
{
    const std::vector<SaveTarget> targets = targetsOf(request);
    if (request.hasDump && areSameFile(targets[0], targets[1]))
        return SaveFailure{SaveFailure::Kind::NotAllowed, targets[1].named,
                           QStringLiteral("this is the same file as %1, whose dump it would be").arg(request.path)};
    for (const SaveTarget& target : targets)
        if (std::optional<SaveFailure> failure = obstacleAt(target, request.existing))
            return failure;
    return std::nullopt;
}

QString fileExistsWords()
{
    return QStringLiteral("the file exists; --force replaces it, --append adds to it");
}

} // namespace cli
