// choicesParts.h - a conversion with a choices file, and a look at what the choices did to the bytes.
#pragma once

#include "choices/choicesTexts.h"
#include "cli/commandInProcess.h"
#include "cli/workplace.h"
#include "ktl/ktlItems.h"

#include <QtTest>

/// What a conversion said and wrote.
struct Conversion
{
    CommandRun run;
    QByteArray ktl; ///< empty if nothing was written
    QStringList files; ///< names in the folder of the output

    [[nodiscard]] std::vector<KtlItem> items() const
    {
        QString problem;
        std::vector<KtlItem> all = itemsOf(ktl, &problem);
        return problem.isEmpty() ? all : std::vector<KtlItem>();
    }

    /// The items of a type.
    [[nodiscard]] std::vector<KtlItem> items(std::uint32_t type) const
    {
        std::vector<KtlItem> found;
        for (const KtlItem& item : items())
            if (item.type == type)
                found.push_back(item);
        return found;
    }

    /// "type axes" of each device.
    [[nodiscard]] QString typesAndAxes() const
    {
        QStringList devices;
        for (const KtlItem& item : items(40000))
            devices += QStringLiteral("%1 %2").arg(item.u16(24)).arg(item.u16(48));
        return devices.join(QStringLiteral(", "));
    }

    /// Links of the entries of each PDO of the devices: "0 -2|0 0".
    [[nodiscard]] QString links() const
    {
        QStringList pdos;
        for (const KtlItem& item : items()) {
            if (item.type != 40003 && item.type != 40004)
                continue;
            QStringList links;
            for (std::uint32_t entry = 0; entry < item.u32(24); ++entry)
                links += QString::number(static_cast<std::int32_t>(item.u32(static_cast<int>(28 + 20 * entry + 16))));
            pdos += links.join(QLatin1Char(' '));
        }
        return pdos.join(QLatin1Char('|'));
    }

    /// The CoE commands of the first device, "transition index:subindex bytes data".
    [[nodiscard]] QStringList commands() const
    {
        QStringList all;
        const std::vector<KtlItem> coe = items(40006);
        for (int offset = 16; !coe.empty() && offset + 12 <= coe[0].content.size(); offset += 12)
            all += QStringLiteral("%1 %2:%3 %4 %5")
                       .arg(coe[0].u16(offset))
                       .arg(coe[0].u16(offset + 2), 0, 16)
                       .arg(coe[0].u8(offset + 4))
                       .arg(coe[0].u16(offset + 6))
                       .arg(coe[0].u32(offset + 8));
        return all;
    }
};

/// Converts ESI files into a folder of their own, always at the same time.
/// @param choices  content of the choices file; null for none
inline Conversion converted(const QStringList& esiFiles, const QByteArray& choices = {})
{
    const Workplace inputs;
    const Workplace outputs;
    const QString ktl = QStringLiteral("out.ktl");
    QStringList arguments =
        QStringList{"convert"} + esiFiles + QStringList{"-o", outputs.path(ktl), "--date", "2026-11-21T10:00:00"};
    if (!choices.isNull())
        arguments += {"--choices", inputs.make("choices.json", choices)};
    Conversion conversion;
    conversion.run = runHere(arguments);
    conversion.files = outputs.names();
    if (conversion.files.contains(ktl))
        conversion.ktl = outputs.content(ktl);
    return conversion;
}

/// The lines of messages, each without the name of the choices file in front.
inline QStringList messagesOf(const Conversion& conversion)
{
    QStringList messages;
    for (const QByteArray& line : conversion.run.errors.split('\n')) {
        const int name = line.indexOf("choices.json:");
        if (!line.isEmpty())
            messages += QString::fromUtf8(name < 0 ? line : line.mid(name + 13).trimmed());
    }
    return messages;
}
