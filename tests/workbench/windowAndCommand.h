// windowAndCommand.h - what the window exported, and what the command makes of the same files at the same time.
#pragma once

#include "cli/commandInProcess.h"
#include "workbench/roundTripParts.h"

#include <QDateTime>

/// Base of the tests that hold the command against the window.
class WindowAndCommandFixture : public RoundTripFixture
{
protected:
    /// The time that an exported file shows. Only the item with the names shows one; without it any time will do.
    static QString timeShownIn(const QByteArray& ktl)
    {
        QString problem;
        for (const KtlItem& item : itemsOf(ktl, &problem))
            if (item.type == byHand::moreInfo) {
                const QString digits = QStringLiteral("%1%2")
                                           .arg(item.u32(8), 8, 10, QLatin1Char('0'))
                                           .arg(item.u32(12), 6, 10, QLatin1Char('0'));
                return QDateTime::fromString(digits, QStringLiteral("yyyyMMddHHmmss")).toString(Qt::ISODate);
            }
        return QStringLiteral("2026-11-21T10:00:00");
    }

    /// Exports what is checked. @param script  how the warnings are answered that come up before the file dialog
    QByteArray exportedByWindow(std::vector<DialogAnswer> script = {})
    {
        const QString path = outPath(QStringLiteral("window%1.ktl").arg(outFiles().size()));
        script.push_back(choosing(path));
        DialogDriver dialogs(script);
        runExport(dialogs);
        m_warnings.clear();
        for (std::size_t step = 0; step + 1 < script.size(); ++step)
            m_warnings += dialogs.seen(step).text.trimmed();
        return contentOfFile(path);
    }

    /// Converts files at a time. @param choices  content of a choices file; null for none
    CommandRun convert(const QStringList& files, const QString& time, const QByteArray& choices = {})
    {
        const QDir folder(m_folder->path());
        m_command = folder.filePath(QStringLiteral("command.ktl"));
        QStringList arguments =
            QStringList{"convert"} + files + QStringList{"-o", m_command, "--force", "--date", time};
        if (!choices.isNull())
            arguments += {"--choices", writeFile(folder, QStringLiteral("choices.json"), choices)};
        return runHere(arguments);
    }

    /// Compares two files item by item, so that a difference is told by its item.
    static void compareItems(const QByteArray& command, const QByteArray& window)
    {
        QString problem;
        const std::vector<KtlItem> ofCommand = itemsOf(command, &problem);
        const std::vector<KtlItem> ofWindow = itemsOf(window, &problem);
        QCOMPARE(problem, QString());
        QCOMPARE(typesOf(ofCommand), typesOf(ofWindow));
        for (std::size_t index = 0; index < ofWindow.size(); ++index)
            QCOMPARE(ofCommand[index].content.toHex(' '), ofWindow[index].content.toHex(' '));
        QVERIFY(!window.isEmpty());
        QCOMPARE(command, window);
    }

    /// Exports what is checked and compares it with the same files by the command.
    /// @param devices  the choices that give what the clicks have given
    void compareWithChoices(const QStringList& files, const QByteArray& devices)
    {
        const QByteArray window = exportedByWindow();
        const CommandRun run = convert(files, timeShownIn(window),
                                       R"({"format": "kinetra-choices", "version": 1, "devices": [)" + devices + "]}");
        QVERIFY2(!run.errors.contains("error:"), run.errors.constData());
        QCOMPARE(run.exitCode, 0);
        compareItems(contentOfFile(m_command), window);
    }

    QString m_command; ///< the file that the command wrote last
    QStringList m_warnings; ///< texts of the warnings that came up before the last export
};
