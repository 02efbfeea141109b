#include "sliceconfig_p.h"

#include "core/qtcompat_p.h"
#include "core/ratiopixmaps_p.h"

#include <QDebug>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QPixmap>
#include <QRegularExpression>
#include <QStringList>

namespace Orvane {

namespace {

// "begin" and "size" hold two whole numbers split by a comma, a space, or
// both; anything else leaves the caller's default.
bool readNumberPair(const QVariant &value, int *first, int *second)
{
    static const QRegularExpression separator(QStringLiteral("[, ]"));
    const QStringList parts = value.toString().split(separator, Qt::SkipEmptyParts);
    if (parts.size() != 2)
        return false;
    *first = parts.at(0).toInt(nullptr, 10);
    *second = parts.at(1).toInt(nullptr, 10);
    return true;
}

// The names as Qt 5's QDebug writes a string list, ("a", "b"); Qt 6 would
// write QList("a", "b"), and the debug line keeps one form under both.
QString debugList(const QStringList &names)
{
    QString text;
    QDebug out(&text);
    out.nospace() << '(';
    for (int i = 0; i < names.size(); ++i) {
        if (i > 0)
            out << ", ";
        out << names.at(i);
    }
    out << ')';
    return text;
}

int clampCoordinate(qint64 value)
{
    return int(qBound(-qint64(maxSliceCoordinate), value, qint64(maxSliceCoordinate)));
}

} // namespace

bool readSliceConfig(SliceManager &manager, const QByteArray &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (document.isEmpty())
        return false;

    const QJsonArray entries = document.array();
    for (const QJsonValue &value : entries) {
        const QVariantMap entry = value.toObject().toVariantMap();
        // On a scaled screen a "@2x" twin of the sheet is taken when the host
        // ships one.
        const QString path = QStringLiteral(":/") + entry.value(QStringLiteral("filename")).toString();
        manager.m_images.push_back(loadPixmapForRatio(path, applicationPixelRatio()));
        // A deque never moves its elements when it grows at the end, so this
        // address survives later sheets.
        QPixmap *sheet = &manager.m_images.back();

        const QVariantList groups = jsonList(entry.value(QStringLiteral("slices")));
        for (const QVariant &group : groups)
            manager.parseFileNode(jsonMap(group), sheet);

        qDebug().noquote() << "slices: " << debugList(manager.m_slices.keys());
    }
    return true;
}

QVariantList jsonList(const QVariant &value)
{
    return variantTypeId(value) == QMetaType::QVariantList ? value.toList() : QVariantList();
}

QVariantMap jsonMap(const QVariant &value)
{
    return variantTypeId(value) == QMetaType::QVariantMap ? value.toMap() : QVariantMap();
}

SliceMethod parseSliceMethod(const QVariantMap &method)
{
    SliceMethod result;

    const QString type = method.value(QStringLiteral("type")).toString();
    if (type == QLatin1String("hor-line"))
        result.type = 1;
    else if (type == QLatin1String("ver-line"))
        result.type = 2;

    int first = 0;
    int second = 0;
    if (readNumberPair(method.value(QStringLiteral("begin")), &first, &second))
        result.begin = QPoint(first, second);

    result.spacing = method.value(QStringLiteral("spacing")).toInt();

    if (readNumberPair(method.value(QStringLiteral("size")), &first, &second))
        result.size = QSize(first, second);

    return result;
}

QRect sliceRect(const SliceMethod &method, int index)
{
    if (method.type != 1 && method.type != 2)
        return QRect();

    const bool horizontal = method.type == 1;
    // |index| < 2^31 and |step| <= 2^32, so the offset fits in 64 bits.
    const qint64 step = qint64(horizontal ? method.size.width() : method.size.height()) + method.spacing;
    const qint64 offset = qint64(index) * step;
    const qint64 x = method.begin.x() + (horizontal ? offset : 0);
    const qint64 y = method.begin.y() + (horizontal ? 0 : offset);
    return QRect(clampCoordinate(x), clampCoordinate(y),
                 clampCoordinate(method.size.width()), clampCoordinate(method.size.height()));
}

} // namespace Orvane
