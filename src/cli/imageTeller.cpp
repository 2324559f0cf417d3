#include "cli/imageTeller.h"

#include "cli/progress.h"
#include "show/textColumns.h"
#include "text/shownText.h"

#include <new>
#include <optional>
#include <utility>

namespace cli {

namespace {

/// Writes while no line about progress is in the way; a message takes it away by itself.
template<typename Work> void write(Work work)
{
    const Progress::Pause pause;
    work();
}

} // namespace

ImageTeller::ImageTeller(const ImageRequest& request, SelectedDevices selected, std::int64_t height, Console& console)
    : m_request(request)
    , m_selected(std::move(selected))
    , m_console(console)
    , m_writer(
          image::makeWriter(request.form, console.results, {console.terminalWidth.value_or(show::anyWidth), height}))
{
    m_writer->begin();
}

bool ImageTeller::isMeant(std::size_t device) const
{
    return !m_selected.has_value() || m_selected->count({m_file, device}) != 0;
}

void ImageTeller::tell(const QString& path, const ImageInput& input)
{
    if (input.fault.has_value()) {
        report(*input.fault, path, m_console.messages);
    } else {
        write([&] { m_writer->beginFile(input.file); });
        if (input.source != nullptr)
            tellDevices(path, *input.source);
        write([&] { m_writer->endFile(); });
    }
    m_devices += input.devices;
    ++m_file;
    if (!input.problemAtEnd.isEmpty())
        m_console.messages.error(path, input.problemAtEnd);
}

void ImageTeller::tellDevices(const QString& path, const ImageSource& source)
{
    for (std::size_t index = 0; index < source.devices(); ++index) {
        if (!isMeant(index))
            continue;
        std::optional<image::Device> device;
        try {
            device = source.imageOf(index);
        } catch (const std::bad_alloc&) {
            report(noMemory(), path, m_console.messages);
            return;
        }
        device->number = m_devices + index + 1;
        write([&] { m_writer->write(*device); });
        tellNotes(path, *device);
    }
}

/// Notes are in the image, but a table has no room for them. That something is missing is told in any case.
void ImageTeller::tellNotes(const QString& path, const image::Device& device)
{
    const bool isTable = m_request.form == image::Form::Csv;
    QString label = QStringLiteral("device %1").arg(device.number);
    if (!device.name.empty())
        label += QLatin1Char(' ') + shownText(QString::fromStdString(device.name));
    for (const std::string& note : device.notes) {
        const QString text = label + QStringLiteral(": ") + QString::fromStdString(note);
        if (!device.isComplete)
            m_console.messages.error(path, text);
        else if (isTable)
            m_console.messages.note(path, text);
    }
}

ExitCode ImageTeller::end()
{
    m_writer->end();
    return m_console.messages.exitCode();
}

} // namespace cli
