// mainwindow_coe.cpp - the CoE tab: the dictionary of the selected device.
#include "workbench/mainwindow.h"

#include "workbench/dictionaryTree.h"

#include "ui_mainwindow.h"

/// @throws std::out_of_range if no device is selected, or one past the lists
static const DeviceDictionary& selectedDictionary()
{
    const struct_FilenameDevice& file = g_xmlfiledevices.at(static_cast<std::size_t>(currentfileindex));
    return file.device.at(static_cast<std::size_t>(currentdeviceindex)).Dictionary;
}

int MainWindow::device_datatypeSize(const std::string& type)
{
    const DeviceDictionary& dictionary = selectedDictionary();
    return DictionaryIndex(dictionary.vdatatype, dictionary.vobject).sizeOfDataType(type);
}

str_Info MainWindow::device_objectInfo(uint32_t index, uint32_t subIndex)
{
    const DeviceDictionary& dictionary = selectedDictionary();
    return DictionaryIndex(dictionary.vdatatype, dictionary.vobject).objectInfo(index, subIndex);
}

void MainWindow::device_datatypeScan(const QString& indexstr, const std::string& type, QTreeWidgetItem* item)
{
    const DeviceDictionary& dictionary = selectedDictionary();
    if (item == nullptr)
        return;
    DictionaryItems(dictionary).addRowsOfType(*item, indexstr, type);
}

void MainWindow::device_CoE_display()
{
    if (currentfileindex < 0 || currentdeviceindex < 0)
        return;
    ui->CoeTree->clear();
    fitDictionaryFont(*ui->CoeTree); // here, since the application has its font only after the window was made
    DictionaryItems(selectedDictionary()).addObjects(*ui->CoeTree);
    // ODD, KEPT: the rows counted are those of the module tree, where one would expect the ones just filled in. Nothing
    // uses this count. Pinned by tst_CoeSlots::rowCountIsThatOfTheModuleTree.
    coe_model_size = ui->ModuleTree->topLevelItemCount();
}
