#include "workbench/quietByName.h"

#include <QLatin1String>
#include <QString>
#include <QtGlobal>

namespace {

/// The handler that takes all other messages; a message handler gets no context of its own to keep it in.
QtMessageHandler& handlerBefore()
{
    static QtMessageHandler handler = nullptr;
    return handler;
}

void handOnOthers(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!message.startsWith(QLatin1String("QMetaObject::connectSlotsByName: No matching signal")))
        handlerBefore()(type, context, message);
}

} // namespace

QuietByName::QuietByName()
{
    handlerBefore() = qInstallMessageHandler(handOnOthers);
}

QuietByName::~QuietByName()
{
    qInstallMessageHandler(handlerBefore());
}
