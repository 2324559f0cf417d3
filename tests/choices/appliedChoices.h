// appliedChoices.h - choices files applied to loaded files, what is wrong with them, and templates of loaded files.
#pragma once

#include "choices/file.h"
#include "choices/template.h"
#include "editing/deviceEdits.h"
#include "esi/esiFile.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <sstream>
#include <utility>

/// Problems as the command words them: "devices[0]: text [kind]", with "line:column: " in front where there is one.
inline QStringList wordsOf(const choices::Problems& problems)
{
    QStringList words;
    for (const choices::Problem& problem : problems.kept()) {
        const QString place =
            problem.line > 0 ? QStringLiteral("%1:%2: ").arg(problem.line).arg(problem.column) : QString();
        words += QStringLiteral("%1%2 [%3]").arg(place, problem.text, choices::nameOf(problem.code));
    }
    return words;
}

/// What is wrong with a text, whatever the devices.
inline QStringList problemsIn(const QByteArray& text)
{
    choices::Problems problems;
    static_cast<void>(choices::choicesIn(text, problems));
    return wordsOf(problems);
}

/// A list of one file; empty if it cannot be loaded.
inline std::vector<struct_FilenameDevice> loadedFile(const QString& path)
{
    QDomDocument document;
    EsiLoadResult result = loadEsiFile(path, document);
    std::vector<struct_FilenameDevice> files;
    if (result.status == EsiLoadStatus::Loaded)
        files.push_back(std::move(result.file));
    return files;
}

/// An ESI file written for this project.
/// @param name  without ".xml"
inline std::vector<struct_FilenameDevice> loadedSample(const QString& name)
{
    return loadedFile(QStringLiteral(KINETRA_SOURCE_DIR "/samples/") + name + QStringLiteral(".xml"));
}

/// A file of that text, which bears the name "test.xml".
inline std::vector<struct_FilenameDevice> loadedText(const QByteArray& esi)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("test.xml")));
    if (!file.open(QIODevice::WriteOnly) || file.write(esi) != esi.size())
        return {};
    file.close();
    return loadedFile(file.fileName());
}

/// Loaded files after the choices of a text.
struct AppliedChoices
{
    std::vector<struct_FilenameDevice> files;
    choices::MadeChoices made;
    QStringList problems;
};

inline AppliedChoices applied(std::vector<struct_FilenameDevice> files, const QByteArray& text)
{
    AppliedChoices result{std::move(files), {}, {}};
    const choices::DeviceSelectors selectors(result.files);
    choices::Problems problems;
    result.made = choices::applyFile(text, result.files, selectors, problems);
    result.problems = wordsOf(problems);
    return result;
}

/// What the command writes for loaded files, after it has selected each device.
inline QByteArray templateOf(std::vector<struct_FilenameDevice> files)
{
    DeviceClicks clicks;
    for (struct_FilenameDevice& file : files)
        for (struct_EtherCatDevice& device : file.device)
            clicks.select(device);
    std::ostringstream out;
    choices::writeTemplate(out, files);
    return QByteArray::fromStdString(out.str());
}
