// `ktl show --json`: each member of the model under its own key, from ESI texts in which no two values are alike.
// Covers showCommandLists.cpp, showModelDictionary.cpp, showModules.cpp, showPdos.cpp, showSlots.cpp.
#include "cli/showRun.h"
#include "testMain.h"

#include <QtTest>

class tst_ShowModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void members_data();
    void members();
    void module_data();
    void module();

private:
    static void compare(const QJsonObject& from);

    QTemporaryDir m_folder;
    QJsonObject m_file;
};

namespace {

const QByteArray deviceXml = R"(
<Device><Type ProductCode="#x11" RevisionNo="#x12" SerialNo="#x13" CheckProductCode="EQ">Typ</Type><Name>Nam</Name>
 <Fmmu OpOnly="1" Sm="2" Su="3">MBoxIn</Fmmu>
 <Sm MinSize="41" MaxSize="42" DefaultSize="43" StartAddress="#x1000" ControlByte="#x26" Enable="9">MBoxOut</Sm>
 <Sm StartAddress="#x1100">MBoxIn</Sm>
 <Sm StartAddress="#x1200">Outputs</Sm>
 <Sm StartAddress="#x1300" Virtual="1">Inputs</Sm>
 <RxPdo Fixed="1" Mandatory="1" Sm="2" SU="5"><Index>#x1601</Index><Name>Out</Name>
  <Entry><Index>#x0</Index><BitLen>3</BitLen></Entry>
  <Entry><Index>#x7001</Index><SubIndex>7</SubIndex><BitLen>9</BitLen><Name>Ent</Name><DataType>BIT9</DataType></Entry>
 </RxPdo>
 <Mailbox><EoE MAC="1"/><CoE SdoInfo="1" PdoUpload="1" DiagHistory="1">
  <InitCmd><Transition>SO</Transition><Index>#x2001</Index><SubIndex>4</SubIndex><Data>0102</Data>
   <Comment>Com</Comment></InitCmd></CoE></Mailbox>
 <Dc><OpMode><Name>Dcn</Name><Desc>Dcd</Desc><AssignActivate>#x400</AssignActivate>
  <CycleTimeSync0>51</CycleTimeSync0><ShiftTimeSync0>52</ShiftTimeSync0><CycleTimeSync1>53</CycleTimeSync1>
  <ShiftTimeSync1>54</ShiftTimeSync1><Sm No="55"><Pdo OSFac="56">#x1602</Pdo></Sm>
  <VendorSpecific><TwinCAT><Oversampling DefaultFactor="57" MinCycleTime="58"/></TwinCAT></VendorSpecific>
 </OpMode></Dc>
 <Profile><Dictionary><DataTypes>
  <DataType><Name>DT2002</Name><BitSize>61</BitSize><BaseType>Bas</BaseType>
   <SubItem><SubIdx>0</SubIdx><Name>Cnt</Name><Type>USINT</Type><BitSize>8</BitSize></SubItem>
   <SubItem><SubIdx>1</SubIdx><Name>Sub</Name><Type>UINT</Type><BitSize>62</BitSize><BitOffs>63</BitOffs>
    <Flags><Access>wo</Access><Category>c</Category><Backup>64</Backup><Setting>65</Setting></Flags></SubItem>
   <EnumInfo><Name>Enu</Name><Enum>68</Enum><Comment>Enc</Comment></EnumInfo></DataType>
  <DataType><Name>Arr</Name><ArrayInfo><LBound>66</LBound><Elements>67</Elements></ArrayInfo></DataType>
  </DataTypes><Objects>
  <Object><Index>#x2002</Index><Name>Obj</Name><Comment>Obc</Comment><Type>DT2002</Type><BitSize>71</BitSize>
   <Info><SubItem><Name>One</Name><Info><DefaultData>01</DefaultData></Info></SubItem>
    <SubItem><Name>Two</Name><Info><DefaultData>48</DefaultData><MinData>49</MinData><MaxData>4A</MaxData></Info>
    </SubItem></Info>
   <Flags><Access>rw</Access><Category>o</Category><Backup>75</Backup><Setting>76</Setting></Flags></Object>
  </Objects></Dictionary></Profile>
 <Slots DownloadModuleIdentList="1" DownloadModuleListTransition="PS" IdentifyModuleBy="Idb" MaxSlotCount="81"
  MaxSlotGroupCount="82" SlotIndexIncrement="83" SlotPdoIncrement="84" SlotGroupIndexIncrement="85"
  SlotGroupPdoIncrement="86">
  <Slot SlotGroup="4" MinInstances="1" MaxInstances="2" SlotIndexIncrement="91" SlotPdoIncrement="92"
   SlotGroupIndexIncrement="93" SlotGroupPdoIncrement="94"><Name>Slo</Name>
   <ModuleClass><Class>Cla</Class><Name>Cln</Name></ModuleClass><ModuleIdent>#x21</ModuleIdent></Slot></Slots>
</Device>)";

