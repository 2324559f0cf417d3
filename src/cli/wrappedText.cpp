#include "cli/wrappedText.h"

#include <QStringList>

namespace cli {

QString wrapped(const QString& text, int maxWidth)
{
    QString lines;
    int width = 0;
    for (const QString& word : text.simplified().split(QLatin1Char(' '))) {
        const bool fits = width == 0 || width + 1 + word.size() <= maxWidth;
        if (width > 0)
            lines += fits ? QLatin1Char(' ') : QLatin1Char('\n');
        lines += word;
        width = (fits && width > 0 ? width + 1 : 0) + word.size();
    }
    return lines;
}

} // namespace cli
