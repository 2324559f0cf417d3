#include "cli/streamName.h"

#include <QDir>

#include <algorithm>

namespace cli {

namespace {

bool isStandardStream(const QString& path)
{
    return path == QLatin1String("-");
}

} // namespace

bool isStandardInput(const QString& path)
{
    return isStandardStream(path);
}

bool isStandardOutput(const QString& path)
{
    return isStandardStream(path);
}

int standardInputsIn(const QStringList& paths)
{
    return static_cast<int>(std::count_if(paths.begin(), paths.end(), isStandardInput));
}

QString shownName(const QString& file)
{
    return isStandardInput(file) ? QStringLiteral("<stdin>") : QDir::toNativeSeparators(file);
}

QString filePath(const QString& argument)
{
    return argument.startsWith(QLatin1Char(':')) ? QStringLiteral("./") + argument : argument;
}

} // namespace cli
