// generatedEsi.h - ESI files of a wanted size or number of devices, for benchmarks. The same call gives the same text.
#pragma once

#include <QString>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

class QTemporaryFile;

/// Bytes of one MB, as file sizes are counted here.
inline constexpr std::size_t megabyte = 1'000'000;

/// An ESI file of drives, made and removed together with the object. Each drive has a product and two names, three
/// FMMUs, four sync managers, PDOs with entries, CoE with startup commands, and two operation modes of the distributed
/// clocks.
class GeneratedEsi
{
public:
    /// As many drives as it takes to reach a size. Each has a dictionary of 400 objects with their data types.
    /// @throws std::runtime_error if the file cannot be written
    [[nodiscard]] static GeneratedEsi ofSize(std::size_t bytes);

    /// A number of drives without dictionaries.
    /// @throws std::runtime_error if the file cannot be written
    [[nodiscard]] static GeneratedEsi ofDevices(std::size_t count);

    GeneratedEsi(GeneratedEsi&& other) noexcept;
    GeneratedEsi& operator=(GeneratedEsi&& other) noexcept;
    GeneratedEsi(const GeneratedEsi&) = delete;
    GeneratedEsi& operator=(const GeneratedEsi&) = delete;
    ~GeneratedEsi();

    [[nodiscard]] QString path() const;
    [[nodiscard]] double megabytes() const { return static_cast<double>(m_bytes) / static_cast<double>(megabyte); }
    [[nodiscard]] std::size_t devices() const { return m_devices; }

private:
    /// @param isComplete  whether enough devices are there, given their number and the bytes written so far
    GeneratedEsi(int objectsPerDevice, const std::function<bool(std::size_t devices, std::size_t bytes)>& isComplete);

    void write(const std::string& text);

    std::unique_ptr<QTemporaryFile> m_file;
    std::size_t m_bytes = 0;
    std::size_t m_devices = 0;
};