const QByteArray moduleXml = R"(
<Modules><!--Grp--><Module><Type ModuleIdent="#x31" ModuleClass="Cls" ModulePdoGroup="32"
  SRA_ParamterSupported="1">Mty</Type><Name>Mna</Name>
 <TxPdo Mandatory="1" Sm="3" Su="33"><Index DependOnSlot="1">#x1A01</Index><Name>Inp</Name>
  <Entry><Index DependOnSlotGroup="1">#x6001</Index><SubIndex>34</SubIndex><BitLen>35</BitLen><Name>Men</Name>
   <DataType>BIT35</DataType><Comment>Mco</Comment></Entry></TxPdo>
 <Mailbox><CoE><InitCmd><Transition>PS</Transition><Index DependOnSlotGroup="1">#x8001</Index>
  <SubIndex>36</SubIndex><Data>0A</Data><Comment>Mcc</Comment></InitCmd></CoE></Mailbox>
 <Profile><ProfileNo>37</ProfileNo></Profile></Module></Modules>)";

/// The value at a path of keys and places: "slots/list/0".
QJsonValue valueAt(QJsonValue value, const QString& path)
{
    for (const QString& step : path.split('/', Qt::SkipEmptyParts))
        value = value.isArray() ? value.toArray().at(step.toInt()) : value.toObject().value(step);
    return value;
}

/// An object without lists of objects, which have rows of their own.
QJsonObject withoutLists(QJsonObject object)
{
    for (const QString& key : object.keys())
        if (object.value(key).toArray().at(0).isObject())
            object.remove(key);
    return object;
}

void row(const char* path, const char* expected)
{
    QTest::addRow("%s", path) << QString::fromLatin1(path) << QByteArray(expected);
}

} // namespace

void tst_ShowModel::initTestCase()
{
    const QByteArray esi = "<EtherCATInfo><Vendor><Id>77</Id></Vendor><Descriptions><Devices>" + deviceXml
                           + "</Devices>" + moduleXml + "</Descriptions></EtherCATInfo>";
    m_file = shownFile(writtenFile(m_folder, "model.xml", esi));
    QCOMPARE(m_file.value("vendorId").toInt(), 77);
}

/// Members of the dictionary.
static void addDictionaryRows()
{
    row("dictionary/dataTypes/0", R"({"name":"DT2002","bitSize":61,"baseType":"Bas","index":0,"arrays":[]})");
    row("dictionary/dataTypes/0/subItems/1", R"({"subIndex":1,"name":"Sub","type":"UINT","bitSize":62,"bitOffset":63,
        "access":"wo","category":"c","backup":64,"setting":65})");
    row("dictionary/dataTypes/0/enumeration/0", R"({"name":"Enu","value":68,"comment":"Enc"})");
    row("dictionary/dataTypes/1/arrays/0", R"({"lowerBound":66,"elements":67})");
    row("dictionary/objects/0",
        R"({"index":8194,"name":"Obj","comment":"Obc","type":"DT2002","bitSize":71,"access":"rw",
        "category":"o","pdoMapping":"","safetyMapping":"","sdoAccess":"","backup":75,"setting":76,"defaultText":"",
        "defaultValue":0,"minimum":0,"maximum":0})");
    row("dictionary/objects/0/subItems/1", R"({"name":"Two","defaultText":"","defaultValue":72,"minimum":49,
        "maximum":74})");
    row("dictionary/rows/0", R"({"index":8194,"subIndex":0,"name":"Obj","access":"rw","bitSize":71,"type":"",
        "value":"1","signedValue":null})");
    row("dictionary/rows/1", R"({"index":8194,"subIndex":1,"name":"Sub","access":"wo","bitSize":62,"type":"UINT",
        "value":"72","signedValue":null})");
}

