#include "cli/show/showSource.h"

#include "cli/inputFile.h"
#include "cli/ktlInput.h"
#include "cli/show/exportCounts.h"
#include "cli/show/showWords.h"
#include "ktl/ktlExport.h"
#include "model/XMLParsing.h"

#include <QDate>
#include <QDateTime>
#include <QFile>

#include <array>
#include <cstdio>

namespace {

enum class FileKind
{
    Esi,
    Ktl,
    Neither
};

/// Whether text begins with "<" behind blanks, a byte order mark, and the zeros of wider characters.
bool beginsAsXml(std::FILE* stream)
{
    constexpr std::array markBytes{0xEF, 0xBB, 0xBF, 0xFE, 0xFF};
    std::rewind(stream);
    int zeros = 0;
    for (int byte = std::fgetc(stream); byte != EOF; byte = std::fgetc(stream)) {
        const bool isMark = std::find(markBytes.begin(), markBytes.end(), byte) != markBytes.end();
        zeros = byte == 0 ? zeros + 1 : 0;
        if (byte == '<')
            return true;
        if (!isMark && byte != ' ' && byte != '\t' && byte != '\r' && byte != '\n' && (byte != 0 || zeros > 3))
            return false;
    }
    return false;
}

/// Whether a first item is of the format, also of a version that has more items than this one.
bool beginsAsKtl(std::FILE* stream)
{
    constexpr std::uint32_t firstCode = 40000;
    constexpr std::uint32_t lastCode = 40999;
    std::rewind(stream);
    std::uint32_t type = 0;
    return std::fread(&type, 1, sizeof type, stream) == sizeof type
           && (isKnownItem(type) || (type >= firstCode && type <= lastCode));
}

FileKind kindOf(std::FILE* stream)
{
    const bool isKtl = beginsAsKtl(stream);
    const bool isXml = !isKtl && beginsAsXml(stream);
    std::rewind(stream);
    if (isKtl)
        return FileKind::Ktl;
    return isXml ? FileKind::Esi : FileKind::Neither;
}

ShownFile ktlFile(const QString& path, std::FILE* stream, Messages& messages)
{
    ShownFile file;
    file.path = path;
    file.bytes = bytesOf(stream);
    file.walk = walkItems(file.bytes);
    file.isComplete = file.walk.end == KtlWalkEnd::Whole;
    for (KtlDeviceBlock& block : deviceBlocksOf(file.walk)) {
        StartupSources sources = startupSourcesOf(block);
        file.devices.push_back({std::move(block), std::move(sources), true});
    }
    if (const QString problem = problemAtEnd(file.walk); !problem.isEmpty())
        messages.error(path, problem);
    return file;
}

// ---- Exports ----

/// What an export writes of one device of the loaded file.
struct Exported
{
    std::vector<unsigned char> bytes; ///< as much as it wrote if it failed
    bool isWhole = false; ///< whether it came to its end
};

void tellNoRoom(ShownFile& file, Messages& messages)
{
    messages.error(file.path, QStringLiteral("there is no room for a temporary file"));
    file.isComplete = false;
}

Exported exportOf(std::size_t device, ShownFile& file, Messages& messages)
{
    const FileHandle stream(std::tmpfile());
    if (stream == nullptr) {
        tellNoRoom(file, messages);
        return {};
    }
    const auto isThisOne = [device](std::size_t /*file*/, std::size_t candidate) { return candidate == device; };
    const QDateTime anyTime(QDate(1970, 1, 1), QTime(0, 0)); // it is not shown: this is no export
    int errorCode = 0;
    Exported written;
    try {
        written.isWhole = writeDevices(stream.get(), g_xmlfiledevices, isThisOne, &errorCode, anyTime)
                          && std::fflush(stream.get()) == 0;
        if (!written.isWhole)
            tellNoRoom(file, messages);
    } catch (const std::out_of_range& error) {
        messages.error(file.path, rangeErrorText(error));
        file.isComplete = false;
    }
    std::rewind(stream.get());
    written.bytes = bytesOf(stream.get());
    return written;
}

/// Warns of a device whose export cannot be read in full.
void tellWhatIsLost(struct_EtherCatDevice& device, ShownFile& file, Messages& messages)
{
    const FileHandle scratch(std::tmpfile());
    if (scratch == nullptr) {
        tellNoRoom(file, messages);
        return;
    }
    const struct_module* const module = firstMiscountedModule(device, g_xmlfiledevices.back(), scratch.get());
    if (std::ferror(scratch.get()) != 0)
        tellNoRoom(file, messages);
    else if (module != nullptr)
        messages.warning(file.path, WarningCode::ModuleCommands,
                         QStringLiteral("device \"%1\": in an export, module %2 does not have as many startup commands "
                                        "as it announces; the items behind them cannot be found")
                             .arg(QString::fromStdString(device.Name),
                                  QString::fromStdString(hexText(module->TypeAttributes.ModuleIdent))));
}

/// A device as a reader finds it in an export.
ShownDevice exportedDevice(std::size_t device, ShownFile& file, Messages& messages)
{
    struct_EtherCatDevice& loaded = g_xmlfiledevices.back().device[device];
    const Exported written = exportOf(device, file, messages);
    if (written.isWhole)
        tellWhatIsLost(loaded, file, messages);
    std::vector<KtlDeviceBlock> blocks = deviceBlocksOf(walkItems(written.bytes));
    blocks.resize(1);
    return {std::move(blocks.front()), startupSourcesOf(loaded), false};
}

std::optional<ShownFile> esiFile(const QString& path, std::FILE* stream, Messages& messages)
{
    g_xmlfiledevices.clear();
    QFile input;
    if (!input.open(stream, QIODevice::ReadOnly)) {
        messages.error(path, QStringLiteral("the file cannot be read: ") + input.errorString());
        return std::nullopt;
    }
    if (!loadOpenEsi(input, path, messages))
        return std::nullopt;
    ShownFile file;
    file.path = path;
    file.isEsi = true;
    file.isComplete = true;
    for (std::size_t device = 0; device < g_xmlfiledevices.back().device.size(); ++device)
        file.devices.push_back(exportedDevice(device, file, messages));
    return file;
}

} // namespace

std::optional<ShownFile> openShownFile(const QString& path, Messages& messages)
{
    const FileHandle stream = openSeekable(path, messages);
    if (stream == nullptr)
        return std::nullopt;
    switch (kindOf(stream.get())) {
    case FileKind::Esi:
        return esiFile(path, stream.get(), messages);
    case FileKind::Ktl:
        return ktlFile(path, stream.get(), messages);
    case FileKind::Neither:
        break;
    }
    messages.error(path, QStringLiteral("this is neither an ESI file nor a KTL file"));
    return std::nullopt;
}
