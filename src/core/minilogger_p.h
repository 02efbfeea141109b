#ifndef ORVANE_MINILOGGER_P_H
#define ORVANE_MINILOGGER_P_H

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QMessageLogContext;
class QString;
QT_END_NAMESPACE

namespace Orvane {

// The handler initMiniLogger() installs; not for separate use.
void miniLogMessageHandler(QtMsgType type, const QMessageLogContext &context, const QString &message);

} // namespace Orvane

#endif // ORVANE_MINILOGGER_P_H
