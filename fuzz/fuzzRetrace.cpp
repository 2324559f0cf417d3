// fuzzRetrace.cpp - any bytes as a choices file: its choices are made, exported and found again in the export, which
// has to become the same bytes. Bytes that begin as a KTL file are an export of devices that may be quite others.
#include "choices/file.h"
#include "choices/writer.h"
#include "esi/esiFile.h"
#include "ktl/ktlExport.h"
#include "ktl/reading/ktlItemWalk.h"
#include "retrace/exportedRun.h"
#include "retrace/runRetrace.h"
#include "system/cStreams.h"

#include <QBuffer>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace {

using Bytes = std::vector<unsigned char>;
using Files = std::vector<struct_FilenameDevice>;

/// The devices to choose for, as they are loaded.
Files loadedFiles()
{
    QDomDocument document;
    EsiLoadResult result = loadEsiFile(QStringLiteral(CHOOSABLE_DEVICES), document);
    if (result.status != EsiLoadStatus::Loaded || result.file.device.empty())
        std::abort(); // there is nothing to fuzz
    return {result.file};
}

/// The export with choices; empty if they do not fit, or make what cannot be exported.
Bytes exportWith(const Files& loaded, const QByteArray& text)
{
    Files files = loaded;
    const choices::DeviceSelectors selectors(files);
    choices::Problems problems;
    const choices::MadeChoices made = choices::applyFile(text, files, selectors, problems);
    if (problems.count() > 0)
        return {};
    const auto isSelected = [&](std::size_t file, std::size_t device) {
        return !made.exported.has_value() || made.exported->count({file, device}) > 0;
    };
    os::MemoryFile out;
    int errorCode = 0;
    try {
        if (!writeDevices(out.stream(), files, isSelected, &errorCode, QDateTime(QDate(2026, 11, 22), QTime(12, 0))))
            return {};
    } catch (const std::out_of_range&) { // a PDO on a sync manager that its device does not have
        return {};
    }
    out.finish();
    return {out.data(), out.data() + out.size()};
}

/// The choices of the first run of an export.
QByteArray choicesOf(const Files& loaded, const Bytes& bytes)
{
    const KtlWalk walk = walkItems(bytes);
    const std::vector<std::size_t> runs = retrace::runsWithDevices(walk);
    if (runs.empty())
        return {};
    std::ostringstream text;
    const retrace::ExportedRun run = retrace::exportedRunAt(bytes, walk, runs.front());
    choices::writeChoices(text, retrace::retracedRun(loaded, run.blocks).choices, {});
    return QByteArray::fromStdString(text.str());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::uint8_t firstByteOfKtl = 0x40; // of 40000, the code of the first item
    static const Files loaded = loadedFiles();
    if (size > 0 && data[0] == firstByteOfKtl) {
        static_cast<void>(choicesOf(loaded, {data, data + size}));
        return 0;
    }
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QBuffer file(&bytes);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const Bytes exported = exportWith(loaded, choices::textOf(file));
    if (!exported.empty() && exportWith(loaded, choicesOf(loaded, exported)) != exported)
        std::abort();
    return 0;
}
