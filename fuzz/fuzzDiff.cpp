// fuzzDiff.cpp - two files in any bytes, each a KTL file if it begins as one, else an ESI file: they are compared in
// both directions, with themselves, and an ESI file of one device with its own export.
#include "nowhere.h"

#include "cli/inputKind.h"
#include "diff/compareDevices.h"
#include "diff/devicePairs.h"
#include "diff/differenceWriter.h"
#include "diff/source.h"
#include "esi/esiFile.h"
#include "ktl/ktlExport.h"
#include "system/cStreams.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// A file that can be compared.
struct ReadFile
{
    std::vector<unsigned char> bytes; ///< of a KTL file
    std::optional<xml::Tree> tree;
    struct_FilenameDevice record;
    std::vector<bool> areComplete;
    std::unique_ptr<diff::Source> source; ///< null if the bytes are no file
};

bool beginsAsKtl(std::string_view bytes)
{
    const std::size_t shown = std::min(bytes.size(), static_cast<std::size_t>(cli::bytesOfKind));
    return cli::inputKindOf(QByteArray(bytes.data(), static_cast<int>(shown))) == cli::InputKind::Ktl;
}

std::unique_ptr<ReadFile> fileOf(std::string_view bytes)
{
    auto file = std::make_unique<ReadFile>();
    if (beginsAsKtl(bytes)) {
        file->bytes.assign(bytes.begin(), bytes.end());
        file->source = std::make_unique<diff::Source>(file->bytes);
        return file;
    }
    EsiTreeResult read = esiTreeOf(std::string(bytes));
    if (!read.tree.has_value())
        return file;
    EsiLoadResult loaded = declaredFileFrom(*read.tree, QStringLiteral("fuzz.xml"), Dictionaries::AreSkipped);
    if (loaded.status != EsiLoadStatus::Loaded)
        return file;
    file->tree = std::move(read.tree);
    file->record = std::move(loaded.file);
    file->areComplete = completeDevices(file->record);
    file->source = std::make_unique<diff::Source>(*file->tree, file->record, file->areComplete);
    return file;
}

/// Compares, and writes what differs in every form.
std::vector<diff::Difference> differencesOf(diff::Source& before, diff::Source& after, bool isOfAll)
{
    Nowhere nowhere;
    std::ostream out(&nowhere);
    const diff::WrittenFile oldFile{"old", "old", &before};
    const diff::WrittenFile newFile{"new", "new", &after};
    const auto lines = diff::makeLineWriter(out, oldFile, newFile, {40, true, true});
    const auto json = diff::makeJsonWriter(out, oldFile, newFile);
    diff::CompareRequest request;
    request.pairs = diff::devicePairsOf(before.devices(), after.devices());
    request.isOfAll = isOfAll;
    diff::DifferenceCounts counts;
    std::vector<diff::Difference> all;
    lines->begin();
    json->begin();
    diff::compareSources(before, after, request, [&](const diff::ComparedDevices& compared) {
        lines->write(compared);
        json->write(compared);
        for (const diff::Difference& difference : compared.differences)
            counts.count(difference.weight);
        all.insert(all.end(), compared.differences.begin(), compared.differences.end());
    });
    lines->end(counts);
    json->end(counts);
    return all;
}

/// What both directions tell alike: area, value and which side is which, but not the words for parts.
std::vector<std::string> keysOf(const std::vector<diff::Difference>& differences, bool isSwapped)
{
    std::vector<std::string> keys;
    for (const diff::Difference& difference : differences) {
        const std::string before = diff::shown(difference.before);
        const std::string after = diff::shown(difference.after);
        keys.push_back(std::string(nameOf(difference.spot.area)) + '/' + std::string(difference.key) + '/'
                       + (isSwapped ? after + '/' + before : before + '/' + after));
    }
    std::sort(keys.begin(), keys.end());
    return keys;
}

void compareOwnExport(ReadFile& file)
{
    if (!file.tree.has_value() || file.record.device.size() != 1)
        return;
    os::MemoryFile written;
    std::vector<struct_FilenameDevice> files{file.record};
    int code = 0;
    try {
        static_cast<void>(writeDevices(
            written.stream(), files, [](std::size_t /*file*/, std::size_t /*device*/) { return true; }, &code,
            QDateTime(QDate(2026, 1, 1), QTime(0, 0))));
    } catch (const std::out_of_range&) {
        return;
    }
    written.finish();
    const std::vector<unsigned char> bytes(written.data(), written.data() + written.size());
    diff::Source exported(bytes);
    if (!differencesOf(*file.source, exported, false).empty())
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t lengthBytes = 2;
    constexpr unsigned byteBits = 8;
    if (size < lengthBytes)
        return 0;
    const std::size_t length = static_cast<std::size_t>(data[0]) | (static_cast<std::size_t>(data[1]) << byteBits);
    const std::string_view bytes(reinterpret_cast<const char*>(data) + lengthBytes, size - lengthBytes);
    const std::size_t cut = std::min(length, bytes.size());
    const std::unique_ptr<ReadFile> before = fileOf(bytes.substr(0, cut));
    const std::unique_ptr<ReadFile> after = fileOf(bytes.substr(cut));
    for (ReadFile* const file : {before.get(), after.get()})
        if (file->source != nullptr) {
            if (!differencesOf(*file->source, *file->source, true).empty())
                std::abort();
            compareOwnExport(*file);
        }
    if (before->source == nullptr || after->source == nullptr)
        return 0;
    for (const bool isOfAll : {false, true}) {
        const auto there = differencesOf(*before->source, *after->source, isOfAll);
        const auto back = differencesOf(*after->source, *before->source, isOfAll);
        if (keysOf(there, false) != keysOf(back, true))
            std::abort();
    }
    return 0;
}
