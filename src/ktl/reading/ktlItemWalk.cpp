#include "ktl/reading/ktlItemWalk.h"

#include "ktl/format/ktlFormat.h"

#include <algorithm>
#include <limits>

namespace {

constexpr std::size_t wordSize = sizeof(std::uint32_t);

/// Whether a number is negative where the format takes it as a signed one.
bool isNegative(std::uint32_t number)
{
    return number > static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max());
}

bool isZeroFrom(const ItemBytes& item, std::size_t offset)
{
    for (; offset < item.size(); ++offset)
        if (item.at<std::uint8_t>(offset) != 0)
            return false;
    return true;
}

/// Whether an item ends, from an offset on, as an export fills it: with a copy of its head, and zeros after that.
bool isFillFrom(const ItemBytes& item, std::size_t headSize, std::size_t offset)
{
    const std::size_t copied = std::min(headSize, item.size() - offset);
    for (std::size_t index = 0; index < copied; ++index)
        if (item.at<std::uint8_t>(offset + index) != item.at<std::uint8_t>(index))
            return false;
    return isZeroFrom(item, offset + copied);
}

/// The values of complete accesses reach to the fill, or to the last whole word.
void addAccessValues(const ItemBytes& item, std::size_t headSize, KtlItemParts& parts)
{
    const std::size_t words = (item.size() - parts.recordsEnd) / wordSize;
    const std::size_t end = parts.recordsEnd + words * wordSize;
    while (parts.tailEnd < end && !isFillFrom(item, headSize, parts.tailEnd))
        parts.tailEnd += wordSize;
    parts.fillEnd = parts.tailEnd < end ? item.size() : parts.tailEnd;
}

void addText(const ItemBytes& item, KtlItemParts& parts)
{
    while (parts.tailEnd < item.size() && item.at<char>(parts.tailEnd) != '\0')
        ++parts.tailEnd;
    parts.fillEnd = isZeroFrom(item, parts.tailEnd) ? item.size() : parts.tailEnd;
}

void addTail(const KtlItemLayout& layout, const ItemBytes& item, KtlItemParts& parts)
{
    parts.tailEnd = parts.recordsEnd;
    parts.fillEnd = parts.recordsEnd;
    switch (layout.tail) {
    case KtlTail::Nothing:
        break;
    case KtlTail::AccessValues:
        addAccessValues(item, layout.head.size(), parts);
        break;
    case KtlTail::Text:
        addText(item, parts);
        break;
    case KtlTail::Words:
        parts.tailEnd += (item.size() - parts.recordsEnd) / wordSize * wordSize;
        parts.fillEnd = parts.tailEnd;
        break;
    }
}

template<typename Narrow> std::int64_t numberAt(const ItemBytes& item, std::size_t offset)
{
    return item.at<Narrow>(offset);
}

} // namespace

bool isImpossible(const KtlItemHead& head)
{
    return isNegative(head.m_iItemType) || isNegative(head.m_iSize) || head.m_iSize < sizeof head;
}

KtlWalk walkItems(const unsigned char* bytes, std::size_t size)
{
    KtlWalk walk;
    walk.end = KtlWalkEnd::CutHead; // unless there is an item
    while (walk.offset < size) {
        const std::size_t left = size - walk.offset;
        const unsigned char* const start = bytes + walk.offset;
        const auto head = ItemBytes(start, left).at<KtlItemHead>(0);
        if (left < sizeof head) {
            walk.end = KtlWalkEnd::CutHead;
            return walk;
        }
        if (isImpossible(head)) {
            walk.end = KtlWalkEnd::ImpossibleHead;
            return walk;
        }
        const std::size_t present = std::min<std::size_t>(left, head.m_iSize);
        walk.items.push_back({walk.offset, head.m_iItemType, head.m_iSize, ItemBytes(start, present)});
        walk.offset += present;
        walk.end = head.m_iItemType == KTL_ITEM_END ? KtlWalkEnd::Whole : KtlWalkEnd::NoEndItem;
        if (present < head.m_iSize)
            walk.end = KtlWalkEnd::CutItem;
    }
    return walk;
}

KtlWalk walkItems(const std::vector<unsigned char>& file)
{
    return walkItems(file.data(), file.size());
}

bool KtlHeads::goOn(const std::vector<unsigned char>& file)
{
    while (file.size() - std::min(m_next, file.size()) >= sizeof(KtlItemHead)) {
        const auto head = ItemBytes(file.data() + m_next, sizeof(KtlItemHead)).at<KtlItemHead>(0);
        if (isImpossible(head))
            return false;
        m_next += head.m_iSize;
    }
    return true;
}

KtlItemParts partsOf(const KtlItemLayout& layout, const ItemBytes& item)
{
    KtlItemParts parts;
    for (const KtlField& field : layout.head)
        if (field.end() <= item.size())
            parts.headEnd = field.end();
    parts.recordsEnd = parts.headEnd;
    parts.tailEnd = parts.headEnd;
    parts.fillEnd = parts.headEnd;
    if (parts.headEnd < layout.head.size())
        return parts;
    if (layout.announcedRecords != nullptr) {
        const std::size_t room = (item.size() - parts.headEnd) / layout.record.size();
        parts.records = std::min(layout.announcedRecords(item), room);
        parts.recordsEnd += parts.records * layout.record.size();
    }
    addTail(layout, item, parts);
    return parts;
}

std::int64_t numberIn(const ItemBytes& item, std::size_t record, const KtlField& field, std::size_t index)
{
    const std::size_t offset = record + field.offset + index * field.width;
    switch (field.width) {
    case sizeof(std::uint8_t):
        return field.isSigned ? numberAt<std::int8_t>(item, offset) : numberAt<std::uint8_t>(item, offset);
    case sizeof(std::uint16_t):
        return field.isSigned ? numberAt<std::int16_t>(item, offset) : numberAt<std::uint16_t>(item, offset);
    default:
        return field.isSigned ? numberAt<std::int32_t>(item, offset) : numberAt<std::uint32_t>(item, offset);
    }
}
