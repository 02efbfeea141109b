#ifndef ORVANE_RDXURL_P_H
#define ORVANE_RDXURL_P_H

#include <Orvane/rdxurl.h>

#include <QMap>
#include <QString>

namespace Orvane {

// The redirect URL of a category for the current pack.
QString buildRdxUrl(RdxUrlCategory category);

// The process-wide tables, the codes just re-written with their defaults.
QMap<RdxUrlCategory, QString> &rdxUrlCodeMap();
QMap<QString, int> &rdxPIDMap();

} // namespace Orvane

#endif // ORVANE_RDXURL_P_H
