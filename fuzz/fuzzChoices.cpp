// fuzzChoices.cpp - any bytes as a choices file: its choices are made in loaded devices, and these are written as KTL
// items.
#include "fuzzStreams.h"

#include "choices/file.h"
#include "esi/esiFile.h"
#include "ktl/ktlExport.h"

#include <QBuffer>

#include <cstdlib>
#include <stdexcept>

namespace {

/// The devices to choose for, as they are loaded.
std::vector<struct_FilenameDevice> loadedFiles()
{
    QDomDocument document;
    EsiLoadResult result = loadEsiFile(QStringLiteral(CHOOSABLE_DEVICES), document);
    if (result.status != EsiLoadStatus::Loaded || result.file.device.empty())
        std::abort(); // there is nothing to fuzz
    return {result.file};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::vector<struct_FilenameDevice> loaded = loadedFiles();
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QBuffer file(&bytes);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    std::vector<struct_FilenameDevice> files = loaded;
    const choices::DeviceSelectors selectors(files);
    choices::Problems problems;
    static_cast<void>(choices::applyFile(choices::textOf(file), files, selectors, problems));
    if (problems.count() > 0)
        return 0; // the command writes nothing then
    const FileHandle out = streamToNowhere();
    int errorCode = 0;
    try {
        static_cast<void>(writeDevices(
            out.get(), files, [](std::size_t, std::size_t) { return true; }, &errorCode));
    } catch (const std::out_of_range&) { // a PDO on a sync manager that its device does not have
    }
    return 0;
}
