// Devices of a loaded file as an export holds them: made when they are asked for, and what is wrong is reported once.
#include "show/exportedDevices.h"
#include "testMain.h"

#include <QtTest>

class tst_ExportedDevices : public QObject
{
    Q_OBJECT

private slots:
    static void asTheExportHasThem();
    static void cutShort();
    static void lostItems();
};

namespace {

/// A device of a class with module blocks, which assigns and configures PDOs.
struct_EtherCatDevice coupler(const std::string& name, std::uint32_t productCode)
{
    struct_EtherCatDevice device;
    device.Name = name;
    device.TypeAttributes.Product_Code = productCode;
    device.m_iDeviceType = KTL_DEVICE_TYPE_PnpIOBlock;
    device.Mailbox.COE.Attributes.PdoAssign = true;
    device.Mailbox.COE.Attributes.PdoConfig = true;
    struct_SM outputs;
    outputs.Smtype = KTL_Outputs;
    device.vSM.push_back(outputs);
    return device;
}

/// A module whose startup item announces two records for a PDO without entries, and has none.
struct_module miscounted(std::uint32_t ident)
{
    struct_module module;
    module.TypeAttributes.ModuleIdent = ident;
    modulePdo pdo;
    pdo.Attributes.SM = 0;
    module.RxPdo.vpdo.push_back(pdo);
    return module;
}

struct Problems
{
    std::vector<show::ExportProblem> all;

    show::ShownDevices devicesOf(struct_FilenameDevice& file)
    {
        return show::exportedDevices(file, [this](const show::ExportProblem& problem) { all.push_back(problem); });
    }
};

} // namespace

void tst_ExportedDevices::asTheExportHasThem()
{
    struct_FilenameDevice file;
    file.Vendor_Id = 7;
    file.device = {coupler("A", 11), coupler("B", 12)};
    Problems problems;
    const show::ShownDevices devices = problems.devicesOf(file);
    QCOMPARE(devices.size(), std::size_t{2});
    QCOMPARE(std::uint32_t{devices[1].block.general.m_iProduct_Code}, 12U);
    QCOMPARE(std::uint32_t{devices[0].block.general.m_iProduct_Code}, 11U);
    QCOMPARE(std::uint32_t{devices[0].block.general.m_iVendor_Id}, 7U);
    QVERIFY(!devices[0].isExported); // there is no time of an export
    QVERIFY(problems.all.empty());
}

/// A PDO on a sync manager that the device does not have ends its export, and that of no other device. (Where PDOs are
/// configured, no such device is loaded.)
void tst_ExportedDevices::cutShort()
{
    struct_FilenameDevice file;
    file.device = {coupler("A", 11), coupler("B", 12)};
    struct_PDOList pdo;
    pdo.Attributes.SM = 4;
    file.device.front().RxPdo.vpdo.push_back(pdo);
    file.device.front().Mailbox.COE.Attributes.PdoConfig = false;
    Problems problems;
    const show::ShownDevices devices = problems.devicesOf(file);
    QVERIFY(problems.all.empty()); // nothing is known before the device is asked for
    for (const std::size_t index : {std::size_t{0}, std::size_t{1}, std::size_t{0}})
        QCOMPARE(std::uint32_t{devices[index].block.general.m_iProduct_Code}, std::uint32_t(11 + index));
    QCOMPARE(problems.all.size(), std::size_t{1});
    QVERIFY(problems.all.front().kind == show::ExportProblem::Kind::CutShort);
}

/// Reported for each device of a class with module blocks, with the first module.
void tst_ExportedDevices::lostItems()
{
    struct_FilenameDevice file;
    file.device = {coupler("A", 11), coupler("B", 12), coupler("C", 13)};
    file.device[1].m_iDeviceType = KTL_DEVICE_TYPE_IOBlock;
    file.vcommentmodule.resize(1);
    file.vcommentmodule.front().vmodule = {struct_module(), miscounted(0x21), miscounted(0x22)};
    Problems problems;
    const show::ShownDevices devices = problems.devicesOf(file);
    for (std::size_t index = 0; index < devices.size(); ++index)
        static_cast<void>(devices[index]);
    static_cast<void>(devices[0]);
    const QString lost = QStringLiteral("device \"%1\": in an export, module 0x21 does not have as many startup "
                                        "commands as it announces; the items after them cannot be found");
    QCOMPARE(problems.all.size(), std::size_t{2});
    QCOMPARE(problems.all.front().text, lost.arg(QLatin1Char('A')));
    QCOMPARE(problems.all.back().text, lost.arg(QLatin1Char('C')));
    QVERIFY(problems.all.back().kind == show::ExportProblem::Kind::LostItems);
}

static const testMain::Registration<tst_ExportedDevices, testMain::NoApplication> registration;
#include "tst_ExportedDevices.moc"