void tst_ShowModel::members_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("expected");
    row("eoe", R"({"ip":false,"mac":true})");
    row("coe", R"({"sdoInfo":true,"pdoAssign":false,"pdoUpload":true,"pdoConfig":false,"segmentedSdo":false,
        "completeAccess":false,"diagHistory":true})");
    row("fmmus/0", R"({"name":"MBoxIn","type":2,"typeName":"MBoxIn","syncManager":2,"syncUnit":3,"opOnly":true})");
    row("syncManagers/0",
        R"({"number":0,"name":"MBoxOut","type":1,"typeName":"MBoxOut","startAddress":4096,"minSize":41,
        "maxSize":42,"defaultSize":43,"length":43,"controlByte":38,"enable":9,"virtual":0})");
    row("syncManagers/3", R"({"number":3,"name":"Inputs","type":4,"typeName":"Inputs","startAddress":4864,"minSize":0,
        "maxSize":0,"defaultSize":0,"length":0,"controlByte":0,"enable":0,"virtual":1})");
    row("rxPdos/0", R"({"index":5633,"name":"Out","fixed":true,"mandatory":true,"syncManager":2,"syncUnit":5,"size":1.4,
        "oversamplingFactor":0,"oversamplingMin":0,"oversamplingMax":0,"oversamplingIndexIncrement":0,"choicePdo":0})");
    row("rxPdos/0/entries/1", R"({"index":28673,"subIndex":7,"bitLength":9,"offset":0.3,"name":"Ent","dataType":"BIT9",
        "link":0,"linkName":"NONE Type","defaultData":0,"fixed":false,"choiceEntry":1})");
    row("commands/deviceCoe/0", R"({"transition":6,"transitionName":"SO","index":8193,"subIndex":4,"completeAccess":0,
        "dataBytes":2,"data":513,"values":[],"text":"0x201","comment":"Com"})");
    row("commands/deviceEoe/0", R"({"transition":3,"transitionName":"IP_PS","index":0,"subIndex":0,"completeAccess":0,
        "dataBytes":1,"data":0,"values":[],"text":" ","comment":"eoeinit"})");
    row("dcModes/0", R"({"name":"Dcn","description":"Dcd","assignActivate":1024,"bits":["bit 10: SYNC 1"],
        "cycleTimeSync0":51,"shiftTimeSync0":52,"cycleTimeSync1":53,"shiftTimeSync1":54,
        "oversampling":{"defaultFactor":57,"minCycleTime":58}})");
    row("dcModes/0/syncManagers/0", R"({"number":55,"syncType":0,"cycleTime":0,"shiftTime":0})");
    row("dcModes/0/syncManagers/0/pdos/0", R"({"index":5634,"oversamplingFactor":56})");
    addDictionaryRows();
    row("slots", R"({"downloadModuleIdentList":true,"downloadModuleAddressList":false,
        "downloadModuleListTransition":"PS","identifyModuleBy":"Idb","maxSlotCount":81,"maxSlotGroupCount":82,
        "slotIndexIncrement":83,"slotPdoIncrement":84,"slotGroupIndexIncrement":85,"slotGroupPdoIncrement":86})");
    // In a slot group the steps of the slot are those of the groups.
    row("slots/list/0", R"({"name":"Slo","minInstances":1,"maxInstances":2,"slotIndexIncrement":85,
        "slotPdoIncrement":86,"slotGroup":4,"slotGroupIndexIncrement":93,"slotGroupPdoIncrement":94,"modules":[]})");
    row("slots/list/0/moduleClasses/0", R"({"class":"Cla","name":""})");
    row("slots/list/0/moduleClasses/1", R"({"class":"","name":"Cln"})");
    row("slots/list/0/moduleIdents/0", R"({"ident":33,"default":0})");
}

void tst_ShowModel::members()
{
    compare(m_file.value("devices").toArray().at(0).toObject().value("model").toObject());
}

void tst_ShowModel::module_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("expected");
    row("moduleGroups/0", R"({"comment":"Grp"})");
    row("moduleGroups/0/modules/0", R"({"name":"Mna","type":"Mty","ident":49,"moduleClass":"Cls","pdoGroup":32,
        "sraParameterSupported":true,"profileNo":37,"rxPdos":[],"dictionary":{"rows":[],"dataTypes":[],"objects":[]}})");
    row("moduleGroups/0/modules/0/txPdos/0", R"({"index":6657,"name":"Inp","fixed":false,"mandatory":true,
        "syncManager":3,"syncUnit":33,"size":4.3,"dependOnSlot":true,"dependOnSlotGroup":false,"instances":0,"choicePdo":0})");
    row("moduleGroups/0/modules/0/txPdos/0/entries/0", R"({"index":24577,"subIndex":34,"bitLength":35,"offset":0,
        "name":"Men","dataType":"BIT35","link":0,"linkName":"NONE Type","defaultData":0,"dependOnSlot":false,
        "dependOnSlotGroup":true,"comment":"Mco","choiceEntry":0})");
    row("moduleGroups/0/modules/0/commands/0", R"({"transition":2,"transitionName":"PS","index":32769,"subIndex":36,
        "completeAccess":0,"dataBytes":1,"data":10,"values":[],"text":"0xa","comment":"Mcc","dependOnSlot":false,
        "dependOnSlotGroup":true,"adaptAutomatically":false,"instances":0})");
}

void tst_ShowModel::module()
{
    compare(m_file);
}

void tst_ShowModel::compare(const QJsonObject& from)
{
    QFETCH(QString, path);
    QFETCH(QByteArray, expected);
    const QJsonObject wanted = objectOf(expected);
    QVERIFY(!wanted.isEmpty());
    const QJsonObject shown = withoutLists(valueAt(from, path).toObject());
    QVERIFY2(shown == wanted, QJsonDocument(shown).toJson(QJsonDocument::Compact).constData());
}

static const testMain::Registration<tst_ShowModel, QCoreApplication> registration;
#include "tst_ShowModel.moc"
