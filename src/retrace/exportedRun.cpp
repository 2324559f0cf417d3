#include "retrace/exportedRun.h"

#include <QDate>
#include <QTime>

#include <algorithm>
#include <cstdint>
#include <optional>

namespace retrace {

namespace {

const QDate anyDate(1970, 1, 1);

/// A number of digits in three pairs: year or hour, month or minute, day or second.
struct ThreeParts
{
    explicit ThreeParts(std::uint32_t digits)
        : first(static_cast<int>(digits / (shift * shift)))
        , second(static_cast<int>(digits / shift % shift))
        , third(static_cast<int>(digits % shift))
    {}

    static constexpr std::uint32_t shift = 100;
    int first;
    int second;
    int third;
};

/// The time that a device shows; nothing if it shows none, or one that there is not.
std::optional<QDateTime> timeOf(const KtlDeviceBlock& block)
{
    if (!block.moreInfo.has_value())
        return std::nullopt;
    const ThreeParts ofDate(block.moreInfo->head.m_iDate);
    const ThreeParts ofTime(block.moreInfo->head.m_iTime);
    const QDate date(ofDate.first, ofDate.second, ofDate.third);
    const QTime time(ofTime.first, ofTime.second, ofTime.third);
    constexpr int firstYear = 1000; // of four digits, as an export can be given one
    constexpr int lastYear = 9999;
    if (!date.isValid() || date.year() < firstYear || date.year() > lastYear
        || !time.isValid()) // a QDateTime takes midnight for a time that there is not
        return std::nullopt;
    return QDateTime(date, time, Qt::UTC); // no hour of it is left out by a change of the clock
}

/// Offset of the first byte of a run.
std::size_t startOf(const KtlWalk& walk, std::size_t number)
{
    std::size_t run = 1;
    for (const KtlFileItem& item : walk.items) {
        if (run == number)
            return item.offset;
        run += item.type == KTL_ITEM_END ? 1 : 0;
    }
    return walk.offset;
}

} // namespace

std::vector<std::size_t> runsWithDevices(const KtlWalk& walk)
{
    std::vector<std::size_t> runs;
    for (const KtlBlockPlace& place : readableBlockPlacesOf(walk))
        if (runs.empty() || runs.back() != place.run)
            runs.push_back(place.run);
    return runs;
}

ExportedRun exportedRunAt(const std::vector<unsigned char>& bytes, const KtlWalk& walk, std::size_t number)
{
    ExportedRun run;
    run.first = startOf(walk, number);
    run.end = startOf(walk, number + 1);
    for (const KtlBlockPlace& place : readableBlockPlacesOf(walk)) {
        run.firstDevice += place.run < number ? 1 : 0;
        if (place.run != number)
            continue;
        const std::size_t first = walk.items[place.first].offset;
        const std::size_t end = place.end < walk.items.size() ? walk.items[place.end].offset : walk.offset;
        ExportedBlock block{deviceBlockAt(walk, place), {}, {}};
        block.bytes.assign(bytes.begin() + static_cast<std::ptrdiff_t>(first),
                           bytes.begin() + static_cast<std::ptrdiff_t>(std::min(end, bytes.size())));
        block.exportTime = timeOf(block.content).value_or(QDateTime(anyDate, QTime(0, 0), Qt::UTC));
        run.blocks.push_back(std::move(block));
    }
    return run;
}

QDateTime exportTimeOf(const ExportedRun& run)
{
    for (const ExportedBlock& block : run.blocks)
        if (timeOf(block.content).has_value())
            return block.exportTime;
    return {anyDate, QTime(0, 0), Qt::UTC};
}

bool showsTime(const ExportedRun& run)
{
    return std::any_of(run.blocks.begin(), run.blocks.end(),
                       [](const ExportedBlock& block) { return timeOf(block.content).has_value(); });
}

bool hasOneTime(const ExportedRun& run)
{
    const QDateTime time = exportTimeOf(run);
    return std::all_of(run.blocks.begin(), run.blocks.end(), [&](const ExportedBlock& block) {
        return !block.content.moreInfo.has_value() || timeOf(block.content) == time;
    });
}

} // namespace retrace
