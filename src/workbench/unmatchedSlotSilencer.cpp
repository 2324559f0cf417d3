#include "workbench/unmatchedSlotSilencer.h"

#include <QLatin1String>
#include <QString>
#include <QtGlobal>

namespace {

/// The handler of all other messages; a message handler gets no context of its own to keep it in.
QtMessageHandler& previousHandler()
{
    static QtMessageHandler handler = nullptr;
    return handler;
}

void passOnOthers(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!message.startsWith(QLatin1String("QMetaObject::connectSlotsByName: No matching signal")))
        previousHandler()(type, context, message);
}

} // namespace

UnmatchedSlotSilencer::UnmatchedSlotSilencer()
{
    previousHandler() = qInstallMessageHandler(passOnOthers);
}

UnmatchedSlotSilencer::~UnmatchedSlotSilencer()
{
    qInstallMessageHandler(previousHandler());
}
