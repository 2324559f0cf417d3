// choiceLines.h - choices as lines of words "key=value", with a word for each field that is given and no other.
#pragma once

#include "choices/choices.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace choiceLines {

inline QString hex(std::uint32_t number)
{
    return QString::number(number, 16);
}

inline QString decimal(std::uint32_t number)
{
    return QString::number(number);
}

/// One line.
class Line
{
public:
    explicit Line(const QString& first)
        : m_words(first)
    {}

    Line& add(const char* key, const QString& value)
    {
        m_words += QLatin1String(key) + QLatin1Char('=') + value;
        return *this;
    }
    Line& add(const char* key, const std::optional<QString>& value)
    {
        return value.has_value() ? add(key, *value) : *this;
    }
    Line& add(const char* key, const std::optional<choices::ObjectAddress>& value)
    {
        return value.has_value() ? add(key, hex(value->index) + QLatin1Char(':') + decimal(value->subIndex)) : *this;
    }
    Line& add(const char* key, const std::optional<std::uint32_t>& value, QString (*words)(std::uint32_t) = decimal)
    {
        return value.has_value() ? add(key, words(*value)) : *this;
    }
    Line& addFlag(const char* key, bool isSet)
    {
        if (isSet)
            m_words += QLatin1String(key);
        return *this;
    }

    Line& add(const choices::EntryName& name)
    {
        return add("pdo", name.pdoRow)
            .add("pdoIndex", name.pdoIndex, hex)
            .add("entry", name.entryPosition)
            .add("entryObject", name.entryObject)
            .add("index", name.checkedIndex, hex)
            .add("object", name.checkedObject)
            .add("name", name.checkedName);
    }

    Line& add(const choices::ModuleName& module)
    {
        add("ident", module.ident, hex).add("row", module.row);
        return module.name.isEmpty() ? *this : add("module", module.name);
    }

    [[nodiscard]] QString text() const { return m_words.join(QLatin1Char(' ')); }

private:
    QStringList m_words;
};

inline QString lineOf(const choices::ModuleChoice& choice)
{
    Line line(QStringLiteral("module"));
    line.add("place", decimal(choice.place));
    return choice.module.has_value() ? line.add(*choice.module).text()
                                     : line.add("ident", QStringLiteral("none")).text();
}

inline QStringList linesOf(const std::vector<choices::ModuleChoice>& choices)
{
    QStringList lines;
    for (const choices::ModuleChoice& choice : choices)
        lines += lineOf(choice);
    return lines;
}

inline QString lineOf(const char* kind, const choices::LinkChoice& choice)
{
    Line line((QLatin1String(kind)));
    return line.add(choice.module)
        .add(static_cast<const choices::EntryName&>(choice))
        .add("link", QString::number(choice.link))
        .text();
}

inline QString lineOf(const char* kind, const choices::EntryChoice& choice)
{
    Line line((QLatin1String(kind)));
    line.add(static_cast<const choices::EntryName&>(choice));
    return choice.link == 0 ? line.text() : line.add("link", QString::number(choice.link)).text();
}

inline QString lineOf(const char* kind, const choices::StartupChoice& choice)
{
    Line line((QLatin1String(kind)));
    return line.add("row", decimal(choice.row))
        .add("was", choice.was.index, hex)
        .add("sub", choice.was.subIndex)
        .add("comment", choice.was.comment)
        .add("index", choice.index, hex)
        .add("subIndex", choice.subIndex)
        .add("bytes", choice.dataBytes)
        .add("data", choice.data)
        .addFlag("unchecked", choice.isUnchecked)
        .text();
}

template<typename Choice> QStringList linesOf(const char* kind, const std::vector<Choice>& choices)
{
    QStringList lines;
    for (const Choice& choice : choices)
        lines += lineOf(kind, choice);
    return lines;
}

/// The settings but for lists in one line; none if none is chosen.
inline QStringList settingsOf(const choices::DeviceChoices& choices)
{
    Line line(QStringLiteral("set"));
    if (!choices.isClicked)
        line.add("clicked", decimal(0));
    if (choices.takesModuleList.has_value())
        line.add("takesModuleList", decimal(*choices.takesModuleList ? 1 : 0));
    line.add("type", choices.deviceType).add("axes", choices.driveAxes);
    line.add("lastType", choices.lastType);
    line.add("configIndex", choices.configIndex, hex).add("detectIndex", choices.detectIndex, hex);
    return line.text() == QStringLiteral("set") ? QStringList() : QStringList(line.text());
}

/// All choices of a device but its name.
inline QStringList linesOf(const choices::DeviceChoices& choices)
{
    QStringList lines = settingsOf(choices);
    for (const choices::ModeName& mode : choices.dcModes)
        lines += mode.position.has_value() ? QStringLiteral("mode %1").arg(*mode.position) + mode.name
                                           : QStringLiteral("mode ") + mode.name;
    lines += linesOf("moduleLink", choices.moduleLinks);
    lines += linesOf(choices.modules);
    for (const choices::SyncManagerChoice& choice : choices.syncManagers)
        lines += Line(QStringLiteral("sm"))
                     .add("row", choice.row)
                     .add("name", choice.checkedName)
                     .add("minSize", decimal(choice.minSize))
                     .text()
                 + choice.name;
    lines += linesOf("link", choices.links);
    lines += linesOf("removeEntry", choices.removedEntries);
    lines += linesOf("addEntry", choices.addedEntries);
    lines += linesOf("changeCommand", choices.changedCommands);
    lines += linesOf("removeCommand", choices.removedCommands);
    lines += linesOf("addCommand", choices.addedCommands);
    return lines;
}

} // namespace choiceLines
