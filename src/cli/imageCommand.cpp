#include "cli/imageCommand.h"

#include "cli/chosenInputs.h"
#include "cli/imageInput.h"
#include "cli/imageRequest.h"
#include "cli/progress.h"
#include "cli/selectorRecord.h"
#include "cli/takenResults.h"
#include "show/textColumns.h"
#include "text/shownText.h"

#include <algorithm>
#include <memory>
#include <ostream>
#include <utility>
#include <vector>

namespace cli {

const SubCommandText imageText{
    QLatin1String("image"),
    QLatin1String("shows the process image, byte by byte"),
    QLatin1String("FILE..."),
    QLatin1String("ESI and KTL files; - for standard input."),
    QLatin1String("Shows the process image of each device as the controller lays it out: at which byte and bit of its\n"
                  "sync manager each signal is, its length, PDO, object, name, type and link, with gaps, modules in\n"
                  "their places, and the bytes that are used beside the length of the sync manager."),
    QLatin1String("  ktl image drive.xml\n"
                  "  ktl image coupler.xml --choices choices.json --device 2\n"
                  "  ktl image machine.ktl --csv > signals.csv\n"
                  "  ktl image drive.xml --svg > drive.svg\n"),
};

namespace {

/// Shows the images of the files of a call, in the order of the arguments.
class ImageTeller
{
public:
    ImageTeller(const ImageRequest& request, SelectedDevices selected, Console& console)
        : m_request(request)
        , m_selected(std::move(selected))
        , m_console(console)
        , m_writer(image::makeWriter(request.form, console.results, console.terminalWidth.value_or(show::anyWidth)))
    {
        m_writer->begin();
    }

    void tell(const QString& path, ImageInput input)
    {
        std::vector<image::Device>& devices = input.file.devices;
        for (image::Device& device : devices)
            device.number = ++m_devices;
        const auto isLeftOut = [this](const image::Device& device) {
            return m_selected.has_value() && m_selected->count({m_file, device.owner.index}) == 0;
        };
        devices.erase(std::remove_if(devices.begin(), devices.end(), isLeftOut), devices.end());
        ++m_file;
        if (input.fault.has_value())
            report(*input.fault, path, m_console.messages);
        else
            write(input.file);
        for (const image::Device& device : devices)
            tellNotes(path, device);
        if (!input.problemAtEnd.isEmpty())
            m_console.messages.error(path, input.problemAtEnd);
    }

    [[nodiscard]] ExitCode end()
    {
        m_writer->end();
        return m_console.messages.exitCode();
    }

private:
    void write(const image::File& file)
    {
        const Progress::Pause pause;
        m_writer->write(file);
    }

    /// Notes are in the image, but a table has no room for them. That something is missing is told in any case.
    void tellNotes(const QString& path, const image::Device& device)
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

    const ImageRequest& m_request;
    SelectedDevices m_selected;
    Console& m_console;
    std::unique_ptr<image::Writer> m_writer;
    std::size_t m_file = 0; ///< place of the next file
    std::size_t m_devices = 0; ///< of the files that were told
};

using ImageWork = RetriedWork<ImageInput>;

/// Shows files one after the other, as they come.
ExitCode showAll(const ImageRequest& request, ImageWork& work, SelectedDevices selected, Console& console)
{
    ImageTeller teller(request, std::move(selected), console);
    // At a terminal the results themselves show that work goes on, and the line would come between them.
    takeAll(work, request.paths, "showing", !console.terminalWidth.has_value(),
            [&](const QString& path, ImageInput input) {
                console.inputs.count(input.road);
                teller.tell(path, std::move(input));
            });
    return teller.end();
}

/// Tells which files cannot be read, since one of them may be why the arguments do not fit, and shows none.
/// @param inputs  of all files; each has a `fault`
template<typename Input>
ExitCode refuse(const ImageRequest& request, const std::vector<Input>& inputs, Console& console)
{
    ImageTeller teller(request, {}, console);
    for (std::size_t index = 0; index < inputs.size(); ++index)
        if (inputs[index].fault.has_value())
            report(*inputs[index].fault, request.paths.at(static_cast<int>(index)), console.messages);
    return teller.end();
}

/// Reads all files before the first one is shown, since a selector may mean a device of the last one.
ExitCode showSelected(const ImageRequest& request, ImageWork& work, Console& console)
{
    std::vector<ImageInput> inputs;
    std::vector<struct_FilenameDevice> records;
    takeAll(work, request.paths, "reading", true, [&](const QString& path, ImageInput input) {
        console.inputs.count(input.road);
        records.push_back(selectorRecordOf(path, input.file.devices));
        inputs.push_back(std::move(input));
    });
    SelectedDevices selected = selectedDevices(request.selectors, records, console.messages);
    if (!selected.has_value())
        return refuse(request, inputs, console);
    ImageTeller teller(request, std::move(selected), console);
    for (int index = 0; index < request.paths.size(); ++index)
        teller.tell(request.paths.at(index), std::move(inputs[static_cast<std::size_t>(index)]));
    return teller.end();
}

/// Reads all files, makes the choices, and shows the files as they are then.
ExitCode showChosen(const ImageRequest& request, Console& console)
{
    const ChosenInputs chosen = readChosenInputs(request.paths, request.selectors, *request.choices, console);
    if (!chosen.areMade)
        return refuse(request, chosen.inputs, console);
    ImageWork work(request.paths, console.cores, [&](std::size_t index) {
        const QString& path = request.paths.at(static_cast<int>(index));
        ImageInput input = withTree(path, chosen.inputs[index], [&](const TreeInput& whole) {
            return imageInputOf(path, whole, console.inputs.files[index]);
        });
        input.road = EsiRoad::Plain; // it has been counted
        return input;
    });
    return showAll(request, work, chosen.selected, console);
}

} // namespace

ExitCode runImage(const QStringList& arguments, Console& console)
{
    CommandLine line(imageText, imageOptions());
    if (const std::optional<ExitCode> ended = line.parse(arguments, console))
        return *ended;
    if (const QString problem = problemOfImage(line); !problem.isEmpty())
        return line.refuse(problem, console);
    const ImageRequest request = imageRequestFrom(line);
    if (request.choices.has_value())
        return showChosen(request, console);
    ImageWork work(request.paths, console.cores, [&](std::size_t index) {
        const QString& path = request.paths.at(static_cast<int>(index));
        const TreeInput input = readTreeInput(path, AcceptedInputs::EsiAndKtl);
        return imageInputOf(path, input, input.record);
    });
    return request.selectors.isEmpty() ? showAll(request, work, {}, console) : showSelected(request, work, console);
}

} // namespace cli
