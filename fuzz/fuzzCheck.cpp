// fuzzCheck.cpp - any bytes as a KTL file if they begin as one, else as an ESI file: all rules are asked, and what they
// find is told in every form.
#include "nowhere.h"

#include "check/checkFile.h"
#include "check/findingWriter.h"
#include "check/knownIdentities.h"
#include "cli/inputKind.h"
#include "esi/esiFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <ostream>
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

/// Where a finding is, as those who read it know the place: the byte in a KTL file, else line and column.
std::pair<check::Where, check::Where> placeOf(const check::CheckedFile& file, const check::Finding& finding)
{
    if (check::hasOffsets(file.kind))
        return {finding.where, 0};
    return {finding.place.line, finding.place.column};
}

/// Findings are in the order of the file, and those of an ESI file have a line.
void verify(const check::CheckedFile& file)
{
    std::pair<check::Where, check::Where> last{0, 0};
    for (const check::Finding& finding : file.findings.list) {
        const auto place = placeOf(file, finding);
        if (place < last || (file.kind == check::FileKind::Esi && finding.place.line < 1) || finding.text.isEmpty())
            std::abort();
        last = place;
    }
}

/// A file has no identity of an earlier one where it is the first; the second time each of its devices has, but for
/// those without a product code.
void compareIdentities(const check::CheckedFile& file)
{
    const std::vector<check::UnitName>& units = file.findings.units;
    const auto isCompared = [](const check::UnitName& unit) {
        return unit.owner.kind == check::OwnerKind::Device && unit.product != 0;
    };
    check::KnownIdentities identities;
    const bool isFirst = identities.add(QStringLiteral("fuzz"), units, 1).empty();
    const std::size_t found = identities.add(QStringLiteral("again"), units, units.size() + 1).size();
    if (!isFirst || found != static_cast<std::size_t>(std::count_if(units.begin(), units.end(), isCompared)))
        std::abort();
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
    const std::vector<bool> areComplete = completeDevices(loaded.file);
    file.kind = check::FileKind::Esi;
    file.findings = check::checkEsi(
        {*read.tree, loaded.file, areComplete, {QStringLiteral("fuzz.xml")}, check::encodingFaultOf(bytes)});
    return file;
}

bool beginsAsKtl(const std::uint8_t* data, std::size_t size)
{
    const std::size_t shown = std::min(size, static_cast<std::size_t>(cli::bytesOfKind));
    const QByteArray beginning(reinterpret_cast<const char*>(data), static_cast<int>(shown));
    return cli::inputKindOf(beginning) == cli::InputKind::Ktl;
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
    compareIdentities(file);
    tellNowhere(file);
    return 0;
}
