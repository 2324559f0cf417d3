#include "generatedEsi.h"

#include "xmlText.h"

#include <QTemporaryFile>

#include <array>
#include <stdexcept>

namespace {

constexpr int objectsInDictionary = 400;
constexpr int firstObject = 0x2000;

// ---- The dictionary: a data type for each record and array, and objects of four kinds in turn ----

enum class ObjectKind
{
    Number,
    Record,
    Array,
    String,
};

ObjectKind kindOf(int object)
{
    constexpr std::array kinds{ObjectKind::Number, ObjectKind::Record, ObjectKind::Number, ObjectKind::Number,
                               ObjectKind::Array,  ObjectKind::Number, ObjectKind::String, ObjectKind::Number};
    return kinds[static_cast<std::size_t>(object) % kinds.size()];
}

struct Number
{
    const char* type;
    int bits;
};

/// Types of numbers in turn.
constexpr std::array numbers{Number{"UINT", 16}, Number{"DINT", 32}, Number{"USINT", 8}, Number{"UDINT", 32},
                             Number{"INT", 16}};

const Number& numberAt(int position)
{
    return numbers[static_cast<std::size_t>(position) % numbers.size()];
}

constexpr int subItems = 6; ///< of a record or array, the counter at sub-index 0 included
constexpr int bitsOfSubItem = 32;
constexpr int bitsOfCounter = 16; ///< the counter and a gap after it

std::string dataTypeOf(int object)
{
    return "DT" + hexDigits(firstObject + object, 4);
}

void addFlags(XmlText& xml, const char* access, const char* category)
{
    xml.open("Flags");
    xml.leaf("Access", access);
    xml.leaf("Category", category);
    xml.leaf("PdoMapping", "R");
    xml.close();
}

void addSimpleType(XmlText& xml, const std::string& name, int bits)
{
    xml.open("DataType");
    xml.leaf("Name", name);
    xml.leaf("BitSize", std::to_string(bits));
    xml.close();
}

void addSubItemType(XmlText& xml, int subIndex)
{
    const bool isCounter = subIndex == 0;
    xml.open("SubItem");
    xml.leaf("SubIdx", std::to_string(subIndex));
    xml.leaf("Name", isCounter ? "Number of entries" : "Parameter " + std::to_string(subIndex));
    xml.leaf("Type", isCounter ? "USINT" : "UDINT");
    xml.leaf("BitSize", isCounter ? "8" : std::to_string(bitsOfSubItem));
    xml.leaf("BitOffs", std::to_string(isCounter ? 0 : bitsOfCounter + (subIndex - 1) * bitsOfSubItem));
    addFlags(xml, isCounter ? "ro" : "rw", isCounter ? "m" : "o");
    xml.close();
}

void addRecordType(XmlText& xml, int object)
{
    xml.open("DataType");
    xml.leaf("Name", dataTypeOf(object));
    xml.leaf("BitSize", std::to_string(bitsOfCounter + (subItems - 1) * bitsOfSubItem));
    for (int subIndex = 0; subIndex < subItems; ++subIndex)
        addSubItemType(xml, subIndex);
    xml.close();
}

void addArrayType(XmlText& xml, int object)
{
    const std::string elements = dataTypeOf(object) + "ARR";
    xml.open("DataType");
    xml.leaf("Name", elements);
    xml.leaf("BaseType", "UDINT");
    xml.leaf("BitSize", std::to_string((subItems - 1) * bitsOfSubItem));
    xml.open("ArrayInfo");
    xml.leaf("LBound", "1");
    xml.leaf("Elements", std::to_string(subItems - 1));
    xml.close();
    xml.close();

    xml.open("DataType");
    xml.leaf("Name", dataTypeOf(object));
    xml.leaf("BitSize", std::to_string(bitsOfCounter + (subItems - 1) * bitsOfSubItem));
    addSubItemType(xml, 0);
    xml.open("SubItem");
    xml.leaf("Name", "Elements");
    xml.leaf("Type", elements);
    xml.leaf("BitSize", std::to_string((subItems - 1) * bitsOfSubItem));
    xml.leaf("BitOffs", std::to_string(bitsOfCounter));
    addFlags(xml, "rw", "o");
    xml.close();
    xml.close();
}

void addDataTypes(XmlText& xml, int objects)
{
    xml.open("DataTypes");
    for (const Number& number : numbers)
        addSimpleType(xml, number.type, number.bits);
    addSimpleType(xml, "STRING(8)", 64);
    for (int object = 0; object < objects; ++object)
        if (kindOf(object) == ObjectKind::Record)
            addRecordType(xml, object);
        else if (kindOf(object) == ObjectKind::Array)
            addArrayType(xml, object);
    xml.close();
}

/// Type, length and default of an object that is one value.
void addValue(XmlText& xml, const std::string& type, int bits, const std::string& defaultData)
{
    xml.leaf("Type", type);
    xml.leaf("BitSize", std::to_string(bits));
    xml.open("Info");
    xml.leaf("DefaultData", defaultData);
    xml.close();
}

/// Type, length and sub-items of a record or array.
void addSubItems(XmlText& xml, int object)
{
    xml.leaf("Type", dataTypeOf(object));
    xml.leaf("BitSize", std::to_string(bitsOfCounter + (subItems - 1) * bitsOfSubItem));
    xml.open("Info");
    for (int subIndex = 0; subIndex < subItems; ++subIndex) {
        xml.open("SubItem");
        xml.leaf("Name", subIndex == 0 ? "Number of entries" : "Parameter " + std::to_string(subIndex));
        xml.open("Info");
        if (subIndex > 0) {
            xml.leaf("MinData", "#x00000000");
            xml.leaf("MaxData", "#x" + hexDigits(0x10000 + object, 8));
        }
        xml.leaf("DefaultData", subIndex == 0 ? hexDigits(subItems - 1, 2) : hexDigits(object + subIndex, 8));
        xml.close();
        xml.close();
    }
    xml.close();
}

void addObject(XmlText& xml, int object)
{
    const Number& number = numberAt(object);
    xml.open("Object");
    xml.leaf("Index", "#x" + hexDigits(firstObject + object, 4));
    xml.leaf("Name", "Drive parameter group " + std::to_string(object));
    switch (kindOf(object)) {
    case ObjectKind::Number:
        addValue(xml, number.type, number.bits, hexDigits(object % 0x80, number.bits / 4));
        break;
    case ObjectKind::String:
        addValue(xml, "STRING(8)", 64, "5358312D34303000");
        break;
    case ObjectKind::Record:
    case ObjectKind::Array:
        addSubItems(xml, object);
        break;
    }
    addFlags(xml, object % 3 == 0 ? "ro" : "rw", "o");
    xml.close();
}

void addProfile(XmlText& xml, int objects)
{
    xml.open("Profile");
    xml.leaf("ProfileNo", "402");
    if (objects > 0) {
        xml.open("Dictionary");
        addDataTypes(xml, objects);
        xml.open("Objects");
        for (int object = 0; object < objects; ++object)
            addObject(xml, object);
        xml.close();
        xml.close();
    }
    xml.close();
}

// ---- The other sections of a device ----

void addFmmusAndSyncManagers(XmlText& xml)
{
    for (const char* name : {"Outputs", "Inputs", "MBoxState"})
        xml.leaf("Fmmu", name);
    const std::string sizes = R"(MinSize="0" MaxSize="256" DefaultSize="128" )";
    xml.leaf("Sm", "MBoxOut", sizes + R"(StartAddress="#x1000" ControlByte="#x26" Enable="1")");
    xml.leaf("Sm", "MBoxIn", sizes + R"(StartAddress="#x1100" ControlByte="#x22" Enable="1")");
    xml.leaf("Sm", "Outputs", sizes + R"(StartAddress="#x1200" ControlByte="#x64" Enable="1")");
    xml.leaf("Sm", "Inputs", sizes + R"(StartAddress="#x1400" ControlByte="#x20" Enable="1")");
}

/// The PDOs of one direction: three to choose from, the first one assigned to its sync manager.
void addPdos(XmlText& xml, const char* tag, int firstIndex, const char* syncManager)
{
    constexpr int pdos = 3;
    constexpr int entries = 6;
    for (int pdo = 0; pdo < pdos; ++pdo) {
        xml.open(tag, pdo == 0 ? std::string(R"(Fixed="1" Sm=")") + syncManager + '"' : "");
        xml.leaf("Index", "#x" + hexDigits(firstIndex + pdo, 4));
        xml.leaf("Name", "Process data " + std::to_string(pdo + 1));
        for (int entry = 0; entry < entries; ++entry) {
            const Number& number = numberAt(entry);
            xml.open("Entry");
            xml.leaf("Index", "#x" + hexDigits(firstObject + entry, 4));
            xml.leaf("SubIndex", "0");
            xml.leaf("BitLen", std::to_string(number.bits));
            xml.leaf("Name", "Drive parameter group " + std::to_string(entry));
            xml.leaf("DataType", number.type);
            xml.close();
        }
        xml.close();
    }
}

void addMailbox(XmlText& xml)
{
    constexpr int commands = 6;
    xml.open("Mailbox", R"(DataLinkLayer="1")");
    xml.open("CoE", R"(SdoInfo="1" PdoAssign="1" PdoConfig="1" CompleteAccess="0" SegmentedSdo="1")");
    for (int command = 0; command < commands; ++command) {
        xml.open("InitCmd");
        xml.leaf("Transition", "PS");
        xml.leaf("Index", "#x" + hexDigits(firstObject + command, 4));
        xml.leaf("SubIndex", std::to_string(command));
        xml.leaf("Data", hexDigits(command * 0x0101, 8));
        xml.leaf("Comment", "Start value " + std::to_string(command));
        xml.close();
    }
    xml.close();
    xml.close();
}

void addOpMode(XmlText& xml, const char* name, const char* assignActivate)
{
    xml.open("OpMode");
    xml.leaf("Name", name);
    xml.leaf("Desc", std::string("Synchronous with ") + name);
    xml.leaf("AssignActivate", assignActivate);
    xml.leaf("CycleTimeSync0", "0", R"(Factor="1")");
    xml.leaf("ShiftTimeSync0", "125000");
    xml.close();
}

std::string deviceText(int number, int objects)
{
    const std::string type = "SX" + std::to_string(number);
    XmlText xml(3);
    xml.open("Device", R"(Physics="YY")");
    xml.leaf("Type", type, R"(ProductCode="#x)" + hexDigits(number, 8) + R"(" RevisionNo="#x00010002")");
    xml.leaf("Name", "<![CDATA[" + type + " single axis servo drive]]>", R"(LcId="1033")");
    xml.leaf("Name", "<![CDATA[" + type + " 单轴伺服驱动器]]>", R"(LcId="2052")");
    xml.leaf("GroupType", "ServoDrives");
    addProfile(xml, objects);
    addFmmusAndSyncManagers(xml);
    addPdos(xml, "RxPdo", 0x1600, "2");
    addPdos(xml, "TxPdo", 0x1A00, "3");
    addMailbox(xml);
    xml.open("Dc");
    addOpMode(xml, "SmSync", "#x0000");
    addOpMode(xml, "DcSync0", "#x0300");
    xml.close();
    xml.close();
    return xml.text();
}

constexpr const char* beforeDevices = R"(<?xml version="1.0" encoding="UTF-8"?>
<EtherCATInfo Version="1.6">
  <Vendor>
    <Id>#x7E570001</Id>
    <Name>Example Drives</Name>
  </Vendor>
  <Descriptions>
    <Groups>
      <Group>
        <Type>ServoDrives</Type>
        <Name LcId="1033">Servo drives</Name>
      </Group>
    </Groups>
    <Devices>
)";

constexpr const char* behindDevices = R"(    </Devices>
  </Descriptions>
</EtherCATInfo>
)";

} // namespace

GeneratedEsi GeneratedEsi::ofSize(std::size_t bytes)
{
    return {objectsInDictionary, [bytes](std::size_t /*devices*/, std::size_t written) { return written >= bytes; }};
}

GeneratedEsi GeneratedEsi::ofDevices(std::size_t count)
{
    return {0, [count](std::size_t devices, std::size_t /*bytes*/) { return devices >= count; }};
}

GeneratedEsi::GeneratedEsi(int objectsPerDevice,
                           const std::function<bool(std::size_t devices, std::size_t bytes)>& isComplete)
    : m_file(std::make_unique<QTemporaryFile>())
{
    if (!m_file->open())
        throw std::runtime_error("cannot make a temporary file: " + m_file->errorString().toStdString());
    write(beforeDevices);
    for (; !isComplete(m_devices, m_bytes); ++m_devices)
        write(deviceText(static_cast<int>(m_devices) + 1, objectsPerDevice));
    write(behindDevices);
    m_file->close(); // the file itself stays until the object goes
    if (m_file->error() != QFileDevice::NoError)
        throw std::runtime_error("cannot write the temporary file: " + m_file->errorString().toStdString());
}

GeneratedEsi::GeneratedEsi(GeneratedEsi&& other) noexcept = default;
GeneratedEsi& GeneratedEsi::operator=(GeneratedEsi&& other) noexcept = default;
GeneratedEsi::~GeneratedEsi() = default;

QString GeneratedEsi::path() const
{
    return m_file->fileName();
}

void GeneratedEsi::write(const std::string& text)
{
    if (m_file->write(text.data(), static_cast<qint64>(text.size())) != static_cast<qint64>(text.size()))
        throw std::runtime_error("cannot write the temporary file: " + m_file->errorString().toStdString());
    m_bytes += text.size();
}
