// Every sample is exported and read back: what comes back, field by field, and what is gone.
#include "esi/xmlCharConversion.h"
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "ktl/ktlItems.h"
#include "ktl/reading/ktlReader.h"
#include "loadedFiles.h"
#include "model/pdoAccess.h"
#include "testMain.h"

#include <QDir>

class tst_KtlRoundTrip : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void identity();
    void syncManagers();
    void fmmusAndModes();
    void devicePdos();
    void startupCommands();
    void completeAccess();
    void slotsOfADevice();
    void listsThatStayEmpty();
    void everyDeviceIsThereOnce();

private:
    struct Pair
    {
        const struct_FilenameDevice* file;
        const struct_EtherCatDevice* written;
        const struct_EtherCatDevice* read;
    };

    std::vector<struct_FilenameDevice> m_written;
    struct_FilenameDevice m_read;
    std::vector<Pair> m_pairs; ///< each device that was written, with what came back of it
};

namespace {

/// A servo with everything that the samples do not have.
struct_FilenameDevice specialDevice()
{
    struct_FilenameDevice file;
    file.Vendor_Id = 0x7E;
    file.device.resize(1);
    struct_EtherCatDevice& device = file.device[0];
    device.Name = "special";
    device.m_iDeviceType = 4;
    device.m_iDriveAxies = 3;
    device.vSM.resize(4);
    for (std::size_t number = 0; number < device.vSM.size(); ++number) {
        device.vSM[number].SM = static_cast<std::uint8_t>(number);
        device.vSM[number].Smtype = static_cast<std::uint8_t>(number + 1);
    }
    device.vSM[1].Attributes.m_Virtual = 1; // leaves no record
    device.mRxPdo.mpdo.resize(1);
    device.mRxPdo.mpdo[0].Attributes.SM = 2;
    device.mRxPdo.mpdo[0].indexAttributes.index = 0x1610;
    device.mRxPdo.mpdo[0].vEntry.resize(2);
    device.mRxPdo.mpdo[0].vEntry[1].BitLen = 12;
    device.mTxPdo.mpdo = device.mRxPdo.mpdo;
    device.mTxPdo.mpdo[0].indexAttributes.index = 0x1A10;
    device.Mailbox.EOE.Attributes.IP = true;
    device.Mailbox.EOE.InitCmd.vinitcmd.resize(2);
    device.Mailbox.COE.Attributes.CompleteAccess = true;
    device.Mailbox.COE.InitCmd.vinitcmd.resize(2);
    struct_InitCmd& whole = device.Mailbox.COE.InitCmd.vinitcmd[0];
    whole.Index = 0x1600;
    whole.bIfCA = 1;
    whole.DataBytes = 8;
    whole.m_CADataList = {1, 2};
    device.mMailbox.COE.vinitcmd.resize(1);
    device.mMailbox.COE.vinitcmd[0].indexAttributes.index = 0x1C12;
    return file;
}

bool hasItem(const struct_EtherCatDevice& device, int syncManager, bool hasEntries)
{
    return hasEntries
           && (syncManager < 0 || device.vSM.at(static_cast<std::size_t>(syncManager)).Attributes.m_Virtual == 0);
}

/// The PDOs of one direction that have an item of their own, those of modules as device PDOs.
std::vector<struct_PDOList> writtenPdos(const struct_EtherCatDevice& device, const DevicePdoList& own,
                                        const DeviceModulePdoList& ofModules)
{
    std::vector<struct_PDOList> pdos;
    for (const struct_PDOList& pdo : own.vpdo)
        if (hasItem(device, pdo.Attributes.SM, !pdo.Entry.vPdo_c.empty()))
            pdos.push_back(pdo);
    if (device.m_iDeviceType != 2 && device.m_iDeviceType != 4)
        return pdos;
    for (const modulePdo& source : ofModules.mpdo) {
        if (!hasItem(device, source.Attributes.SM, !source.vEntry.empty()))
            continue;
        struct_PDOList pdo;
        pdo.Attributes.Fixed = source.Attributes.Fixed;
        pdo.Attributes.Mandatory = source.Attributes.Mandatory;
        pdo.Attributes.SM = source.Attributes.SM;
        pdo.Attributes.SU = source.Attributes.SU;
        pdo.IndexAttributes.Index = source.indexAttributes.index;
        for (const struct_moduleEntry& from : source.vEntry) {
            struct_EntryPDOContent entry;
            entry.Index = from.indexAttributes.index;
            entry.SubIndex = from.SubIndex;
            entry.Bitlen = from.BitLen;
            entry.Linkto = from.Linkto;
            pdo.Entry.vPdo_c.push_back(entry);
        }
        pdos.push_back(pdo);
    }
    return pdos;
}

void comparePdo(const struct_PDOList& written, const struct_PDOList& read, const std::string& name)
{
    QCOMPARE(read.Attributes.Fixed, written.Attributes.Fixed);
    QCOMPARE(read.Attributes.Mandatory, written.Attributes.Mandatory);
    QCOMPARE(read.Attributes.SM, written.Attributes.SM);
    QCOMPARE(read.Attributes.SU, written.Attributes.SU);
    const PdoAttributes& samples = read.Attributes;
    QCOMPARE(samples.m_OSFac + samples.m_OSMin + samples.m_OSMax + samples.m_OSIndexInc, 0);
    QCOMPARE(read.IndexAttributes.Index, written.IndexAttributes.Index);
    QCOMPARE(read.Name, name);
    QCOMPARE(read.Entry.vPdo_c.size(), written.Entry.vPdo_c.size());
    int bits = 0;
    for (std::size_t place = 0; place < read.Entry.vPdo_c.size(); ++place) {
        const struct_EntryPDOContent& from = written.Entry.vPdo_c[place];
        const struct_EntryPDOContent& to = read.Entry.vPdo_c[place];
        QCOMPARE(to.Index, from.Index);
        QCOMPARE(to.SubIndex, from.SubIndex);
        QCOMPARE(to.Bitlen, from.Bitlen);
        QCOMPARE(to.Linkto, from.Linkto);
        QCOMPARE(to.Attributes.Fixed, from.Attributes.Fixed);
        QCOMPARE(to.DefaultData, 0U);
        QCOMPARE(to.Name, std::string("TEMP"));
        QCOMPARE(to.DataType, std::string("TEMP"));
        QCOMPARE(to.Offs, float(bits / 8 + bits % 8 * 0.1));
        bits += from.Bitlen;
    }
    QCOMPARE(read.Size, float(bits / 8 + bits % 8 * 0.1));
}

} // namespace

