// moduleTabFixture.h - a window with a coupler of two slots, for the Module tab.
#pragma once

#include "workbench/moduleTab.h"
#include "workbench/tabFixture.h"

#include <QComboBox>

/// Base of the tests that put modules into slots.
class ModuleTabFixture : public TabFixture
{
protected:
    /// Shows a coupler of a type with two slots, "A" of two places that takes 0x10 and 0x20, and "B" of one place that
    /// takes every module, and a group of three modules: 0 is "IO" (0x10), 1 is "AX" (0x20), 2 is "XX" (0x30).
    void showCoupler(int type = 5)
    {
        part<QComboBox>(window(), "comboBox_DeviceType")->setCurrentIndex(type);
        struct_EtherCatDevice coupler = deviceNamed("Coupler");
        coupler.m_iDeviceType = static_cast<std::uint16_t>(type);
        coupler.Slots.vslot = {slotNamed("A", 2, {0x10, 0x20}), slotNamed("B", 1)};
        show(coupler,
             {groupOf("all", {moduleWithPdos("IO", 0x10), moduleWithPdos("AX", 0x20), moduleWithPdos("XX", 0x30)})});
    }

    /// Makes a place and a module current.
    void choose(int place, int moduleNumber)
    {
        clickRow(view("ModuleView"), place);
        clickModule(window(), 0, moduleNumber);
    }

    void insert(int place, int moduleNumber)
    {
        choose(place, moduleNumber);
        press(window(), "InsertModule");
    }

    /// The modules of all slots with their places, as in "0 IO, 2 XX".
    [[nodiscard]] static QString placedModules()
    {
        QStringList modules;
        for (const struct_Slot& slot : loadedDevice().Slots.vslot)
            for (const struct_slotmodule& placed : slot.slotmodule)
                modules.append(
                    QStringLiteral("%1 %2").arg(placed.Instances).arg(QString::fromStdString(placed.module.Name)));
        return modules.join(QStringLiteral(", "));
    }
};
