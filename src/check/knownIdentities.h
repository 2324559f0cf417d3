// knownIdentities.h - which identities the devices of the files of a call have.
#pragma once

#include "check/finding.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <map>
#include <tuple>
#include <vector>

namespace check {

/// Compares the devices of each file with those of the files before it.
class KnownIdentities
{
public:
    /// Adds the devices of the next file.
    /// @param file         as findings name it
    /// @param units        of the file; its modules do not count
    /// @param firstNumber  of its first device, over all files from 1
    /// @return             a finding for each device that has the identity of one in an earlier file, which the finding
    ///                     names: the first one that has it. Identities without a product code are not compared.
    [[nodiscard]] std::vector<Finding> add(const QString& file, const std::vector<UnitName>& units,
                                           std::size_t firstNumber);

private:
    using Identity = std::tuple<std::uint32_t, std::uint32_t, std::uint32_t>;
    struct Holder
    {
        std::size_t number;
        std::size_t file; ///< place in `m_files`
    };

    std::vector<QString> m_files;
    std::map<Identity, Holder> m_holders;
};

} // namespace check