/// All samples and the special device, exported together as one run.
void tst_KtlRoundTrip::init()
{
    g_xmlfiledevices.clear();
    const QDir samples(QStringLiteral(KINETRA_SOURCE_DIR "/samples"));
    for (const QString& name : samples.entryList({"*.xml"}, QDir::Files))
        QCOMPARE(int(loadIntoList(samples.filePath(name)).status), int(EsiLoadStatus::Loaded));
    g_xmlfiledevices.push_back(specialDevice());
    m_written.swap(g_xmlfiledevices);
    g_xmlfiledevices.clear();

    const FileHandle ktl = streamWith();
    int code = -77;
    const auto all = [](std::size_t /*file*/, std::size_t /*device*/) { return true; };
    QVERIFY(writeDevices(ktl.get(), m_written, all, &code));
    QVERIFY(device_writektltodevices(ktl.get(), QStringLiteral("/ktl/all.ktl"), &code));
    QCOMPARE(code, 0);
    QCOMPARE(g_xmlfiledevices.size(), std::size_t(1));
    m_read = std::move(g_xmlfiledevices[0]);
    g_xmlfiledevices.clear();

    m_pairs.clear();
    for (const struct_FilenameDevice& file : m_written)
        for (const struct_EtherCatDevice& device : file.device) {
            QVERIFY(m_pairs.size() < m_read.device.size());
            m_pairs.push_back({&file, &device, &m_read.device[m_pairs.size()]});
        }
}

void tst_KtlRoundTrip::everyDeviceIsThereOnce()
{
    QCOMPARE(m_read.device.size(), m_pairs.size());
    QCOMPARE(m_read.xmlfilepath, std::string("/ktl/all.ktl"));
    QCOMPARE(m_read.Vendor_Id, m_written.back().Vendor_Id); // of the last device
}

