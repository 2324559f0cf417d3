#include "editing/linkTexts.h"

#include "model/pdoLink.h"

#include <QLatin1String>

#include <algorithm>
#include <array>
#include <iterator>

namespace {

struct LinkWords
{
    enum_KTL_PDO_TYPE link;
    QLatin1String text;
    bool forOutputs;
    bool forInputs;
};

const std::array linkWords{
    LinkWords{KTL_PDO_TYPE_NONE, QLatin1String("NONE Type"), true, true},
    LinkWords{KTL_PDO_TYPE_DIN, QLatin1String("DIN Type"), false, true},
    LinkWords{KTL_PDO_TYPE_DOUT, QLatin1String("DOUT Type"), true, false},
    LinkWords{KTL_PDO_TYPE_I16_AIN, QLatin1String("AIN16 Type"), false, true},
    LinkWords{KTL_PDO_TYPE_I32_AIN, QLatin1String("AIN32 Type"), false, true},
    LinkWords{KTL_PDO_TYPE_FLOAT_AIN, QLatin1String("FAIN Type"), false, true},
    LinkWords{KTL_PDO_TYPE_I16_AOUT, QLatin1String("AOUT16 Type"), true, false},
    LinkWords{KTL_PDO_TYPE_I32_AOUT, QLatin1String("AOUT32 Type"), true, false},
    LinkWords{KTL_PDO_TYPE_FLOAT_AOUT, QLatin1String("FAOUT Type"), true, false},
    LinkWords{KTL_PDO_TYPE_ENCODER32, QLatin1String("ENCODER32 Type"), false, true},
};

const QLatin1String wordsEnding(" Type"); // of the words that views show

bool isFor(const LinkWords& words, PdoDirection direction)
{
    return direction == PdoDirection::Outputs ? words.forOutputs : words.forInputs;
}

QString withoutEnding(const QString& words)
{
    return words.endsWith(wordsEnding) ? words.chopped(wordsEnding.size()) : words;
}

} // namespace

QString linkText(std::int32_t link)
{
    const auto* const found =
        std::find_if(linkWords.begin(), linkWords.end(), [link](const LinkWords& words) { return words.link == link; });
    return found == linkWords.end() ? QString::number(link) : QString(found->text);
}

std::vector<LinkText> linksFor(PdoDirection direction)
{
    std::vector<LinkText> links;
    for (const LinkWords& words : linkWords)
        if (isFor(words, direction))
            links.push_back({words.link, words.text});
    return links;
}

bool isLinkOffered(std::int32_t link, PdoDirection direction)
{
    return std::any_of(linkWords.begin(), linkWords.end(),
                       [&](const LinkWords& words) { return words.link == link && isFor(words, direction); });
}

QString linkName(std::int32_t link)
{
    return withoutEnding(linkText(link));
}

std::optional<std::int32_t> linkNamed(const QString& name)
{
    for (const PdoDirection direction : {PdoDirection::Outputs, PdoDirection::Inputs})
        for (const LinkText& link : linksFor(direction))
            if (withoutEnding(name) == withoutEnding(link.text))
                return link.link;
    return std::nullopt;
}

QStringList linkNames(PdoDirection direction)
{
    QStringList names;
    for (const LinkText& link : linksFor(direction))
        names.append(withoutEnding(link.text));
    return names;
}
