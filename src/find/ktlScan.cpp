#include "find/ktlScan.h"

#include "ktl/format/itemBytes.h"
#include "ktl/format/ktlFormat.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <string_view>

namespace find {

namespace {

QByteArray bytesAt(QIODevice& file, std::size_t offset, std::size_t length)
{
    return file.seek(static_cast<qint64>(offset)) ? file.read(static_cast<qint64>(length)) : QByteArray();
}

/// @param present  bytes that are there; others are 0
template<typename Record> Record recordAt(QIODevice& file, std::size_t offset, std::size_t present)
{
    const QByteArray bytes = bytesAt(file, offset, std::min(present, sizeof(Record)));
    return ItemBytes(reinterpret_cast<const unsigned char*>(bytes.constData()), static_cast<std::size_t>(bytes.size()))
        .template at<Record>(0);
}

/// Goes through a file.
class KtlFileScan
{
public:
    KtlFileScan(QIODevice& file, Wanted wanted)
        : m_file(file)
        , m_wanted(wanted)
    {}

    KtlScan scan()
    {
        const auto size = static_cast<std::size_t>(m_file.size());
        KtlWalk& walk = m_result.end;
        walk.end = KtlWalkEnd::CutHead; // unless there is an item
        while (walk.offset < size && !m_result.isTooMuch) {
            const std::size_t left = size - walk.offset;
            const auto head = recordAt<KtlItemHead>(m_file, walk.offset, left);
            walk.end = left < sizeof head ? KtlWalkEnd::CutHead : KtlWalkEnd::ImpossibleHead;
            if (left < sizeof head || isImpossible(head))
                break;
            const std::size_t present = std::min<std::size_t>(left, head.m_iSize);
            take(head, walk.offset, present);
            m_result.isTooMuch = m_result.found.size() > maxFound;
            walk.offset += present;
            walk.end = head.m_iItemType == KTL_ITEM_END ? KtlWalkEnd::Whole : KtlWalkEnd::NoEndItem;
            if (present < head.m_iSize)
                walk.end = KtlWalkEnd::CutItem;
        }
        endBlock();
        if (m_result.isTooMuch)
            m_result.found.pop_back();
        return std::move(m_result);
    }

private:
    /// Of an item that is cut, the numbers would be wrong ones.
    void take(const KtlItemHead& head, std::size_t offset, std::size_t present)
    {
        const bool isWhole = present == head.m_iSize;
        if (head.m_iItemType == KTL_ITEM_General)
            endBlock();
        if (head.m_iItemType == KTL_ITEM_General && isWhole)
            beginBlock(offset, recordAt<struct_KTL_EtherCatDeviceType>(m_file, offset, present));
        else if (head.m_iItemType == KTL_ITEM_END)
            endBlock();
        else if (head.m_iItemType == KTL_ITEM_DeviceMoreInfo)
            m_names = {offset, present};
        else if (head.m_iItemType == KTL_ITEM_ModuleType && isWhole && m_isInBlock
                 && m_wanted == Wanted::DevicesAndModules)
            addModule(offset, recordAt<struct_KTL_moduleType>(m_file, offset, present));
    }

    void beginBlock(std::size_t offset, const struct_KTL_EtherCatDeviceType& general)
    {
        m_block = m_result.found.size();
        m_isInBlock = true;
        m_names = {};
        m_result.found.push_back(
            {FoundKind::Device, general.m_iVendor_Id, general.m_iProduct_Code, general.m_iRevision_No, {}, {}, offset});
    }

    void addModule(std::size_t offset, const struct_KTL_moduleType& module)
    {
        m_result.found.push_back(
            {FoundKind::Module, m_result.found[m_block].vendor, module.TypeAttributes.ModuleIdent, 0, {}, {}, offset});
    }

    /// Gives names: the first line is that of the device, the others are those of its modules.
    void endBlock()
    {
        if (!m_isInBlock)
            return;
        m_isInBlock = false;
        const std::string text = namesText();
        std::string_view left = text;
        for (std::size_t index = m_block; index < m_result.found.size() && !left.empty(); ++index) {
            const std::size_t end = std::min(left.find('\n'), left.size());
            const std::string_view line = left.substr(0, end);
            m_result.found[index].name = line.substr(0, line.find('\r'));
            left.remove_prefix(std::min(end + 1, left.size()));
        }
    }

    std::string namesText()
    {
        constexpr std::size_t maxLength = std::size_t{1024} * 1024;
        constexpr std::size_t textStart = offsetof(struct_KTL_DeviceMoreInfo, m_aStrChar);
        if (m_names.present <= textStart)
            return {};
        std::string text =
            bytesAt(m_file, m_names.offset + textStart, std::min(maxLength, m_names.present - textStart)).toStdString();
        text.resize(std::min(text.find('\0'), text.size()));
        return text;
    }

    /// Where an item lies, as far as it is there.
    struct ItemPlace
    {
        std::size_t offset = 0;
        std::size_t present = 0;
    };

    QIODevice& m_file;
    Wanted m_wanted;
    KtlScan m_result;
    std::size_t m_block = 0; ///< the device of the block in what was found
    bool m_isInBlock = false;
    ItemPlace m_names; ///< the last ones of the block; only these count
};

} // namespace

KtlScan scanKtl(QIODevice& file, Wanted wanted)
{
    return KtlFileScan(file, wanted).scan();
}

bool beginsWithDevice(QIODevice& file)
{
    constexpr int maxEmptyRuns = 1000;
    std::size_t offset = 0;
    for (int run = 0; run < maxEmptyRuns; ++run) {
        const auto head = recordAt<KtlItemHead>(file, offset, sizeof(KtlItemHead));
        if (head.m_iItemType == KTL_ITEM_General)
            return !isImpossible(head) && head.m_iSize >= sizeof(struct_KTL_EtherCatDeviceType);
        if (head.m_iItemType != KTL_ITEM_END || head.m_iSize != sizeof(struct_KTL_ItemEnd))
            return false;
        offset += head.m_iSize;
    }
    return false;
}

} // namespace find
