// twinDevices.h - an ESI file in which names are not unique.
#pragma once

#include <QByteArray>

/// Two devices, modes, PDOs, entries and modules of each name; the slot takes the first ident only.
inline QByteArray twinsEsi()
{
    const QByteArray entry = "<Entry><Index>#x7000</Index><SubIndex>1</SubIndex><BitLen>8</BitLen></Entry>";
    const QByteArray pdo = "<RxPdo Sm=\"0\"><Index>#x1600</Index>" + entry + entry + "</RxPdo>";
    const QByteArray mode = "<OpMode><Name>DC</Name><AssignActivate>#x300</AssignActivate></OpMode>";
    const QByteArray device = "<Device><Type ProductCode=\"1\" RevisionNo=\"1\">T</Type><Name>Twin</Name>"
                              "<Profile><ProfileNo>5001</ProfileNo></Profile><Sm>Outputs</Sm>"
                              + pdo + pdo + "<Dc>" + mode + mode
                              + "</Dc><Slots><Slot MinInstances=\"0\" MaxInstances=\"2\"><ModuleIdent>1</ModuleIdent>"
                                "</Slot></Slots></Device>";
    const QByteArray modules = "<Module><Type ModuleIdent=\"1\">A</Type><Name>First</Name></Module>"
                               "<Module><Type ModuleIdent=\"1\">B</Type><Name>Second</Name></Module>"
                               "<Module><Type ModuleIdent=\"2\">A</Type><Name>Third</Name></Module>";
    return "<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices>" + device + device + "</Devices><Modules>"
           + modules + "</Modules></Descriptions></EtherCATInfo>";
}
