#include "esi/terminationReason.h"

#include "esi/fileBeingRead.h"

#include <exception>

namespace {

QString reasonOf(const std::exception_ptr& error)
{
    if (error == nullptr)
        return QStringLiteral("no exception in flight");
    try {
        std::rethrow_exception(error);
    } catch (const std::exception& exception) {
        return QString::fromLocal8Bit(exception.what());
    } catch (...) {
        return QStringLiteral("unknown exception");
    }
}

} // namespace

QString terminationReason()
{
    const QString reason = QStringLiteral("The program ends on an error: %1").arg(reasonOf(std::current_exception()));
    const QString file = FileBeingRead::path();
    return file.isEmpty() ? reason : QStringLiteral("%1 (while reading %2)").arg(reason, file);
}
