#include "cli/inputFault.h"

namespace cli {

InputFault unreadable(const QString& reason)
{
    return {InputFaultKind::Unreadable, QStringLiteral("the file cannot be read: ") + reason};
}

InputFault noMemory()
{
    return {InputFaultKind::Unreadable, QStringLiteral("not enough memory")};
}

InputFault faultOf(EsiLoadStatus status, const EsiLoadReason& reason)
{
    if (status == EsiLoadStatus::CannotOpen)
        return unreadable(reason.text);
    if (status == EsiLoadStatus::NotEsi)
        return {InputFaultKind::NoVendor, QStringLiteral("this is no ESI file: it has no Vendor element")};
    return {InputFaultKind::NotWellFormed, reason.text, reason.line, reason.column};
}

void report(const InputFault& fault, const QString& path, Messages& messages)
{
    if (fault.kind == InputFaultKind::NotWellFormed)
        messages.error(path, fault.line, fault.column, fault.text);
    else
        messages.error(path, fault.text);
}

} // namespace cli
