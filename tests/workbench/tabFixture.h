// tabFixture.h - a window with one loaded file, and one tab of it in front.
#pragma once

#include "workbench/modelBuilders.h"
#include "workbench/pdoBuilders.h"
#include "workbench/viewParts.h"

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

/// A device of the file that is shown.
inline struct_EtherCatDevice& loadedDevice(std::size_t position = 0)
{
    return g_xmlfiledevices.at(0).device.at(position);
}

/// Base of the tests of a tab. Before each test everything is as at the start of the program.
class TabFixture : public QObject
{
protected:
    /// Shows a window with a tab in front, in which no file is loaded; for `init`.
    void begin(Tab tab)
    {
        resetModel();
        m_window = std::make_unique<MainWindow>();
        showWindow(*m_window);
        QVERIFY(QTest::qWaitForWindowActive(m_window.get())); // keys go to the active window
        openTab(*m_window, tab);
    }

    /// For `cleanup`.
    void end()
    {
        closeWindow();
        resetModel();
    }

    void closeWindow() { m_window.reset(); }

    /// Loads one file with these devices and clicks the first one.
    /// @param groups  the modules of the file
    void show(std::vector<struct_EtherCatDevice> devices, const std::vector<struct_commentmodule>& groups = {})
    {
        g_xmlfiledevices = {fileWith("a.xml", {})};
        g_xmlfiledevices[0].device = std::move(devices);
        g_xmlfiledevices[0].vcommentmodule = groups;
        m_window->DeviceDisplayUpdate();
        clickDevice(0);
    }

    void show(const struct_EtherCatDevice& device, const std::vector<struct_commentmodule>& groups = {})
    {
        show(std::vector<struct_EtherCatDevice>{device}, groups);
    }

    /// Clicks a device of the file, or the file itself if `device` is -1.
    void clickDevice(int device)
    {
        QTreeWidgetItem* const item = treeItem(*m_window, 0, device);
        deviceTree(*m_window)->scrollToItem(item);
        clickItem(*m_window, item);
    }

    [[nodiscard]] static struct_module& module(std::size_t group, std::size_t position)
    {
        return g_xmlfiledevices.at(0).vcommentmodule.at(group).vmodule.at(position);
    }
    [[nodiscard]] MainWindow& window() const { return *m_window; }
    [[nodiscard]] QTableView& view(const char* name) const { return table(*m_window, name); }
    [[nodiscard]] QStringList row(const char* name, int number) const { return rowTexts(view(name), number); }
    [[nodiscard]] QStringList column(const char* name, int number) const { return columnTexts(view(name), number); }

private:
    std::unique_ptr<MainWindow> m_window;
};

/// Rows of selections that are no device of a file with one device.
inline void addSelectionsWithoutADevice()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<int>("device");
    QTest::addRow("nothing selected") << -1 << -1;
    QTest::addRow("a file") << 0 << -1;
    QTest::addRow("device past the list") << 0 << 1;
    QTest::addRow("file past the list") << 1 << 0;
}
