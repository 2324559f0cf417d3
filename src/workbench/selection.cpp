#include "workbench/selection.h"

#include "model/XMLParsing.h"

int currentfileindex = -1;
int currentdeviceindex = -1;
bool g_bpdoormodulepdo = false;
bool g_bpdoMultiplechoice = false;

struct_EtherCatDevice* deviceAt(int file, int device)
{
    if (file < 0 || device < 0)
        return nullptr;
    const auto fileIndex = static_cast<std::size_t>(file);
    const auto deviceIndex = static_cast<std::size_t>(device);
    if (fileIndex >= g_xmlfiledevices.size() || deviceIndex >= g_xmlfiledevices[fileIndex].device.size())
        return nullptr;
    return &g_xmlfiledevices[fileIndex].device[deviceIndex];
}

struct_EtherCatDevice* selectedDevice()
{
    return deviceAt(currentfileindex, currentdeviceindex);
}

struct_EtherCatDevice* selectedDeviceInRange()
{
    if (currentfileindex < 0 || currentdeviceindex < 0)
        return nullptr;
    struct_FilenameDevice& file = g_xmlfiledevices.at(static_cast<std::size_t>(currentfileindex));
    return &file.device.at(static_cast<std::size_t>(currentdeviceindex));
}

bool selectItem(const QTreeWidget& tree, QTreeWidgetItem* item)
{
    QTreeWidgetItem* fileItem = item->parent() == nullptr ? item : item->parent();
    const int fileIndex = tree.indexOfTopLevelItem(fileItem);
    if (fileIndex < 0)
        return false;
    currentfileindex = fileIndex;
    currentdeviceindex = fileItem == item ? -1 : fileItem->indexOfChild(item);
    return true;
}
