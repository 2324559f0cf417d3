#include "cli/ktlEnd.h"

namespace cli {

QString problemAtEnd(const KtlWalk& walk)
{
    const QString place = QStringLiteral("0x%1").arg(walk.offset, 0, 16);
    switch (walk.end) {
    case KtlWalkEnd::Whole:
        break;
    case KtlWalkEnd::NoEndItem:
        return QStringLiteral("the last run has no End item: the file was cut short");
    case KtlWalkEnd::CutItem:
        return QStringLiteral("the file ends at %1, inside an item").arg(place);
    case KtlWalkEnd::CutHead:
        return QStringLiteral("the file ends inside the item head at %1").arg(place);
    case KtlWalkEnd::ImpossibleHead:
        return QStringLiteral("the item head at %1 cannot be right").arg(place);
    }
    return {};
}

} // namespace cli
