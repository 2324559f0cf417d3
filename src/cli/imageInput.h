// imageInput.h - the files that `ktl image` is given.
#pragma once

#include "cli/treeInput.h"
#include "image/imageRows.h"

#include <QString>

#include <cstddef>
#include <memory>
#include <optional>

namespace cli {

/// The devices of a file that was read. Their images are made one at a time, since one can be much larger than what the
/// file says of it.
class ImageSource
{
public:
    ImageSource() = default;
    virtual ~ImageSource() = default;
    ImageSource(const ImageSource&) = delete;
    ImageSource& operator=(const ImageSource&) = delete;
    ImageSource(ImageSource&&) = delete;
    ImageSource& operator=(ImageSource&&) = delete;

    [[nodiscard]] virtual std::size_t devices() const = 0;
    /// What the file says of a device, by its place.
    [[nodiscard]] virtual const facts::UnitFacts& unit(std::size_t device) const = 0;
    /// The image of a device with its notes and without its number.
    [[nodiscard]] virtual image::Device imageOf(std::size_t device) const = 0;
};

/// A file of which the process images can be made.
struct ImageInput
{
    image::File file;
    std::size_t devices = 0; ///< that it has
    std::unique_ptr<const ImageSource> source; ///< null if there is a fault, or if no device is asked for
    std::optional<InputFault> fault; ///< why there is nothing of it
    QString problemAtEnd; ///< of a KTL file, see `cli::problemAtEnd`
    EsiRoad road = EsiRoad::Plain;
    bool isOutOfMemory = false;
};

/// A file that was read.
/// @param input   has to outlive the result if it is not shared
/// @param record  of an ESI file, with the choices that are to be made; null for that of the input. Has to outlive the
///                result
[[nodiscard]] ImageInput imageInputOf(const QString& path, const std::shared_ptr<const TreeInput>& input,
                                      const struct_FilenameDevice* record = nullptr);

} // namespace cli
