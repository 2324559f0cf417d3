#include "image/svgMarkup.h"

#include "text/unsafeCharacters.h"

#include <QString>

#include <algorithm>

namespace image {

namespace {

bool isForbidden(QChar character)
{
    constexpr ushort firstNonCharacter = 0xFFFE;
    return isUnsafe(character) || character.unicode() >= firstNonCharacter;
}

/// ` name="12"`.
std::string attribute(std::string_view name, std::int64_t value)
{
    return ' ' + std::string(name) + "=\"" + std::to_string(value) + '"';
}

std::string idAttribute(const std::string& id)
{
    return id.empty() ? std::string() : " id=\"" + id + '"';
}

std::string further(std::string_view attributes)
{
    return attributes.empty() ? std::string() : ' ' + std::string(attributes);
}

} // namespace

std::string xmlText(const std::string& utf8)
{
    QString text = QString::fromStdString(utf8);
    std::replace_if(text.begin(), text.end(), isForbidden, QChar(QChar::ReplacementCharacter));
    return text.toHtmlEscaped().toStdString();
}

std::string rectangleElement(const std::string& id, const Rectangle& place, std::string_view attributes)
{
    return "<rect" + idAttribute(id) + attribute("x", place.x) + attribute("y", place.y)
           + attribute("width", place.width) + attribute("height", place.height) + further(attributes) + "/>\n";
}

std::string textElement(const std::string& id, int left, std::int64_t baseline, std::string_view attributes,
                        const std::string& utf8)
{
    return "<text" + idAttribute(id) + attribute("x", left) + attribute("y", baseline) + further(attributes) + '>'
           + xmlText(utf8) + "</text>\n";
}

} // namespace image
