#include "text/oneLine.h"

#include "text/printableAscii.h"
#include "text/unsafeCharacters.h"

#include <QChar>

#include <algorithm>

QString oneLine(QString text, DrawingHints hints)
{
    const auto becomesBlank = [hints](QChar character) {
        const QChar::Category category = character.category();
        return isUnsafe(character) || category == QChar::Separator_Line || category == QChar::Separator_Paragraph
               || (hints == DrawingHints::BecomeBlanks && category == QChar::Other_Format);
    };
    std::replace_if(text.begin(), text.end(), becomesBlank, QLatin1Char(' '));
    return text;
}

std::string oneLine(const std::string& utf8, DrawingHints hints)
{
    if (isPrintableAscii(utf8))
        return utf8; // as most texts are
    return oneLine(QString::fromStdString(utf8), hints).toStdString();
}