void tst_KtlRoundTrip::identity()
{
    for (const Pair& pair : m_pairs) {
        const DeviceTypeAttributes& written = pair.written->TypeAttributes;
        const DeviceTypeAttributes& read = pair.read->TypeAttributes;
        QCOMPARE(read.m_iVendor_Id, pair.file->Vendor_Id);
        QCOMPARE(read.Product_Code, written.Product_Code);
        QCOMPARE(read.Revision_No, written.Revision_No);
        QCOMPARE(read.Serial_No, written.Serial_No);
        QCOMPARE(QString::fromStdString(read.type), xmlGetStringuint(pair.written->m_iDeviceType));
        QCOMPARE(QString::fromStdString(pair.read->Name), xmlGetStringuint(written.Product_Code));
        QCOMPARE(pair.read->m_iDeviceType, pair.written->m_iDeviceType);
        QCOMPARE(pair.read->m_iDriveAxies, pair.written->m_iDriveAxies);
        QCOMPARE(int(pair.read->configindex) + int(pair.read->detectindex), 0);
    }
}

/// Virtual ones are gone, and the others move up; the role comes from the new place.
void tst_KtlRoundTrip::syncManagers()
{
    std::size_t compared = 0;
    for (const Pair& pair : m_pairs) {
        std::vector<struct_SM> written;
        for (const struct_SM& syncManager : pair.written->vSM)
            if (syncManager.Attributes.m_Virtual == 0)
                written.push_back(syncManager);
        QCOMPARE(pair.read->vSM.size(), written.size());
        for (std::size_t place = 0; place < written.size(); ++place) {
            const struct_SM& from = written[place];
            const struct_SM& to = pair.read->vSM[place];
            const bool isProcessData = from.Smtype == 3 || from.Smtype == 4;
            const int size = isProcessData ? int(from.Length) : int(from.Attributes.DefaultSize);
            QCOMPARE(to.Attributes.StartAddress, from.Attributes.StartAddress);
            QCOMPARE(to.Attributes.MinSize, from.Attributes.MinSize);
            QCOMPARE(to.Attributes.MaxSize, from.Attributes.MaxSize);
            QCOMPARE(int(to.Attributes.DefaultSize), size);
            QCOMPARE(to.Attributes.ControlByte, from.Attributes.ControlByte);
            QCOMPARE(to.Attributes.Enable, from.Attributes.Enable);
            QCOMPARE(to.Attributes.m_Virtual, 0U);
            QCOMPARE(to.Length, float(size));
            QCOMPARE(std::size_t(to.SM), place);
            QCOMPARE(std::size_t(to.Smtype), place < 4 ? place + 1 : 0);
            QCOMPARE(to.Name, std::to_string(place));
            ++compared;
        }
    }
    QVERIFY(compared > 10);
}

void tst_KtlRoundTrip::fmmusAndModes()
{
    std::size_t compared = 0;
    for (const Pair& pair : m_pairs) {
        QCOMPARE(pair.read->vFmmu.size(), pair.written->vFmmu.size());
        for (std::size_t place = 0; place < pair.read->vFmmu.size(); ++place) {
            const Struct_Fmmu& from = pair.written->vFmmu[place];
            const Struct_Fmmu& to = pair.read->vFmmu[place];
            QCOMPARE(to.m_OpOnly, from.m_OpOnly);
            QCOMPARE(to.m_Sm, from.m_Sm & 0xFFU);
            QCOMPARE(to.m_Su, from.m_Su & 0xFFU);
            QCOMPARE(int(to.m_FmmuType), from.m_FmmuType & 0xFF);
            QCOMPARE(to.m_Name, std::string());
            ++compared;
        }
        QCOMPARE(pair.read->vopmode.size(), pair.written->vopmode.size());
        for (std::size_t place = 0; place < pair.read->vopmode.size(); ++place) {
            const Struct_DCOpMode& to = pair.read->vopmode[place];
            QCOMPARE(to.AssignActivate, pair.written->vopmode[place].AssignActivate);
            QCOMPARE(to.Name, std::to_string(place));
            QCOMPARE(to.Desc, std::to_string(place));
            QCOMPARE(to.m_CycleTimeSync0 + to.m_ShiftTimeSync0 + to.m_CycleTimeSync1 + to.m_ShiftTimeSync1, 0);
            QVERIFY(to.m_Sm.empty());
            ++compared;
        }
    }
    QVERIFY(compared > 10);
}

