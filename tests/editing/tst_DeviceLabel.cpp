// A device as messages name it.
#include "editing/deviceLabel.h"
#include "testMain.h"

#include <QFile>
#include <QtTest>

class tst_DeviceLabel : public QObject
{
    Q_OBJECT

private slots:
    static void identity_data();
    static void identity();
    static void label();
    static void longNameIsCut();
    static void inputPath();
};

namespace {

struct_EtherCatDevice deviceNamedAs(const std::string& name)
{
    struct_EtherCatDevice device;
    device.Name = name;
    device.TypeAttributes.Product_Code = 0x5001;
    device.TypeAttributes.Revision_No = 0x30001;
    return device;
}

struct_FilenameDevice fileOfVendor(std::uint32_t vendor)
{
    struct_FilenameDevice file;
    file.Vendor_Id = vendor;
    return file;
}

} // namespace

void tst_DeviceLabel::identity_data()
{
    QTest::addColumn<unsigned int>("vendor");
    QTest::addColumn<QString>("text");
    QTest::addRow("usual vendor") << 0x7E570002U << "0x7e570002:0x5001:0x30001";
    QTest::addRow("no vendor") << 0U << "0x00:0x5001:0x30001";
    QTest::addRow("largest number") << 0xFFFFFFFFU << "0xffffffff:0x5001:0x30001";
}

void tst_DeviceLabel::identity()
{
    QFETCH(unsigned int, vendor);
    QFETCH(QString, text);
    QCOMPARE(identityText(fileOfVendor(vendor), deviceNamedAs("EL-01")), text);
}

void tst_DeviceLabel::label()
{
    QCOMPARE(deviceLabel(fileOfVendor(1), deviceNamedAs("电机 %1"), 3),
             QStringLiteral("device 3 \"电机 %1\" (0x1:0x5001:0x30001)"));
}

/// 80 letters are shown, more are not.
void tst_DeviceLabel::longNameIsCut()
{
    QCOMPARE(deviceLabel(fileOfVendor(1), deviceNamedAs(std::string(81, 'x')), 1),
             QStringLiteral("device 1 \"") + QString(80, 'x') + QStringLiteral("...\" (0x1:0x5001:0x30001)"));
}

/// The path is kept in the encoding of the file system.
void tst_DeviceLabel::inputPath()
{
    struct_FilenameDevice file;
    file.xmlfilepath = QFile::encodeName(QStringLiteral("/tmp/a b/驱动.xml")).toStdString();
    QCOMPARE(inputPathOf(file), QStringLiteral("/tmp/a b/驱动.xml"));
}

static const testMain::Registration<tst_DeviceLabel, testMain::NoApplication> registration;
#include "tst_DeviceLabel.moc"
