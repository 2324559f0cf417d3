// fuzzCheck.cpp - any bytes as a KTL file if they begin as one, else as an ESI file: all rules are asked, and what they
// find is told in every form.
#include "nowhere.h"

#include "check/checkFile.h"
#include "check/findingWriter.h"
#include "esi/esiFile.h"
#include "ktl/format/ktlCodes.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

void tellNowhere(const check::CheckedFile& file)
{
    using check::FindingForm;
    for (const FindingForm form :
         {FindingForm::Lines, FindingForm::LinesAndSummary, FindingForm::Json, FindingForm::Sarif}) {
        Nowhere nowhere;
        std::ostream out(&nowhere);
        const auto writer = check::makeFindingWriter(form, out, check::allRules());
        check::CheckOutcome outcome;
        outcome.counts.add(file.findings);
        writer->begin();
        writer->write(file);
        writer->end(outcome);
    }
}

/// Findings are in the order of the file, and those of an ESI file have a line.
void verify(const check::CheckedFile& file)
{
    check::Where last = 0;
    for (const check::Finding& finding : file.findings.list) {
        if (finding.where < last || (file.kind == check::FileKind::Esi && finding.place.line < 1)
            || finding.text.isEmpty())
            std::abort();
        last = finding.where;
    }
}

check::CheckedFile checkedKtl(const std::vector<unsigned char>& bytes)
{
    check::CheckedFile file;
    file.kind = check::FileKind::Ktl;
    file.findings = check::checkKtl(bytes);
    return file;
}

/// @return  of unknown kind if the bytes are no ESI file
check::CheckedFile checkedEsi(const std::string& bytes)
{
    check::CheckedFile file;
    const EsiTreeResult read = esiTreeOf(bytes);
    if (!read.tree.has_value())
        return file;
    EsiLoadResult loaded = declaredFileFrom(*read.tree, QStringLiteral("fuzz.xml"), Dictionaries::AreSkipped);
    if (loaded.status != EsiLoadStatus::Loaded)
        return file;
    bool isComplete = true;
    try {
        completeFile(loaded.file);
    } catch (const std::out_of_range&) { // a PDO on a sync manager that its device does not have
        isComplete = false;
    }
    file.kind = check::FileKind::Esi;
    file.findings = check::checkEsi({*read.tree, loaded.file, isComplete, {QStringLiteral("fuzz.xml")}});
    return file;
}

bool beginsAsKtl(const std::uint8_t* data, std::size_t size)
{
    std::uint32_t type = 0;
    if (size < sizeof type)
        return false;
    std::memcpy(&type, data, sizeof type);
    return type == KTL_ITEM_END || (type >= KTL_ITEM_General && type < KTL_ITEM_General + 1000);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    check::CheckedFile file = beginsAsKtl(data, size)
                                  ? checkedKtl(std::vector<unsigned char>(data, data + size))
                                  : checkedEsi(std::string(reinterpret_cast<const char*>(data), size));
    file.name = file.shownName = file.uri = "fuzz";
    if (file.kind == check::FileKind::Unknown)
        return 0;
    verify(file);
    tellNowhere(file);
    return 0;
}
