// The sample of a bus coupler, from its ESI file to the bytes of the export, as each type of modular device.
#include "testMain.h"
#include "workbench/couplerItems.h"
#include "workbench/roundTripParts.h"

using namespace coupler;

class tst_SampleRoundTripsCoupler : public RoundTripFixture
{
    Q_OBJECT

private slots:
    void init() { begin({}); }
    void cleanup() { end(); }
    void untouched();
    void selected();
    void presetWithEdits();
    void modulesPutInAndTakenOut();
    void specialDevice();
    void refusals();
};

/// Commands of the modules that are in their slots from the start: none have any, and all their PDOs are fixed. The
/// power feed is at place 0, the sixteen inputs at place 1.
static QByteArrayList defaultAssignments()
{
    return assignment(0x1C13, {0x1AFF, 0x1A00, 0x1A01});
}

/// As loaded: a coupler that finds its modules itself, with the module commands of load time. The length of the inputs
/// is the coupler's own until it is selected.
void tst_SampleRoundTripsCoupler::untouched()
{
    open(samplePath("bus-coupler"));
    compareExport(QByteArrayList{general(identity, 3, true, 0, 16, 7)} + channels(0, 2)
                  + QByteArrayList{eoe(false, false, {}), coe(coeFlags, clearedAssignments() + defaultAssignments()),
                                   slotTable(), names()}
                  + moduleBlocks() + QByteArrayList{coupler::end()});
}

/// Once selected, it has no module data but the assignment of its own PDO.
void tst_SampleRoundTripsCoupler::selected()
{
    open(samplePath("bus-coupler"));
    select(0);
    compareExport(QByteArrayList{general(identity, 3, true, 0, 16, 7)} + channels(0, 2)
                  + QByteArrayList{eoe(false, false, {}),
                                   coe(coeFlags, clearedAssignments() + assignment(0x1C13, {0x1AFF})), slotTable(),
                                   names()}
                  + moduleBlocks() + QByteArrayList{coupler::end()});
}

/// The warning about the list of modules comes up, and the type is set all the same.
void tst_SampleRoundTripsCoupler::presetWithEdits()
{
    open(samplePath("bus-coupler"));
    select(0);
    setDeviceType(5, {pressing(QMessageBox::Ok)});
    setLink(0, 3, QStringLiteral("AIN32 Type"));
    setLinks(2, {0, 15}, QStringLiteral("DIN Type")); // of the copy in the slot, which types 3 and 5 do not write
    changeCommand(0, {QStringLiteral("0x1c12"), QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("255")});
    addCommand(0, {QStringLiteral("f030"), QStringLiteral("1"), QStringLiteral("4"), QStringLiteral("16")});
    deleteCommand(2); // clears 0x1C13
    deleteCommand(3); // the second of three assignments, of the power feed
    compareExport(QByteArrayList{general(identity, 5, true, 0, 16, 7)} + channels(0, 5, -5)
                  + QByteArrayList{eoe(false, false, {}),
                                   coe(coeFlags, {command(0x1C12, 0, 1, 255), command(0xF030, 1, 4, 16),
                                                  command(0x1C13, 1, 2, 0x1AFF), command(0x1C13, 3, 2, 0x1A01),
                                                  command(0x1C13, 0, 1, 3)})}
                  + presetTail(2, {0x010, 0x116}));
}

