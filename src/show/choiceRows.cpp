#include "show/choiceRows.h"

#include "editing/moduleData.h"
#include "editing/startupRows.h"
#include "model/pdoAccess.h"
#include "model/startupAccess.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>

namespace show {

namespace {

/// A device after it has been selected, made of what that reads. It borrows the PDOs and slots of the other device as
/// long as it lives: they can be too big for a copy.
class SelectedDevice
{
public:
    /// @throws std::out_of_range as `renewModuleData`
    explicit SelectedDevice(struct_EtherCatDevice& lender)
        : m_loan(lender, m_selected)
    {
        m_selected.m_iDeviceType = lender.m_iDeviceType;
        m_selected.m_iDriveAxies = lender.m_iDriveAxies;
        m_selected.Mailbox.COE.Attributes = lender.Mailbox.COE.Attributes;
        m_selected.vSM = lender.vSM;
        renewModuleData(m_selected);
    }

    [[nodiscard]] const struct_EtherCatDevice& device() const { return m_selected; }

private:
    class Loan
    {
    public:
        Loan(struct_EtherCatDevice& lender, struct_EtherCatDevice& borrower)
            : m_lender(lender)
            , m_borrower(borrower)
        {
            swap();
        }
        ~Loan() { swap(); }
        Loan(const Loan&) = delete;
        Loan& operator=(const Loan&) = delete;
        Loan(Loan&&) = delete;
        Loan& operator=(Loan&&) = delete;

    private:
        void swap() noexcept
        {
            std::swap(m_lender.Slots, m_borrower.Slots);
            m_lender.RxPdo.vpdo.swap(m_borrower.RxPdo.vpdo);
            m_lender.TxPdo.vpdo.swap(m_borrower.TxPdo.vpdo);
        }

        struct_EtherCatDevice& m_lender;
        struct_EtherCatDevice& m_borrower;
    };

    struct_EtherCatDevice m_selected;
    Loan m_loan;
};

template<typename Record, typename IsSame>
bool areSame(const std::vector<Record>& left, const std::vector<Record>& right, IsSame isSame)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), isSame);
}

bool isSameCommand(const struct_moduleInitCmd& left, const struct_moduleInitCmd& right)
{
    return indexOf(left) == indexOf(right) && left.SubIndex == right.SubIndex && left.DataBytes == right.DataBytes
           && left.Data == right.Data && left.Transition == right.Transition;
}

bool isSamePdo(const modulePdo& left, const modulePdo& right)
{
    return indexOf(left) == indexOf(right) && left.Instances == right.Instances
           && entriesOf(left).size() == entriesOf(right).size();
}

/// Sources of the commands of one list, which begin at a place of theirs.
struct SourcesOfList
{
    std::vector<StartupSource>& sources;
    std::size_t first;
};

SourcesOfList sourcesOf(StartupSources& sources, const struct_EtherCatDevice& device, StartupList list)
{
    if (list == StartupList::DeviceEoe)
        return {sources.eoe, 0};
    return {sources.coe, list == StartupList::DeviceCoe ? 0 : device.Mailbox.COE.InitCmd.vinitcmd.size()};
}

} // namespace

bool isSameAfterSelection(struct_EtherCatDevice& device)
{
    if (device.Slots.vslot.empty())
        return true;
    try {
        const SelectedDevice borrower(device);
        const struct_EtherCatDevice& selected = borrower.device();
        return areSame(device.mRxPdo.mpdo, selected.mRxPdo.mpdo, isSamePdo)
               && areSame(device.mTxPdo.mpdo, selected.mTxPdo.mpdo, isSamePdo)
               && areSame(device.mMailbox.COE.vinitcmd, selected.mMailbox.COE.vinitcmd, isSameCommand);
    } catch (const std::out_of_range&) {
        return false; // no choices can be made for it
    }
}

ChoicePdoRows choicePdoRows(const struct_EtherCatDevice& device, bool isSame)
{
    const auto inputs = static_cast<std::int64_t>(device.RxPdo.vpdo.size());
    ChoicePdoRows rows{0, inputs, std::nullopt, std::nullopt};
    if (isSame) {
        rows.moduleOutputs = inputs + static_cast<std::int64_t>(device.TxPdo.vpdo.size());
        rows.moduleInputs = *rows.moduleOutputs + static_cast<std::int64_t>(device.mRxPdo.mpdo.size());
    }
    return rows;
}

void setChoiceRows(StartupSources& sources, const struct_EtherCatDevice& device, bool isSame)
{
    constexpr std::int64_t endOfRows = std::numeric_limits<std::uint16_t>::max(); // see `forEachStartupList`
    std::int64_t row = 0;
    forEachStartupList(device, [&](const auto& /*commands*/, std::uint16_t count, StartupList list) {
        if (list == StartupList::ModuleCoe && !isSame)
            return;
        const SourcesOfList ofList = sourcesOf(sources, device, list);
        for (std::size_t position = 0; position < count && row < endOfRows; ++position)
            ofList.sources.at(ofList.first + position).choiceRow = row++;
    });
}

} // namespace show
