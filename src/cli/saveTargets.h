// saveTargets.h - the files that a run is to write, and what may be in its way.
#pragma once

#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace cli {

/// What becomes of files that exist.
enum class ExistingFiles
{
    Stay, ///< nothing is written then
    AreReplaced,
    AreAddedTo, ///< the KTL file keeps what it holds before the new run, the dump shows all of it
};

/// What is to be saved, and where.
struct SaveRequest
{
    QString path; ///< of the KTL file, as the user named it
    ExistingFiles existing = ExistingFiles::Stay;
    bool hasDump = true; ///< whether the text dump is written too
};

/// Why nothing was saved.
struct SaveFailure
{
    enum class Kind
    {
        NotAllowed, ///< the user did not ask for what would be necessary
        NotWritten,
    };
    Kind kind;
    QString file; ///< the KTL file or its dump
    QString reason;
};

/// A file to write.
struct SaveTarget
{
    QString named; ///< as the user named it, for messages
    QString path; ///< the file that it leads to: a link is followed
};

/// Path in the form that the system takes.
[[nodiscard]] std::string encodedPath(const QString& path);

/// Path of the text dump of a KTL file.
[[nodiscard]] QString dumpOf(const QString& ktlPath);

/// The KTL file, and after it its dump if there is to be one. The dump is beside the name that was given, and not
/// beside the file that a link of that name leads to.
[[nodiscard]] std::vector<SaveTarget> targetsOf(const SaveRequest& request);

/// Why the files must not be written as things are now, nothing if they may.
[[nodiscard]] std::optional<SaveFailure> obstacleTo(const SaveRequest& request);

/// The words for a file that must stay as it is.
[[nodiscard]] QString fileExistsWords();

} // namespace cli
