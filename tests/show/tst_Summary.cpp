// The summary of a file: the list of its devices, the devices, the modules.
#include "ktl/ktlBytes.h"
#include "summaryOf.h"
#include "testMain.h"

#include <QtTest>

class tst_Summary : public QObject
{
    Q_OBJECT

private slots:
    static void listBeforeDevices();
    static void someDevices();
    static void ktlFile();
    static void narrowTerminal();
    static void longNames();
};

namespace {

QByteArray endItem()
{
    return bytes("00 00 00 00 0C 00 00 00 00 00 00 00");
}

/// A General item, which begins a device.
QByteArray general(std::uint32_t productCode)
{
    return le32(40000) + le32(52) + le32(1) + le32(productCode) + zeros(36);
}

std::vector<unsigned char> vectorOf(const QByteArray& content)
{
    return {content.begin(), content.end()};
}

const QByteArray module = "<Module><Type ModuleIdent=\"#x10\">M</Type><Name>M</Name></Module>";

} // namespace

/// Nothing is told twice of a module whose type is its name.
void tst_Summary::listBeforeDevices()
{
    show::ShownFile file;
    setEsiText(file, esiFile(deviceElement({}, "one") + deviceElement({}, "two"), module));
    QCOMPARE(summaryOf(file), QByteArray("  1  0x7e57:0x5001:0x30001  T  one\n"
                                         "  2  0x7e57:0x5001:0x30001  T  two\n"
                                         "\nDevice 1 of 2: 0x7e57:0x5001:0x30001\n"
                                         "  type               T\n  name               one\n"
                                         "  device class       IOBlock\n"
                                         "\nDevice 2 of 2: 0x7e57:0x5001:0x30001\n"
                                         "  type               T\n  name               two\n"
                                         "  device class       IOBlock\n"
                                         "\n1 module of the file\n  0x10  M\n"));
}

/// They keep their numbers; the modules of the file belong to none.
void tst_Summary::someDevices()
{
    show::ShownFile file;
    setEsiText(file, esiFile(deviceElement({}, "one") + deviceElement({}, "two") + deviceElement({}, "three"), module));
    file.limitTo({1});
    QCOMPARE(summaryOf(file), QByteArray("\nDevice 2 of 3: 0x7e57:0x5001:0x30001\n"
                                         "  type               T\n  name               two\n"
                                         "  device class       IOBlock\n"));
    file.limitTo({0, 2});
    const QByteArray summary = summaryOf(file);
    QVERIFY2(summary.startsWith("  1  0x7e57:0x5001:0x30001  T  one\n  3  0x7e57:0x5001:0x30001  T  three\n\n"),
             summary.constData());
    QVERIFY2(!summary.contains("two") && !summary.contains("module"), summary.constData());
}

void tst_Summary::ktlFile()
{
    show::ShownFile file;
    file.setKtl(vectorOf(general(2) + general(3) + endItem()));
    QCOMPARE(summaryOf(file), QByteArray("  1  0x1:0x2:0x00\n"
                                         "  2  0x1:0x3:0x00\n"
                                         "\nDevice 1 of 2: 0x1:0x2:0x00\n  device class       IOBlock\n"
                                         "\nDevice 2 of 2: 0x1:0x3:0x00\n  device class       IOBlock\n"));
}

/// However narrow it is, every line fits that can.
void tst_Summary::narrowTerminal()
{
    show::ShownFile file;
    setEsiText(file, esiFile(deviceElement("<Fmmu>Outputs</Fmmu><Fmmu>Inputs</Fmmu>", "one two three four")));
    for (const QByteArray& line : summaryOf(file, 32).split('\n'))
        QVERIFY2(line.size() <= 32, line.constData());
}

/// Of 120 columns 117 are the name and the others "...": of each device 2 texts in the list and 14 by itself, and the
/// name of the module.
void tst_Summary::longNames()
{
    const QByteArray name(200000, 'q');
    const QByteArray named = "<Name>" + name + "</Name>";
    const QByteArray type = "<Type ProductCode=\"1\" ModuleIdent=\"1\">" + name + "</Type>";
    const QByteArray pdo = "<Index>#x1600</Index>" + named + "<Entry><Index>1</Index><BitLen>8</BitLen>" + named
                           + "<DataType>" + name + "</DataType></Entry></RxPdo>";
    const QByteArray device =
        "<Device>" + type + named + "<Fmmu>" + name + "</Fmmu><Sm>Outputs</Sm><Sm>" + name + "</Sm><RxPdo Sm=\"0\">"
        + pdo + "<RxPdo>" + pdo + "<Mailbox><CoE><InitCmd><Transition>PS</Transition><Index>1</Index><Data>01</Data>"
        + "<Comment>" + name + "</Comment></InitCmd></CoE></Mailbox><Dc><OpMode>" + named + "<Desc>" + name
        + "</Desc></OpMode></Dc><Slots><Slot MaxInstances=\"1\">" + named
        + "<ModuleIdent Default=\"1\">1</ModuleIdent></Slot><Slot><ModuleClass><Class>" + name
        + "</Class></ModuleClass></Slot></Slots><Profile><ProfileNo>5001</ProfileNo></Profile></Device>";
    show::ShownFile file;
    setEsiText(file, esiFile(device + device, "<Module>" + type + named + "</Module>"));
    const QByteArray summary = summaryOf(file);
    QCOMPARE(summary.count('q'), (2 * (2 + 14) + 1) * 117);
}

static const testMain::Registration<tst_Summary, testMain::NoApplication> registration;
#include "tst_Summary.moc"
