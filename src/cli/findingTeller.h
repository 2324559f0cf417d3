// findingTeller.h - tells the findings of the files of a call, in the order of the arguments.
#pragma once

#include "check/findingWriter.h"
#include "check/knownIdentities.h"
#include "check/rules/fileRules.h"
#include "cli/checkRequest.h"
#include "cli/sameInputs.h"
#include "cli/selectedDevices.h"

#include <QString>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace cli {

/// Adds to each file what only shows when it is compared with those before, and tells its findings.
class FindingTeller
{
public:
    /// @param request   has to outlive this
    /// @param selected  of which findings are told
    FindingTeller(const CheckRequest& request, SelectedDevices selected, Console& console);

    /// Leaves out all but files that cannot be used, since arguments do not fit the files. To be called before the
    /// first file.
    /// @param problems  why, in the words of the messages; at least one
    void refuse(std::vector<std::string> problems);

    /// To be called for each file.
    void tell(const QString& path, check::CheckedFile file);

    /// To be called after the last file.
    [[nodiscard]] ExitCode end();

private:
    [[nodiscard]] bool isAsked(check::FileRule rule) const;
    void addComparison(const QString& path, check::CheckedFile& file);
    void keepSelected(check::Findings& findings) const;

    const CheckRequest& m_request;
    SelectedDevices m_selected;
    std::unique_ptr<check::FindingWriter> m_writer;
    check::CheckOutcome m_outcome; ///< of the files that were told
    check::KnownIdentities m_identities;
    SameInputs m_given;
    std::size_t m_file = 0; ///< place of the next file
    std::size_t m_devices = 0; ///< of the files that were told
};

} // namespace cli
