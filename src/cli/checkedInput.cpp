#include "cli/checkedInput.h"

#include "check/checkFile.h"
#include "check/rules/fileRules.h"
#include "cli/streamName.h"

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

CheckedInput checkInput(const QString& path, const TreeInput& input, const struct_FilenameDevice& record,
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

check::CheckedFile uncheckedFile(const QString& path, const TreeInput& input, const FileChecks& checks)
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
