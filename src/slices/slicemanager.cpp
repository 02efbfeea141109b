#include <Orvane/slicemanager.h>
#include <Orvane/startup.h>

#include "sliceconfig_p.h"

#include <QDebug>
#include <QDir>
#include <QFile>

namespace Orvane {

namespace {

QString composeImagePath(const QString &base, const QString &name)
{
    return QDir::cleanPath(base + QDir::separator() + QStringLiteral("images") + QDir::separator() + name);
}

} // namespace

SliceManager::SliceManager()
{
    loadConfig();
}

SliceManager::~SliceManager() = default;

SliceManager &SliceManager::sharedInstance()
{
    static SliceManager *const instance = new SliceManager;
    return *instance;
}

QPixmap SliceManager::slice(const QString &name)
{
    qDebug() << "slice: " << name;
    const auto found = m_slices.constFind(name);
    if (found == m_slices.constEnd()) {
        qDebug() << "slice not found:" << name;
        return QPixmap();
    }
    // Only a null entry is cut, so a slice whose sheet failed to load is
    // tried again on every call while a good cut is kept for good.
    QPixmap &cached = m_cache[name];
    if (cached.isNull())
        cached = found->slice();
    return cached;
}

bool SliceManager::loadConfig()
{
    QFile file(QStringLiteral(":/slices.json"));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    return readSliceConfig(*this, file.readAll());
}

void SliceManager::parseFileNode(const QVariantMap &group, QPixmap *sheet)
{
    const QString prefix = group.value(QStringLiteral("prefix")).toString();
    const SliceMethod method = parseSliceMethod(jsonMap(group.value(QStringLiteral("method"))));
    const QVariantList items = jsonList(group.value(QStringLiteral("items")));
    for (int i = 0; i < items.size(); ++i) {
        Slice entry;
        entry.image = sheet;
        entry.rect = sliceRect(method, i);
        m_slices.insert(prefix + items.at(i).toString(), entry);
    }
}

QString SliceManager::pathNamed(const QString &name)
{
    return composeImagePath(getResourcesPath(), name);
}

QPixmap SliceManager::pixmapNamed(const QString &name)
{
    return QPixmap(pathNamed(name));
}

QImage SliceManager::imageNamed(const QString &name)
{
    return QImage(pathNamed(name));
}

QVector<QPixmap> SliceManager::pixmapGroupNamed(const QString &name, int count, const QRect &rect)
{
    QPixmap strip(pathNamed(name));
    if (!rect.isEmpty()) {
        // QPixmap::copy() hands back the whole pixmap when the rectangle
        // misses it; here a crop that misses leaves nothing.
        const QRect crop = strip.rect().intersected(rect);
        strip = crop.isEmpty() ? QPixmap() : strip.copy(crop);
    }

    const int width = strip.width();
    const int height = strip.height();
    QVector<QPixmap> frames;
    if (width == 0 || count <= 0)
        return frames;

    // The remainder of the division belongs to no frame. Frames narrower
    // than a pixel would again copy the whole pixmap, so there are none.
    const int frameWidth = width / count;
    if (frameWidth == 0)
        return frames;
    frames.reserve(count);
    for (int i = 0; i < count; ++i)
        frames.append(strip.copy(i * frameWidth, 0, frameWidth, height));
    return frames;
}

QPixmap SliceManager::appIcon()
{
    return pixmapNamed(QStringLiteral("AppIcon.png"));
}

QPixmap SliceManager::lossFileCover()
{
    static QPixmap cover;
    if (cover.isNull())
        cover = pixmapNamed(QStringLiteral("cover_default.png"));
    return cover;
}

} // namespace Orvane
