// oversampling.h - which PDOs of a device stand for several, and for how many.
#pragma once

#include "model/deviceRecords.h"

#include <cstdint>
#include <limits>

/// Samples that one declared PDO stands for: their numbers count from `first` to `last`, both included.
struct SampleRange
{
    std::uint16_t first = 0;
    int last = 0;

    [[nodiscard]] bool isEmpty() const { return static_cast<int>(first) > last; }

    /// The sample number has 16 bits, so a range that reaches its end could never be counted through.
    [[nodiscard]] bool isEndless() const { return last >= std::numeric_limits<std::uint16_t>::max(); }
};

[[nodiscard]] inline SampleRange sampleRangeOf(const PdoAttributes& attributes)
{
    return {static_cast<std::uint16_t>(attributes.m_OSMin), attributes.m_OSMax};
}

/// Whether a PDO stands for samples. `m_OSMin` plays no part: a file that leaves it out still declares oversampling.
[[nodiscard]] inline bool isOversampled(const PdoAttributes& attributes)
{
    return attributes.m_OSFac >= 1 && attributes.m_OSMax >= 1 && attributes.m_OSIndexInc >= 1;
}

/// Whether a PDO is replaced by its samples. One whose range gives no sample, or no end of samples, stays as declared.
[[nodiscard]] inline bool isExpandable(const struct_PDOList& pdo)
{
    const SampleRange range = sampleRangeOf(pdo.Attributes);
    return isOversampled(pdo.Attributes) && !range.isEmpty() && !range.isEndless();
}

/// Replaces each oversampled PDO of a device by one PDO per sample.
void expandOversampledPdos(struct_EtherCatDevice& device);