/// PDOs keep the number of their sync manager, also where one in front of it is gone.
void tst_KtlRoundTrip::devicePdos()
{
    std::size_t compared = 0;
    for (const Pair& pair : m_pairs) {
        const auto outputs = writtenPdos(*pair.written, pair.written->RxPdo, pair.written->mRxPdo);
        const auto inputs = writtenPdos(*pair.written, pair.written->TxPdo, pair.written->mTxPdo);
        QCOMPARE(pair.read->RxPdo.vpdo.size(), outputs.size());
        QCOMPARE(pair.read->TxPdo.vpdo.size(), inputs.size());
        for (std::size_t place = 0; place < outputs.size(); ++place)
            comparePdo(outputs[place], pair.read->RxPdo.vpdo[place], "RPDO");
        for (std::size_t place = 0; place < inputs.size(); ++place)
            comparePdo(inputs[place], pair.read->TxPdo.vpdo[place], "TPDO");
        compared += outputs.size() + inputs.size();
    }
    QVERIFY(compared > 10);
    const struct_EtherCatDevice& special = *m_pairs.back().read;
    QCOMPARE(int(special.RxPdo.vpdo.back().IndexAttributes.Index), 0x1610);
    QCOMPARE(int(special.TxPdo.vpdo.back().IndexAttributes.Index), 0x1A10);
}

/// The commands of the device and after them those of its modules, all in the list of the device.
void tst_KtlRoundTrip::startupCommands()
{
    std::size_t compared = 0;
    for (const Pair& pair : m_pairs) {
        const std::vector<struct_InitCmd>& own = pair.written->Mailbox.COE.InitCmd.vinitcmd;
        const std::vector<struct_moduleInitCmd>& ofModules = pair.written->mMailbox.COE.vinitcmd;
        const std::vector<struct_InitCmd>& read = pair.read->Mailbox.COE.InitCmd.vinitcmd;
        QCOMPARE(read.size(), own.size() + ofModules.size());
        for (std::size_t place = 0; place < read.size(); ++place) {
            const bool isOwn = place < own.size();
            const struct_moduleInitCmd none;
            const struct_moduleInitCmd& module = isOwn ? none : ofModules[place - own.size()];
            const struct_InitCmd& to = read[place];
            QCOMPARE(to.Transition, isOwn ? own[place].Transition : module.Transition);
            QCOMPARE(to.Index, isOwn ? own[place].Index : module.indexAttributes.index);
            QCOMPARE(int(to.SubIndex), isOwn ? int(own[place].SubIndex) : module.SubIndex & 0xFF);
            QCOMPARE(to.bIfCA, isOwn ? own[place].bIfCA : module.bIfCA);
            QCOMPARE(to.DataBytes, isOwn ? own[place].DataBytes : module.DataBytes);
            QCOMPARE(to.Data, isOwn ? own[place].Data : module.Data);
            QCOMPARE(QString::fromStdString(to.strData), xmlGetStringuint(to.Data));
            QCOMPARE(to.Comment, std::string("TEMP"));
            QVERIFY(to.m_CADataList.empty());
            ++compared;
        }
        const CoeAttributes& from = pair.written->Mailbox.COE.Attributes;
        const CoeAttributes& to = pair.read->Mailbox.COE.Attributes;
        QCOMPARE(to.SdoInfo, from.SdoInfo);
        QCOMPARE(to.PdoAssign, from.PdoAssign);
        QCOMPARE(to.PdoUpload, from.PdoUpload);
        QCOMPARE(to.PdoConfig, from.PdoConfig);
        QCOMPARE(to.SegmentedSdo, from.SegmentedSdo);
        QCOMPARE(to.CompleteAccess, from.CompleteAccess);
        QCOMPARE(to.DiagHistory, from.DiagHistory);
    }
    QVERIFY(compared > 20);
}

