// imageTeller.h - writes the process images of the files of a call.
#pragma once

#include "cli/console.h"
#include "cli/imageInput.h"
#include "cli/imageRequest.h"
#include "cli/selectedDevices.h"
#include "image/imageWriter.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace cli {

/// Shows the images of the files of a call, in the order of the arguments, one device after another.
class ImageTeller
{
public:
    /// @param height  see `image::makeWriter`
    ImageTeller(const ImageRequest& request, SelectedDevices selected, std::int64_t height, Console& console);

    void tell(const QString& path, const ImageInput& input);

    [[nodiscard]] ExitCode end();

private:
    [[nodiscard]] bool isMeant(std::size_t device) const;
    void tellDevices(const QString& path, const ImageSource& source);
    void tellNotes(const QString& path, const image::Device& device);

    const ImageRequest& m_request;
    SelectedDevices m_selected;
    Console& m_console;
    std::unique_ptr<image::Writer> m_writer;
    std::size_t m_file = 0; ///< place of the file
    std::size_t m_devices = 0; ///< of the files before it
};

} // namespace cli
