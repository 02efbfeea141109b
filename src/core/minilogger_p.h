#ifndef ORVANE_MINILOGGER_P_H
#define ORVANE_MINILOGGER_P_H

#include <QtGlobal>

class QMessageLogContext;
class QString;

namespace Orvane {

// The handler initMiniLogger() installs; not for separate use.
void miniLogMessageHandler(QtMsgType type, const QMessageLogContext &context, const QString &message);

} // namespace Orvane

#endif // ORVANE_MINILOGGER_P_H
