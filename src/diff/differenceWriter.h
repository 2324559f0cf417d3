// differenceWriter.h - writes differences in one of the forms that there are.
#pragma once

#include "diff/compareDevices.h"
#include "diff/difference.h"
#include "diff/source.h"
#include "show/textColumns.h"

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string>

namespace diff {

/// A file whose differences are written.
struct WrittenFile
{
    std::string name; ///< as it was named, with every byte
    std::string shownName; ///< for people
    const Source* source = nullptr; ///< has to outlive the writer
    bool isThere = true; ///< false for the side of a file that was added or has gone
};

/// How many differences there are of each weight.
struct DifferenceCounts
{
    std::size_t breaking = 0;
    std::size_t behaviour = 0;
    std::size_t text = 0;

    void count(Weight weight);
    [[nodiscard]] std::size_t all() const { return breaking + behaviour + text; }
};

/// Writes the differences of two files.
class DifferenceWriter
{
public:
    DifferenceWriter() = default;
    virtual ~DifferenceWriter() = default;
    DifferenceWriter(const DifferenceWriter&) = delete;
    DifferenceWriter& operator=(const DifferenceWriter&) = delete;
    DifferenceWriter(DifferenceWriter&&) = delete;
    DifferenceWriter& operator=(DifferenceWriter&&) = delete;

    virtual void begin() {}

    /// Devices, also those without a difference, or the modules of two files.
    virtual void write(const ComparedDevices& compared) = 0;

    /// @param counts  of all that was written
    virtual void end(const DifferenceCounts& counts) = 0;
};

/// How lines are written.
struct LineStyle
{
    std::size_t width = show::anyWidth; ///< columns of the terminal
    bool hasColors = false;
    bool hasSummary = false; ///< a last line with the counts
};

/// Lines for people: the devices, and below them each difference with its weight, then its places.
[[nodiscard]] std::unique_ptr<DifferenceWriter> makeLineWriter(std::ostream& out, const WrittenFile& before,
                                                               const WrittenFile& after, const LineStyle& style);

/// JSON; docs/diff.md has the keys.
[[nodiscard]] std::unique_ptr<DifferenceWriter> makeJsonWriter(std::ostream& out, const WrittenFile& before,
                                                               const WrittenFile& after);

} // namespace diff
