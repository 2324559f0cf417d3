// tabFixture.h - a window with one file of one device, clicked, and one tab in front.
#pragma once

#include "workbench/modelBuilders.h"
#include "workbench/pdoBuilders.h"
#include "workbench/viewParts.h"

#include <memory>
#include <vector>

/// Base of the tests of a tab. Everything is as at the start of the program before each test.
class TabFixture : public QObject
{
    Q_OBJECT

protected:
    explicit TabFixture(const char* tab)
        : m_tab(tab)
    {}

    /// Loads one file with one device and the modules of the file, and clicks the device.
    void show(const struct_EtherCatDevice& shown, const std::vector<struct_commentmodule>& groups = {})
    {
        g_xmlfiledevices = {fileWith("a.xml", {})};
        g_xmlfiledevices[0].device = {shown};
        g_xmlfiledevices[0].vcommentmodule = groups;
        m_window->DeviceDisplayUpdate();
        clickItem(*m_window, treeItem(*m_window, 0, 0));
    }

    [[nodiscard]] static struct_EtherCatDevice& device() { return g_xmlfiledevices.at(0).device.at(0); }
    [[nodiscard]] static struct_module& module(std::size_t group, std::size_t position)
    {
        return g_xmlfiledevices.at(0).vcommentmodule.at(group).vmodule.at(position);
    }
    [[nodiscard]] MainWindow& window() const { return *m_window; }
    [[nodiscard]] QTableView& view(const char* name) const { return table(*m_window, name); }
    [[nodiscard]] QStringList row(const char* name, int number) const { return rowTexts(view(name), number); }
    [[nodiscard]] QStringList column(const char* name, int number) const { return columnTexts(view(name), number); }

private slots:
    void init()
    {
        startAnew();
        m_window = std::make_unique<MainWindow>();
        showWindow(*m_window);
        openTab(*m_window, m_tab);
    }

    void cleanup()
    {
        m_window.reset();
        startAnew();
    }

private:
    static void startAnew()
    {
        resetModel();
        g_bpdoormodulepdo = false;
        g_bpdoMultiplechoice = false;
    }

    const char* m_tab;
    std::unique_ptr<MainWindow> m_window;
};
