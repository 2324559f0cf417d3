#include "ktl/reading/ktlReader.h"

#include "ktl/reading/itemHeads.h"
#include "ktl/reading/ktlReadItems.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

namespace {

constexpr int nullFile = -1;
constexpr int impossibleHead = -2;

/// The records of one run under construction.
struct RunBeingRead
{
    struct_FilenameDevice file;
    struct_EtherCatDevice device;
    struct_commentmodule modules;
};

/// Adds the device to its file. @return  whether there was one
bool closeDevice(RunBeingRead& run)
{
    const bool isThere = !run.device.Name.empty();
    if (isThere) {
        run.file.Vendor_Id = run.device.TypeAttributes.m_iVendor_Id;
        run.file.device.push_back(std::move(run.device));
    }
    run.device = {};
    return isThere;
}

/// Adds the module to its file, as a group of its own. @return  whether there was one
bool closeModule(RunBeingRead& run)
{
    const bool isThere = !run.modules.vmodule.empty();
    if (isThere)
        run.file.vcommentmodule.push_back(std::move(run.modules));
    run.modules = {};
    return isThere;
}

/// Closes a run: it becomes one entry of the list of files, unless it held nothing.
void closeRun(RunBeingRead& run, const std::string& path)
{
    const bool hadDevice = closeDevice(run);
    const bool hadModule = closeModule(run);
    if (hadDevice || hadModule) {
        run.file.xmlfilepath = path;
        g_xmlfiledevices.push_back(std::move(run.file));
    }
    run.file = {};
}

/// What an item closes before it is applied.
/// ODD, KEPT: a device does not close the module before it, although modules come after the device that they belong to.
/// One would expect it to; the next module or the end of the run does, and modules belong to the file, so nothing is
/// lost. Pinned by tst_KtlReader::deviceDoesNotCloseTheModuleBeforeIt.
void closeBefore(std::uint32_t itemType, RunBeingRead& run, const std::string& path)
{
    if (itemType == KTL_ITEM_General)
        closeDevice(run);
    else if (itemType == KTL_ITEM_ModuleType)
        closeModule(run);
    else if (itemType == KTL_ITEM_END)
        closeRun(run, path);
}

/// Reads an item after its head, as far as the file reaches. It grows with what is there, not with what is announced.
void readItem(std::FILE* file, const KtlItemHead& head, std::vector<unsigned char>& item)
{
    const std::size_t announced = head.m_iSize;
    item.resize(sizeof head);
    std::memcpy(item.data(), &head, sizeof head);
    std::array<unsigned char, 4096> block; // what is read of it only counts
    while (item.size() < announced) {
        const std::size_t wanted = std::min(block.size(), announced - item.size());
        const std::size_t read = std::fread(block.data(), 1, wanted, file);
        item.insert(item.end(), block.data(), block.data() + read);
        if (read < wanted)
            return;
    }
}

/// The loop over the items.
/// ODD, KEPT: a file that is cut short reads like one that ends well: what the last end item closed is kept, and the
/// rest is dropped without a word, where one would expect an error. Pinned by tst_KtlReaderHostile::cutAtEveryByte.
/// @return  0, or the code of an error
int readItems(std::FILE* file, const std::string& path)
{
    RunBeingRead run;
    std::vector<unsigned char> item;
    ItemHeads heads(file);
    while (heads.next()) {
        const KtlItemHead head{static_cast<std::uint32_t>(heads.type()), static_cast<std::uint32_t>(heads.size())};
        readItem(file, head, item);
        closeBefore(head.m_iItemType, run, path);
        applyItem({&run.file, run.device, &run.modules}, {item.data(), item.size()}); // an unknown item is passed over
    }
    return heads.endAtImpossibleHead() ? impossibleHead : KTL_NO_ERROR;
}

} // namespace

bool device_writektltodevices(std::FILE* fileIn, const QString& xmlfilepath, int* piErrorCode)
{
    int errorCode = nullFile;
    if (fileIn != nullptr) {
        static_cast<void>(std::fseek(fileIn, 0, SEEK_SET)); // a stream that cannot seek is read from where it is
        errorCode = readItems(fileIn, xmlfilepath.toStdString());
    }
    if (piErrorCode != nullptr)
        *piErrorCode = errorCode;
    return errorCode == KTL_NO_ERROR;
}

bool device_ktlupdatexmldata(struct_FilenameDevice* xmlfile, const char* buffer, struct_EtherCatDevice* device,
                             struct_commentmodule* commentmodule)
{
    if (buffer == nullptr || device == nullptr)
        return false;
    KtlItemHead head{};
    std::memcpy(&head, buffer, sizeof head);
    const std::size_t size = std::max<std::size_t>(head.m_iSize, sizeof head);
    return applyItem({xmlfile, *device, commentmodule}, {reinterpret_cast<const unsigned char*>(buffer), size});
}

int KTL_read_device_General(std::FILE* in, struct_KTL_EtherCatDeviceType* general)
{
    if (in == nullptr || general == nullptr)
        return KTL_ERROR_PARA;
    // What the file does not reach stays as it is.
    [[maybe_unused]] const std::size_t bytesRead = std::fread(general, 1, sizeof *general, in);
    return KTL_NO_ERROR;
}
