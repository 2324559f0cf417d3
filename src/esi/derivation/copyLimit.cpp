#include "esi/derivation/copyLimit.h"

#include "esi/derivation/modulesByIdent.h"
#include "esi/derivation/oversampling.h"
#include "model/pdoAccess.h"
#include "model/syncDirection.h"

#include <algorithm>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace {

/// What a generated startup command takes, its texts and the growth of its list included.
constexpr std::uint64_t bytesOfCommand = 400;

std::uint64_t bytesOf(const std::string& text)
{
    return text.size();
}

std::uint64_t bytesOf(const DataTypeSubItem& item);
std::uint64_t bytesOf(const EnumInfo& info);
std::uint64_t bytesOf(const struct_moduleInitCmd& command);
std::uint64_t bytesOf(const struct_Subitem& item);
std::uint64_t bytesOf(const struct_Object& object);
std::uint64_t bytesOf(const struct_DataTypes& type);

template<typename Record> std::uint64_t bytesOfAll(const std::vector<Record>& records)
{
    std::uint64_t bytes = 0;
    for (const Record& record : records)
        bytes += bytesOf(record);
    return bytes;
}

std::uint64_t bytesOf(const DataTypeSubItem& item)
{
    return sizeof item + bytesOf(item.Name) + bytesOf(item.Type);
}

std::uint64_t bytesOf(const EnumInfo& info)
{
    return sizeof info + bytesOf(info.Name) + bytesOf(info.Comment);
}

std::uint64_t bytesOf(const struct_moduleInitCmd& command)
{
    return bytesOfCommand + bytesOf(command.Comment) + bytesOf(command.strData)
           + command.m_CADataList.size() * sizeof(unsigned int);
}

std::uint64_t bytesOf(const struct_Subitem& item)
{
    return sizeof item + bytesOf(item.Name) + bytesOf(item.Info.Info.DefaultString);
}

std::uint64_t bytesOf(const struct_Object& object)
{
    return sizeof object + bytesOf(object.Name) + bytesOf(object.Comment) + bytesOf(object.Type)
           + bytesOf(object.Info.DefaultString) + bytesOfAll(object.Info.vsubitem);
}

std::uint64_t bytesOf(const struct_DataTypes& type)
{
    return sizeof type + bytesOf(type.Name) + bytesOf(type.BaseType) + type.varrayinfo.size() * sizeof(ArrayInfo)
           + bytesOfAll(type.vsubitem) + bytesOfAll(type.venuminfo);
}

/// An entry with the command that maps it.
template<typename Entry> std::uint64_t bytesOfEntry(const Entry& entry)
{
    return sizeof entry + bytesOf(entry.Name) + bytesOf(entry.DataType) + bytesOfCommand;
}

/// A PDO with the commands that map it: one clears it, one sets its count.
template<typename Pdo> std::uint64_t bytesOfPdo(const Pdo& pdo)
{
    std::uint64_t bytes = sizeof pdo + bytesOf(pdo.Name) + 2 * bytesOfCommand;
    for (const auto& entry : entriesOf(pdo))
        bytes += bytesOfEntry(entry);
    return bytes;
}

/// A module in a slot: once in the slot, once more in the lists of the device.
std::uint64_t bytesOfPlaced(const struct_module& module)
{
    std::uint64_t bytes = sizeof module + bytesOf(module.Name) + bytesOf(module.TypeAttributes.Name)
                          + bytesOf(module.TypeAttributes.ModuleClass);
    for (const auto* pdos : {&module.RxPdo.vpdo, &module.TxPdo.vpdo})
        for (const modulePdo& pdo : *pdos)
            bytes += 2 * bytesOfPdo(pdo);
    return bytes + 2 * bytesOfAll(module.Mailbox.COE.vinitcmd) + 2 * bytesOfAll(module.Dictionary.vobject)
           + 2 * bytesOfAll(module.Dictionary.vdatatype);
}

/// Adds up the copies of a file, up to the limit.
class CopyCount
{
public:
    explicit CopyCount(const struct_FilenameDevice& file)
        : m_modules(file)
    {}

    [[nodiscard]] bool isWithinLimit() const { return m_bytes <= maxCopiedBytes; }

    void add(const struct_EtherCatDevice& device)
    {
        m_pdosOn.clear();
        addDevicePdos(device.RxPdo.vpdo);
        addDevicePdos(device.TxPdo.vpdo);
        addModules(device.Slots.vslot);
        addAssignments(device.vSM);
    }

private:
    void addDevicePdos(const std::vector<struct_PDOList>& pdos)
    {
        for (const struct_PDOList& pdo : pdos) {
            const SampleRange range = sampleRangeOf(pdo.Attributes);
            const std::uint64_t copies =
                isExpandable(pdo) ? static_cast<std::uint64_t>(range.last - static_cast<int>(range.first)) + 1 : 1;
            m_pdosOn[pdo.Attributes.SM] += copies;
            m_bytes += copies > 1 ? copies * bytesOfPdo(pdo) : 0;
            if (!isWithinLimit())
                return;
        }
    }

    void addModules(const std::vector<struct_Slot>& deviceSlots)
    {
        for (const struct_Slot& slot : deviceSlots)
            for (const struct_ModuleIdent& ident : slot.ModuleIdent)
                if (isDefaultOf(slot, ident) && isWithinLimit())
                    if (const struct_module* const module = m_modules.find(ident.ModuleIdent))
                        addPlaced(*module);
    }

    void addPlaced(const struct_module& module)
    {
        const auto [known, isNew] = m_bytesOfModules.try_emplace(&module, 0);
        if (isNew)
            known->second = bytesOfPlaced(module);
        m_bytes += known->second;
        for (const auto* pdos : {&module.RxPdo.vpdo, &module.TxPdo.vpdo})
            for (const modulePdo& pdo : *pdos)
                ++m_pdosOn[pdo.Attributes.SM];
    }

    /// Of sync managers with the same number each is assigned all PDOs that name it.
    void addAssignments(const std::vector<struct_SM>& syncManagers)
    {
        for (const struct_SM& syncManager : syncManagers)
            if (carriesProcessData(syncManager.Smtype) && isWithinLimit())
                if (const auto found = m_pdosOn.find(syncManager.SM); found != m_pdosOn.end())
                    m_bytes += found->second * bytesOfCommand;
    }

    ModulesByIdent m_modules;
    std::unordered_map<const struct_module*, std::uint64_t> m_bytesOfModules;
    std::map<int, std::uint64_t> m_pdosOn; ///< PDOs of the device that is being added, by the number they name
    std::uint64_t m_bytes = 0;
};

} // namespace

bool isWithinCopyLimit(const struct_FilenameDevice& file)
{
    CopyCount count(file);
    return std::all_of(file.device.cbegin(), file.device.cend(), [&](const struct_EtherCatDevice& device) {
        count.add(device);
        return count.isWithinLimit();
    });
}
