#include "cli/checkedInput.h"

#include "check/checkFile.h"
#include "check/rules/fileRules.h"
#include "cli/ktlInput.h"
#include "cli/streamName.h"
#include "esi/fileBeingRead.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <new>
#include <utility>

namespace cli {

namespace {

check::FileRule ruleOf(InputFaultKind kind)
{
    switch (kind) {
    case InputFaultKind::Unreadable:
        break;
    case InputFaultKind::NotWellFormed:
        return check::FileRule::NotWellFormed;
    case InputFaultKind::NoVendor:
        return check::FileRule::NoVendor;
    case InputFaultKind::OtherKind:
        return check::FileRule::Kind;
    }
    return check::FileRule::Unreadable;
}

void readEsi(QFile& file, const QString& path, InputToCheck& input)
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

bool isAsked(const FileChecks& checks, check::FileRule rule)
{
    return std::find(checks.rules.begin(), checks.rules.end(), &check::ruleOf(rule)) != checks.rules.end();
}

check::CheckedFile namedFile(const QString& path)
{
    check::CheckedFile file;
    file.name = QFile::encodeName(shownName(path)).toStdString();
    file.shownName = path.isEmpty() ? "ktl" : messageText(shownName(path));
    file.uri = uriOf(path);
    return file;
}

check::CheckedFile withFault(const QString& path, const InputFault& fault, const FileChecks& checks)
{
    check::CheckedFile file = namedFile(path);
    if (const check::FileRule rule = ruleOf(fault.kind); isAsked(checks, rule))
        file.findings.list.push_back(check::fileFinding(rule, fault.text, {fault.line, fault.column}));
    return file;
}

} // namespace

InputToCheck readToCheck(const QString& path, AcceptedInputs accepted)
{
    InputToCheck input;
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

CheckedInput checkInput(const QString& path, const InputToCheck& input, const struct_FilenameDevice& record,
                        const FileChecks& checks)
{
    CheckedInput checked{{}, input.road, input.isOutOfMemory};
    try {
        if (input.fault.has_value()) {
            checked.file = withFault(path, *input.fault, checks);
            return checked;
        }
        checked.file = namedFile(path);
        if (input.tree.has_value()) {
            checked.file.findings = check::checkEsi(
                {*input.tree, record, input.areComplete, checks.givenFiles, input.encodingFault}, checks.rules);
            checked.file.kind = check::FileKind::Esi;
        } else {
            checked.file.findings = check::checkKtl(input.bytes, checks.rules);
            checked.file.kind = check::FileKind::Ktl;
        }
    } catch (const std::bad_alloc&) {
        checked.file = withFault(path, noMemory(), checks);
        checked.isOutOfMemory = true;
    }
    return checked;
}

check::CheckedFile uncheckedFile(const QString& path, const InputToCheck& input, const FileChecks& checks)
{
    if (input.fault.has_value())
        return withFault(path, *input.fault, checks);
    check::CheckedFile file = namedFile(path);
    file.kind = check::FileKind::Esi;
    return file;
}

std::string uriOf(const QString& path)
{
    if (path.isEmpty() || isStandardInput(path))
        return {};
    const QString absolute = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    QString folder = QDir::currentPath();
    if (!folder.endsWith(QLatin1Char('/')))
        folder += QLatin1Char('/');
    const bool isBelow = absolute.startsWith(folder);
    const QByteArray encoded =
        QFile::encodeName(isBelow ? absolute.mid(folder.size()) : absolute).toPercentEncoding("/");
    return (isBelow ? encoded : "file://" + encoded).toStdString();
}

} // namespace cli
