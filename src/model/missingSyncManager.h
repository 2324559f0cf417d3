// missingSyncManager.h - the range error of a PDO on a sync manager that its device does not have.
#pragma once

#include "model/deviceRecords.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

/// The standard range error, with its own words, that also knows which PDO of which device it is about.
class MissingSyncManager : public std::out_of_range
{
public:
    /// @param number   the sync manager that the PDO names
    /// @param present  how many the device has
    MissingSyncManager(const std::out_of_range& error, std::uint16_t pdoIndex, std::string pdoName, int number,
                       std::size_t present)
        : std::out_of_range(error)
        , m_pdoIndex(pdoIndex)
        , m_pdoName(std::move(pdoName))
        , m_number(number)
        , m_present(present)
    {}

    [[nodiscard]] std::uint16_t pdoIndex() const noexcept { return m_pdoIndex; }
    [[nodiscard]] const std::string& pdoName() const noexcept { return m_pdoName; }

    [[nodiscard]] int number() const noexcept { return m_number; }
    [[nodiscard]] std::size_t present() const noexcept { return m_present; }

    /// Name of the device; empty where the error was raised outside `onDevice`.
    [[nodiscard]] const std::string& device() const noexcept { return m_device; }
    void setDevice(const std::string& name) { m_device = name; }

    /// Path of the device's file; empty where the error was raised while a file is loaded.
    [[nodiscard]] const std::string& file() const noexcept { return m_file; }
    void setFile(const std::string& path) { m_file = path; }

private:
    std::uint16_t m_pdoIndex;
    std::string m_pdoName;
    int m_number;
    std::size_t m_present;
    std::string m_device;
    std::string m_file;
};

/// Runs `work()`, and tells an error on its way out which device it is about.
template<typename Work> void onDevice(const struct_EtherCatDevice& device, Work work)
{
    try {
        work();
    } catch (MissingSyncManager& error) {
        error.setDevice(device.Name);
        throw;
    }
}

/// As above, and of which file.
template<typename Work> void onDevice(const struct_FilenameDevice& file, const struct_EtherCatDevice& device, Work work)
{
    try {
        onDevice(device, work);
    } catch (MissingSyncManager& error) {
        error.setFile(file.xmlfilepath);
        throw;
    }
}