/// Each change warns of the list of modules. Places count over all slots, and indexes move with the place: by 1 for
/// PDOs, by 16 for objects.
void tst_SampleRoundTripsCoupler::modulesPutInAndTakenOut()
{
    const std::vector<DialogAnswer> ok{pressing(QMessageBox::Ok)};
    open(samplePath("bus-coupler"));
    select(0);
    setDeviceType(5, ok);
    insertModule(5, 3, 1, ok); // MB-AO04 into the fourth place of the third slot
    insertModule(2, 3, 0, ok); // MB-AI04 before it
    insertModule(1, 2, 1, ok); // MB-DO16 in place of the sixteen inputs
    insertModule(15, 1, 0, ok); // MB-DI08 into the last place of all
    deleteModule(0);
    deleteModule(3); // is empty: nothing happens
    // In the order of places: 1, 2, 5 and 15.
    const QByteArrayList modules =
        QByteArrayList{command(0x8010, 1, 1, 0),         command(0x8020, 1, 1, 0), command(0x8020, 2, 1, 0),
                       command(0x8020, 3, 1, 0),         command(0x8020, 4, 1, 0), command(0x8050, 1, 2, 1),
                       command(0x8050, 2, 4, 0x7FFF8000)}
        + mapping(0x1605, {0x70500110, 0x70500210, 0x70500310, 0x70500410}) + assignment(0x1C12, {0x1601, 0x1605})
        + assignment(0x1C13, {0x1AFF, 0x1A01, 0x1A02, 0x1A0F});
    // Outputs 2 + 8 bytes; inputs 2 of the coupler, 2, 8 and 1.
    compareExport(QByteArrayList{general(identity, 5, true, 0, 16, 7)} + channels(10, 13)
                  + QByteArrayList{eoe(false, false, {}), coe(coeFlags, clearedAssignments() + modules)}
                  + presetTail(4, {0, 0x216, 0x304, 0, 0, 0x404, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x108}));
}

/// Of a special device the PDOs of the modules are written as its own, with their indexes moved.
void tst_SampleRoundTripsCoupler::specialDevice()
{
    open(samplePath("bus-coupler"));
    select(0);
    setDeviceType(4);
    insertModule(3, 3, 1, {pressing(QMessageBox::Ok)}); // MB-AO04
    setLink(3, 2, QStringLiteral("DIN Type")); // rows: own, outputs of the module, power feed, inputs
    QByteArrayList inputs = entries(0x6010, 16, 1);
    inputs[2] = entry(0x6010, 3, 1, -1);
    const QByteArrayList pdos{
        pdoItem(deviceOutputs, {0x1603, 2}, entries(0x7030, 4, 16)),
        pdoItem(deviceInputs, {0x1A00, 3, true}, {entry(0x6000, 1, 1), entry(0x6000, 2, 1), gap(6)}),
        pdoItem(deviceInputs, {0x1A01, 3, true}, inputs),
    };
    const QByteArrayList modules = QByteArrayList{command(0x8030, 1, 2, 1), command(0x8030, 2, 4, 0x7FFF8000)}
                                   + mapping(0x1603, {0x70300110, 0x70300210, 0x70300310, 0x70300410})
                                   + assignment(0x1C12, {0x1603}) + defaultAssignments();
    compareExport(QByteArrayList{general(identity, 4, true, 0)} + channels(8, 5) + pdos
                  + QByteArrayList{eoe(false, false, {}), coe(coeFlags, clearedAssignments() + modules), slotTable(),
                                   names(), coupler::end()});
}

/// A module that does not fit, and a device type without modules of its own: nothing changes.
void tst_SampleRoundTripsCoupler::refusals()
{
    const DialogAnswer ok = pressing(QMessageBox::Ok);
    open(samplePath("bus-coupler"));
    select(0);
    insertModule(5, 3, 1, {ok}); // type 3 finds its modules itself
    deleteModule(0, {ok});
    setDeviceType(5, {ok});
    insertModule(0, 3, 1, {ok, ok}); // the place of the power feed takes nothing else
    compareExport(QByteArrayList{general(identity, 5, true, 0, 16, 7)} + channels(0, 5)
                  + QByteArrayList{eoe(false, false, {}), coe(coeFlags, clearedAssignments() + defaultAssignments())}
                  + presetTail(2, {0x010, 0x116}));
}

static const testMain::Registration<tst_SampleRoundTripsCoupler, QApplication> registration;
#include "tst_SampleRoundTripsCoupler.moc"
