#include "cli/imageCommand.h"

#include "cli/chosenInputs.h"
#include "cli/imageInput.h"
#include "cli/imageRequest.h"
#include "cli/imageTeller.h"
#include "cli/selectorRecord.h"
#include "cli/takenResults.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <new>
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

using Read = std::function<ImageInput(std::size_t file)>;
using ImageWork = RetriedWork<ImageInput>;

/// What has to be known of all files before the first device is shown: selectors may mean a device of the last one, and
/// a picture begins with its height.
struct FirstLook
{
    std::vector<ImageInput> inputs; ///< without sources where a file can be read again: they are large
    std::vector<struct_FilenameDevice> records; ///< for selectors
    std::vector<std::vector<std::int64_t>> heights; ///< of devices in a picture, by file
};

/// @param devices  of the files before
std::vector<std::int64_t> heightsOf(const ImageInput& input, std::size_t devices)
{
    std::vector<std::int64_t> heights;
    for (std::size_t index = 0; index < input.devices; ++index) {
        image::Device device = input.source->imageOf(index);
        device.number = devices + index + 1;
        heights.push_back(image::svgHeightOf(input.file, device));
    }
    return heights;
}

/// As from a file that is too large.
void dropForMemory(ImageInput& input)
{
    input.source.reset();
    input.devices = 0;
    input.fault = noMemory();
}

FirstLook firstLookAt(const ImageRequest& request, const Read& read, Console& console)
{
    FirstLook look;
    std::size_t devices = 0;
    ImageWork work(request.paths, console.cores, read);
    takeAll(work, request.paths, "reading", true, [&](const QString& path, ImageInput input) {
        console.inputs.count(input.road);
        std::vector<const facts::UnitFacts*> units;
        std::vector<std::int64_t>& heights = look.heights.emplace_back();
        try {
            for (std::size_t index = 0; index < input.devices; ++index)
                units.push_back(&input.source->unit(index));
            if (request.form == image::Form::Svg)
                heights = heightsOf(input, devices);
        } catch (const std::bad_alloc&) {
            units.clear();
            dropForMemory(input);
        }
        look.records.push_back(selectorRecordOf(path, units));
        devices += input.devices;
        if (canBeReadAgain(path))
            input.source.reset();
        input.isOutOfMemory = false; // it has been tried again
        look.inputs.push_back(std::move(input));
    });
    return look;
}

bool isMeant(const SelectedDevices& selected, std::size_t file, std::size_t device)
{
    return !selected.has_value() || selected->count({file, device}) != 0;
}

bool hasMeant(const SelectedDevices& selected, std::size_t file, std::size_t devices)
{
    for (std::size_t device = 0; device < devices; ++device)
        if (isMeant(selected, file, device))
            return true;
    return false;
}

/// The height of all devices that are to be shown.
std::int64_t heightOf(const FirstLook& look, const SelectedDevices& selected)
{
    std::int64_t height = 0;
    for (std::size_t file = 0; file < look.heights.size(); ++file)
        for (std::size_t device = 0; device < look.heights[file].size(); ++device)
            if (isMeant(selected, file, device))
                height += look.heights[file][device];
    return height;
}

/// Shows files one after the other, as they come.
ExitCode showAll(const ImageRequest& request, const Read& read, const SelectedDevices& selected, std::int64_t height,
                 Console& console)
{
    ImageWork work(request.paths, console.cores, read);
    ImageTeller teller(request, selected, height, console);
    // At a terminal the results themselves show that work goes on, and the line would come between them.
    takeAll(work, request.paths, "showing", !console.terminalWidth.has_value(),
            [&](const QString& path, const ImageInput& input) {
                console.inputs.count(input.road);
                teller.tell(path, input);
            });
    return teller.end();
}

/// Shows files of which much is known, reading again what is needed again.
ExitCode showAgain(const ImageRequest& request, const Read& read, FirstLook look, const SelectedDevices& selected,
                   Console& console)
{
    const std::int64_t height = heightOf(look, selected);
    const Read readAgain = [&](std::size_t file) {
        ImageInput& known = look.inputs.at(file);
        ImageInput input =
            known.source != nullptr || !hasMeant(selected, file, known.devices) ? std::move(known) : read(file);
        input.road = EsiRoad::Plain; // it has been counted
        return input;
    };
    return showAll(request, readAgain, selected, height, console);
}

/// Tells which files cannot be read, since one of them may be why the arguments do not fit, and shows none.
/// @param inputs  of all files; each has a `fault`
template<typename Input>
ExitCode refuse(const ImageRequest& request, const std::vector<Input>& inputs, Console& console)
{
    ImageTeller teller(request, {}, 0, console);
    for (std::size_t index = 0; index < inputs.size(); ++index)
        if (inputs[index].fault.has_value())
            report(*inputs[index].fault, request.paths.at(static_cast<int>(index)), console.messages);
    return teller.end();
}

/// Shows files as they are.
ExitCode showRead(const ImageRequest& request, Console& console)
{
    const Read read = [&](std::size_t index) {
        const QString& path = request.paths.at(static_cast<int>(index));
        return imageInputOf(path, std::make_shared<const TreeInput>(readTreeInput(path, AcceptedInputs::EsiAndKtl)));
    };
    if (request.selectors.isEmpty() && request.form != image::Form::Svg)
        return showAll(request, read, {}, 0, console);
    FirstLook look = firstLookAt(request, read, console);
    SelectedDevices selected;
    if (!request.selectors.isEmpty()) {
        selected = selectedDevices(request.selectors, look.records, console.messages);
        if (!selected.has_value())
            return refuse(request, look.inputs, console);
    }
    return showAgain(request, read, std::move(look), selected, console);
}

/// Reads all files, makes the choices, and shows the files as they are then.
ExitCode showChosen(const ImageRequest& request, Console& console)
{
    const ChosenInputs chosen = readChosenInputs(request.paths, request.selectors, *request.choices, console);
    if (!chosen.areMade)
        return refuse(request, chosen.inputs, console);
    const Read read = [&](std::size_t index) {
        const QString& path = request.paths.at(static_cast<int>(index));
        const TreeInput& kept = chosen.inputs[index];
        const bool isThere = kept.fault.has_value() || kept.tree.has_value();
        const std::shared_ptr<const TreeInput> whole =
            isThere ? std::shared_ptr<const TreeInput>(std::shared_ptr<const TreeInput>(), &kept)
                    : std::make_shared<const TreeInput>(readTreeInput(path, AcceptedInputs::Esi));
        ImageInput input = imageInputOf(path, whole, &console.inputs.files[index]);
        input.road = EsiRoad::Plain; // it has been counted
        return input;
    };
    if (request.form != image::Form::Svg)
        return showAll(request, read, chosen.selected, 0, console);
    return showAgain(request, read, firstLookAt(request, read, console), chosen.selected, console);
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
    return request.choices.has_value() ? showChosen(request, console) : showRead(request, console);
}

} // namespace cli
