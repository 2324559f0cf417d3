#include "esi/derivation/rangeErrors.h"

#include "model/missingSyncManager.h"
#include "model/valueTexts.h"
#include "text/shownText.h"

QString rangeErrorText(const std::out_of_range& error)
{
    const auto* const missing = dynamic_cast<const MissingSyncManager*>(&error);
    if (missing == nullptr)
        return QStringLiteral("a number in the file goes beyond the end of a list");
    return QStringLiteral("device %1: PDO %2 %3 names sync manager %4, which the device does not declare: it has %5")
        .arg(shownText(QString::fromStdString(missing->device())), hexNumber(missing->pdoIndex()),
             shownText(QString::fromStdString(missing->pdoName())), QString::number(missing->number()),
             QString::number(missing->present()));
}
