#ifndef ORVANE_QTCOMPAT_P_H
#define ORVANE_QTCOMPAT_P_H

// The few calls whose spelling differs between Qt 5.15 and Qt 6, in one
// place, so that the rest of the library reads the same under both. Each
// helper gives the same result under both Qts.

#include <QLocale>
#include <QMouseEvent>
#include <QPoint>
#include <QPointF>
#include <QMetaType>
#include <QTextStream>
#include <QVariant>
#include <QtGlobal>

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
#include <QStringConverter>
#endif

namespace Orvane {

// The event's position in the receiving widget, and on the screen.
inline QPointF mouseLocalPosition(const QMouseEvent *event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return event->position();
#else
    return event->localPos();
#endif
}

inline QPoint mouseGlobalPoint(const QMouseEvent *event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return event->globalPosition().toPoint();
#else
    return event->globalPos();
#endif
}

// The QMetaType::Type of the value the variant holds.
inline int variantTypeId(const QVariant &value)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return value.typeId();
#else
    return value.userType();
#endif
}

// A locale of `language` for any country or territory.
inline QLocale anyTerritoryLocale(QLocale::Language language)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 2, 0)
    return QLocale(language, QLocale::AnyTerritory);
#else
    return QLocale(language, QLocale::AnyCountry);
#endif
}

// The stream writes UTF-8 whatever the system's locale.
inline void setUtf8(QTextStream *stream)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    stream->setEncoding(QStringConverter::Utf8);
#else
    stream->setCodec("UTF-8");
#endif
}

} // namespace Orvane

#endif // ORVANE_QTCOMPAT_P_H