/// The mark of a complete access stays, and its values are gone, so the device does not go out again as it came in.
void tst_KtlRoundTrip::completeAccess()
{
    std::vector<struct_FilenameDevice> files(1);
    files[0].device.push_back(*m_pairs.back().read);
    const struct_InitCmd& command = files[0].device[0].Mailbox.COE.InitCmd.vinitcmd[0];
    QCOMPARE(int(command.bIfCA), 1);
    QCOMPARE(int(command.DataBytes), 8);
    const auto coeItem = [](const QByteArray& file) {
        QString problem;
        for (const KtlItem& item : itemsOf(file, &problem))
            if (item.type == 40006)
                return item;
        return KtlItem();
    };
    std::vector<struct_FilenameDevice> before{m_written.back()};
    before[0].device[0].mRxPdo.mpdo.clear();
    before[0].device[0].mTxPdo.mpdo.clear();
    files[0].device[0].RxPdo.vpdo.clear();
    files[0].device[0].TxPdo.vpdo.clear();
    const auto all = [](std::size_t /*file*/, std::size_t /*device*/) { return true; };
    int code = 0;
    const KtlItem first = coeItem(writtenBy([&](std::FILE* out) { QVERIFY(writeDevices(out, before, all, &code)); }));
    const KtlItem again = coeItem(writtenBy([&](std::FILE* out) { QVERIFY(writeDevices(out, files, all, &code)); }));
    QCOMPARE(first.u32(4), 16U + 3 * 12 + 8); // three commands and 8 bytes of values
    QCOMPARE(again.u32(4), first.u32(4)); // the size still counts them
    QCOMPARE(again.content.left(52), first.content.left(52));
    QCOMPARE(first.content.mid(52), bytes("01 00 00 00  02 00 00 00"));
    QVERIFY(again.content.mid(52) != first.content.mid(52));
}

void tst_KtlRoundTrip::slotsOfADevice()
{
    std::size_t compared = 0;
    for (const Pair& pair : m_pairs) {
        const DeviceSlots& from = pair.written->Slots;
        const DeviceSlots& to = pair.read->Slots;
        QVERIFY(from.vslot.size() < 256);
        QCOMPARE(to.vslot.size(), from.vslot.size());
        if (from.vslot.empty())
            continue;
        QCOMPARE(to.Attributes.DownloadModuleIdentList, from.Attributes.DownloadModuleIdentList);
        QCOMPARE(to.Attributes.DownloadModuleAddressList, from.Attributes.DownloadModuleAddressList);
        QCOMPARE(to.Attributes.SlotPdoIncrement, from.Attributes.SlotPdoIncrement & 0xFFFFU);
        QCOMPARE(to.Attributes.SlotIndexIncrement, from.Attributes.SlotIndexIncrement & 0xFFFFU);
        QCOMPARE(to.Attributes.IdentifyModuleBy, std::string("0"));
        for (std::size_t place = 0; place < to.vslot.size(); ++place) {
            const SlotAttributes& slot = to.vslot[place].Attributes;
            QCOMPARE(slot.MinInstances, from.vslot[place].Attributes.MinInstances);
            QCOMPARE(slot.MaxInstances, from.vslot[place].Attributes.MaxInstances);
            QCOMPARE(slot.SlotIndexIncrement, from.vslot[place].Attributes.SlotIndexIncrement);
            QCOMPARE(slot.SlotPdoIncrement, from.vslot[place].Attributes.SlotPdoIncrement);
            QCOMPARE(slot.m_SlotGroup, -1);
            QCOMPARE(to.vslot[place].Name, std::string("slot"));
            QVERIFY(to.vslot[place].ModuleClass.empty() && to.vslot[place].ModuleIdent.empty()
                    && to.vslot[place].slotmodule.empty());
            ++compared;
        }
    }
    QVERIFY(compared > 3);
}

void tst_KtlRoundTrip::listsThatStayEmpty()
{
    QVERIFY(m_pairs.back().written->Mailbox.EOE.Attributes.IP);
    for (const Pair& pair : m_pairs) {
        const struct_EtherCatDevice& read = *pair.read;
        QVERIFY(read.mRxPdo.mpdo.empty() && read.mTxPdo.mpdo.empty());
        QVERIFY(read.mMailbox.COE.vinitcmd.empty());
        const DeviceEoe& eoe = read.Mailbox.EOE;
        QVERIFY(!eoe.Attributes.IP && !eoe.Attributes.MAC && eoe.InitCmd.vinitcmd.empty());
        QVERIFY(read.Dictionary.vobject.empty() && read.Dictionary.vdatatype.empty());
        QVERIFY(read.mDictionary.mobject.empty() && read.mDictionary.mdatatype.empty());
    }
}

static const testMain::Registration<tst_KtlRoundTrip, QCoreApplication> registration;
#include "tst_KtlRoundTrip.moc"
