// randomChoices.h - choices by chance that devices take.
#pragma once

#include "choices/choices.h"
#include "editing/deviceEdits.h"
#include "model/deviceRecords.h"

#include <cstdint>
#include <random>
#include <vector>

/// Makes choices for loaded files by chance: each device that is chosen from takes its choices without a problem.
class RandomChoices
{
public:
    /// @param files  as they were loaded; have to outlive this
    RandomChoices(const std::vector<struct_FilenameDevice>& files, std::uint32_t seed)
        : m_files(files)
        , m_chance(seed)
    {}

    [[nodiscard]] choices::FileChoices next();

private:
    /// A number below a limit above 0.
    [[nodiscard]] std::uint32_t below(std::size_t limit)
    {
        return static_cast<std::uint32_t>(m_chance() % static_cast<std::uint32_t>(limit));
    }
    [[nodiscard]] bool happens(std::uint32_t percent) { return below(100) < percent; }

    void chooseDevice(struct_FilenameDevice& file, const struct_EtherCatDevice& device, DeviceClicks& clicks,
                      choices::DeviceChoices& choices);
    void chooseSettings(const struct_EtherCatDevice& device, choices::DeviceChoices& choices);
    void chooseModules(const struct_FilenameDevice& file, const struct_EtherCatDevice& device,
                       choices::DeviceChoices& choices);
    void chooseModuleLinks(const struct_FilenameDevice& file, choices::DeviceChoices& choices);
    void chooseSyncManagers(const struct_EtherCatDevice& device, choices::DeviceChoices& choices);
    void chooseEntries(const struct_EtherCatDevice& device, choices::DeviceChoices& choices);
    void chooseEntriesOf(std::uint32_t row, const struct_EtherCatDevice& device, choices::DeviceChoices& choices);
    void chooseStartup(const struct_EtherCatDevice& device, choices::DeviceChoices& choices);
    void setValues(choices::StartupChoice& choice);

    const std::vector<struct_FilenameDevice>& m_files;
    std::mt19937 m_chance;
};
