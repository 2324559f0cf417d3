// deviceWindow.h - a main window with one loaded file, as the tests of its tabs use it.
#pragma once

#include "workbench/modelBuilders.h"
#include "workbench/tableParts.h"
#include "workbench/windowParts.h"

#include <cstddef>
#include <utility>
#include <vector>

/// A shown window; its model starts and ends empty.
class DeviceWindow
{
public:
    DeviceWindow()
    {
        resetModel();
        showWindow(window);
        static_cast<void>(QTest::qWaitForWindowActive(&window)); // keys go to the active window
    }
    ~DeviceWindow() { resetModel(); }
    DeviceWindow(const DeviceWindow&) = delete;
    DeviceWindow& operator=(const DeviceWindow&) = delete;
    DeviceWindow(DeviceWindow&&) = delete;
    DeviceWindow& operator=(DeviceWindow&&) = delete;

    /// Loads one file with these devices and clicks the first one.
    void show(std::vector<struct_EtherCatDevice> devices)
    {
        g_xmlfiledevices = {fileWith("a.xml", {})};
        g_xmlfiledevices[0].device = std::move(devices);
        window.DeviceDisplayUpdate();
        click(0);
    }

    /// Clicks a device of the file, or the file itself if `device` is -1.
    void click(int device)
    {
        QTreeWidgetItem* const item = treeItem(window, 0, device);
        deviceTree(window)->scrollToItem(item);
        clickItem(window, item);
    }

    template<typename Part> Part* find(const char* name) { return part<Part>(window, name); }

    static struct_EtherCatDevice& device(std::size_t position = 0)
    {
        return g_xmlfiledevices.at(0).device.at(position);
    }

    [[nodiscard]] QWidget* widget() { return &window; }

    MainWindow window;
};

/// Rows of selections that stand for no device of a file with one device.
inline void addSelectionsWithoutADevice()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<int>("device");
    QTest::addRow("nothing selected") << -1 << -1;
    QTest::addRow("a file") << 0 << -1;
    QTest::addRow("device past the list") << 0 << 1;
    QTest::addRow("file past the list") << 1 << 0;
}
