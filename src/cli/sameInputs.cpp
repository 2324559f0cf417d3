#include "cli/sameInputs.h"

#include "cli/streamName.h"

#include <QFileInfo>

namespace cli {

int SameInputs::add(const QString& path)
{
    const QFileInfo info(path);
    return isStandardInput(path) || !info.isFile() ? 1 : ++m_counts[info.canonicalFilePath()];
}

} // namespace cli
