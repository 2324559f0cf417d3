// coeBench.cpp - filling the CoE tab against a tree of the same bare items.
#include "ratioLimits.h"
#include "stopwatch.h"
#include "windowParts.h"
#include "xmlText.h"

#include "model/XMLParsing.h"
#include "workbench/mainwindow.h"

#include <QStringList>
#include <QTreeWidget>

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr int objectCount = 5000;
constexpr int rowsOfObject = 12; ///< its own and those under it
constexpr int firstIndex = 0x2000;

/// A record of numbers and texts, one sub-item for the count and one for each row.
struct_DataTypes recordType(const std::string& digits)
{
    struct_DataTypes dataType;
    dataType.Name = "DT" + digits;
    dataType.vsubitem.resize(rowsOfObject);
    for (std::uint32_t subIndex = 0; subIndex < rowsOfObject; ++subIndex) {
        DataTypeSubItem& subItem = dataType.vsubitem[subIndex];
        const bool isText = subIndex % 4 == 3;
        subItem.SubIdx = subIndex;
        subItem.Name = "Sub-item " + std::to_string(subIndex) + " of " + digits;
        subItem.Type = isText ? "STRING(12)" : "UDINT";
        subItem.BitSize = isText ? 96 : 32;
        subItem.flag.Access = rw;
    }
    return dataType;
}

/// An array of numbers.
struct_DataTypes arrayType(const std::string& digits)
{
    struct_DataTypes dataType;
    dataType.Name = "DT" + digits + "ARR";
    dataType.BaseType = "UINT";
    dataType.varrayinfo.push_back({1, rowsOfObject - 1});
    return dataType;
}

struct_Object objectOf(const struct_DataTypes& dataType, int index)
{
    struct_Object object;
    object.index = static_cast<std::uint16_t>(index);
    object.Name = "Object " + std::to_string(index);
    object.Type = dataType.Name;
    object.flags.Access = ro;
    object.Info.vsubitem.resize(dataType.vsubitem.size());
    std::uint32_t value = 0;
    for (struct_Subitem& subItem : object.Info.vsubitem) {
        subItem.Info.Info.DefaultValue = static_cast<std::uint32_t>(index) * ++value;
        subItem.Info.Info.DefaultString = "text " + std::to_string(value);
    }
    return object;
}

/// A device with a dictionary: one object in four is an array, the others are records, each of a type of its own.
struct_EtherCatDevice deviceWithDictionary()
{
    struct_EtherCatDevice device;
    for (int index = firstIndex; index < firstIndex + objectCount; ++index) {
        const std::string digits = hexDigits(index, 4);
        device.Dictionary.vdatatype.push_back(index % 4 == 0 ? arrayType(digits) : recordType(digits));
        device.Dictionary.vobject.push_back(objectOf(device.Dictionary.vdatatype.back(), index));
    }
    return device;
}

/// Texts of an object's row, and of those under it.
using ObjectTexts = std::vector<QStringList>;

/// Copies of the texts: parts of them that outlive the item would leave its memory full of holes.
QStringList textsOf(const QTreeWidgetItem& item)
{
    QStringList texts;
    for (int column = 0; column < item.columnCount(); ++column) {
        const QString text = item.text(column);
        texts.append(QString(text.constData(), text.size()));
    }
    return texts;
}

std::vector<ObjectTexts> textsOf(const QTreeWidget& tree)
{
    std::vector<ObjectTexts> objects;
    for (int row = 0; row < tree.topLevelItemCount(); ++row) {
        const QTreeWidgetItem& item = *tree.topLevelItem(row);
        ObjectTexts texts{textsOf(item)};
        for (int child = 0; child < item.childCount(); ++child)
            texts.push_back(textsOf(*item.child(child)));
        objects.push_back(std::move(texts));
    }
    return objects;
}

/// Time to make items of texts that are there already, and to add them to a tree.
double secondsOfBareItems(const std::vector<ObjectTexts>& objects)
{
    QTreeWidget tree;
    tree.setColumnCount(6);
    const Stopwatch stopwatch;
    QList<QTreeWidgetItem*> items;
    for (const ObjectTexts& texts : objects) {
        auto* const item = new QTreeWidgetItem(texts.front());
        for (std::size_t row = 1; row < texts.size(); ++row)
            item->addChild(new QTreeWidgetItem(texts[row]));
        items.append(item);
    }
    tree.addTopLevelItems(items);
    return stopwatch.seconds();
}

/// Both times are taken in turn, so that a machine that gets slower or faster in between does so for both.
void fillCoeTab(benchmark::State& state)
{
    constexpr double limit = 2;
    g_xmlfiledevices.resize(1);
    g_xmlfiledevices[0].device = {deviceWithDictionary()};
    MainWindow window;
    window.DeviceDisplayUpdate();
    secondsOfClick(window);
    const std::vector<ObjectTexts> objects = textsOf(partNamed<QTreeWidget>(window, "CoeTree"));
    clearTabs(window);
    std::size_t rows = 0;
    for (const ObjectTexts& texts : objects)
        rows += texts.size();
    if (rows != std::size_t{objectCount} * rowsOfObject)
        throw std::runtime_error("the CoE tab does not show all rows");
    secondsOfBareItems(objects);

    std::vector<double> ratios;
    for ([[maybe_unused]] auto _ : state) {
        const double bare = secondsOfBareItems(objects);
        malloc_trim(0);
        const double click = secondsOfClick(window);
        clearTabs(window);
        state.SetIterationTime(click);
        ratios.push_back(click / bare);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(rows));
    checkRatio(state, "time to fill the CoE tab with 60,000 rows against bare items of the same texts", ratios, limit);
    g_xmlfiledevices = {};
}
BENCHMARK(fillCoeTab)->Iterations(31)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
