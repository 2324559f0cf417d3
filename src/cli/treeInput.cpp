#include "cli/treeInput.h"

#include "cli/ktlInput.h"
#include "cli/streamName.h"
#include "esi/fileBeingRead.h"

#include <QFile>

#include <new>
#include <string_view>
#include <utility>

namespace cli {

namespace {

void readEsi(QFile& file, const QString& path, TreeInput& input)
{
    const QString name = isStandardInput(path) ? shownName(path) : path;
    const FileBeingRead reading(name);
    EsiTreeResult read =
        esiTreeOf(file, [&](std::string_view bytes) { input.encodingFault = check::encodingFaultOf(bytes); });
    if (file.error() != QFileDevice::NoError)
        input.fault = unreadable(file.errorString());
    else if (!read.tree.has_value())
        input.fault = faultOf(read.status, read.reason);
    if (input.fault.has_value())
        return;
    EsiLoadResult loaded = declaredFileFrom(*read.tree, name, Dictionaries::AreSkipped);
    if (loaded.status != EsiLoadStatus::Loaded) {
        input.fault = faultOf(loaded.status, loaded.reason);
        return;
    }
    input.tree = std::move(read.tree);
    input.road = read.road;
    input.record = std::move(loaded.file);
    input.record.xmlfilepath = QFile::encodeName(name).toStdString(); // every byte of it
    input.areComplete = completeDevices(input.record); // what stops one of them is told by a rule
}

} // namespace

TreeInput readTreeInput(const QString& path, AcceptedInputs accepted)
{
    TreeInput input;
    try {
        QFile file;
        auto kind = InputKind::Neither;
        input.fault = openAccepted(file, path, accepted, kind);
        if (input.fault.has_value())
            return input;
        if (kind == InputKind::Ktl)
            input.fault = readKtl(file, input.bytes);
        else
            readEsi(file, path, input);
    } catch (const std::bad_alloc&) {
        input = {};
        input.fault = noMemory();
        input.isOutOfMemory = true;
    }
    return input;
}

} // namespace cli
