#include "find/ktlScan.h"

#include "ktl/format/itemBytes.h"
#include "ktl/format/ktlFormat.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <string_view>

namespace find {

namespace {

constexpr std::string_view lineEnds("\r\n\0", 3);

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
            const auto head = recordAt<KtlItemHead>(walk.offset, left);
            walk.end = left < sizeof head ? KtlWalkEnd::CutHead : KtlWalkEnd::ImpossibleHead;
            if (left < sizeof head || isImpossible(head))
                break;
            const std::size_t present = std::min<std::size_t>(left, head.m_iSize);
            take(head.m_iItemType, walk.offset, present);
            m_result.isTooMuch = m_result.found.size() > maxFound;
            walk.offset += present;
            walk.end = head.m_iItemType == KTL_ITEM_END ? KtlWalkEnd::Whole : KtlWalkEnd::NoEndItem;
            if (present < head.m_iSize)
                walk.end = KtlWalkEnd::CutItem;
        }
        if (m_result.isTooMuch)
            m_result.found.pop_back();
        return std::move(m_result);
    }

private:
    /// @param present  bytes that are there; others are 0
    template<typename Record> Record recordAt(std::size_t offset, std::size_t present)
    {
        const QByteArray bytes = bytesAt(offset, std::min(present, sizeof(Record)));
        return ItemBytes(reinterpret_cast<const unsigned char*>(bytes.constData()),
                         static_cast<std::size_t>(bytes.size()))
            .template at<Record>(0);
    }

    QByteArray bytesAt(std::size_t offset, std::size_t length)
    {
        return m_file.seek(static_cast<qint64>(offset)) ? m_file.read(static_cast<qint64>(length)) : QByteArray();
    }

    void take(std::uint32_t type, std::size_t offset, std::size_t present)
    {
        if (type == KTL_ITEM_General)
            beginBlock(offset, recordAt<struct_KTL_EtherCatDeviceType>(offset, present));
        else if (type == KTL_ITEM_END)
            m_isInBlock = false;
        else if (type == KTL_ITEM_DeviceMoreInfo && m_isInBlock)
            takeNames(offset, present);
        else if (type == KTL_ITEM_ModuleType && m_isInBlock && m_wanted == Wanted::DevicesAndModules)
            addModule(offset, recordAt<struct_KTL_moduleType>(offset, present));
    }

    void beginBlock(std::size_t offset, const struct_KTL_EtherCatDeviceType& general)
    {
        m_block = m_result.found.size();
        m_isInBlock = true;
        m_names.clear();
        m_result.found.push_back(
            {FoundKind::Device, general.m_iVendor_Id, general.m_iProduct_Code, general.m_iRevision_No, {}, {}, offset});
    }

    void addModule(std::size_t offset, const struct_KTL_moduleType& module)
    {
        const std::size_t number = m_result.found.size() - m_block;
        m_result.found.push_back({FoundKind::Module,
                                  m_result.found[m_block].vendor,
                                  module.TypeAttributes.ModuleIdent,
                                  0,
                                  {},
                                  nameAt(number),
                                  offset});
    }

    /// The first line is the name of the device, the others are those of its modules.
    void takeNames(std::size_t offset, std::size_t present)
    {
        constexpr std::size_t maxLength = std::size_t{1024} * 1024;
        constexpr std::size_t textStart = offsetof(struct_KTL_DeviceMoreInfo, m_aStrChar);
        const std::size_t length = std::min(maxLength, present - std::min(present, textStart));
        m_names = bytesAt(offset + textStart, length).toStdString();
        m_names.resize(std::min(m_names.find('\0'), m_names.size()));
        for (std::size_t index = m_block; index < m_result.found.size(); ++index)
            m_result.found[index].name = nameAt(index - m_block);
    }

    [[nodiscard]] std::string nameAt(std::size_t number) const
    {
        std::string_view names = m_names;
        for (; number > 0; --number) {
            const std::size_t end = names.find('\n');
            names.remove_prefix(end == std::string_view::npos ? names.size() : end + 1);
        }
        return std::string(names.substr(0, names.find_first_of(lineEnds)));
    }

    QIODevice& m_file;
    Wanted m_wanted;
    KtlScan m_result;
    std::size_t m_block = 0; ///< the device of the block in what was found
    bool m_isInBlock = false;
    std::string m_names; ///< of the block
};

} // namespace

KtlScan scanKtl(QIODevice& file, Wanted wanted)
{
    return KtlFileScan(file, wanted).scan();
}

} // namespace find
