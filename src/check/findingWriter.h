// findingWriter.h - tells the findings of files, one file after another.
#pragma once

#include "check/checkedFile.h"
#include "check/rules/rule.h"

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace check {

/// The form in which findings are told.
enum class FindingForm : std::uint8_t
{
    Lines, ///< as compilers write them
    LinesAndSummary, ///< for people, who are told how many there were
    Json,
    Sarif, ///< SARIF 2.1.0
};

/// How a check ended.
struct CheckOutcome
{
    FindingCounts counts; ///< of all files that were written
    std::vector<std::string> problems; ///< why no rule was asked: arguments that do not fit the files
    bool isWhole = true; ///< there is no problem, and all files can be used as they are
};

/// Writes findings to a stream. What is written is whole when `end` has been called, also where there are no files.
class FindingWriter
{
public:
    FindingWriter() = default;
    virtual ~FindingWriter() = default;
    FindingWriter(const FindingWriter&) = delete;
    FindingWriter& operator=(const FindingWriter&) = delete;
    FindingWriter(FindingWriter&&) = delete;
    FindingWriter& operator=(FindingWriter&&) = delete;

    virtual void begin() {}
    virtual void write(const CheckedFile& file) = 0;

    virtual void end(const CheckOutcome& outcome) = 0;
};

/// A writer of one form.
/// @param out    has to outlive it
/// @param rules  that were asked: SARIF lists them
[[nodiscard]] std::unique_ptr<FindingWriter> makeFindingWriter(FindingForm form, std::ostream& out,
                                                               const std::vector<const Rule*>& rules);

/// The writers of the forms.
[[nodiscard]] std::unique_ptr<FindingWriter> makeLineWriter(std::ostream& out, bool hasSummary);
[[nodiscard]] std::unique_ptr<FindingWriter> makeJsonWriter(std::ostream& out);
[[nodiscard]] std::unique_ptr<FindingWriter> makeSarifWriter(std::ostream& out, const std::vector<const Rule*>& rules);

} // namespace check
