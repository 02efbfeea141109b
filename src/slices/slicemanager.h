#ifndef ORVANE_SLICEMANAGER_H
#define ORVANE_SLICEMANAGER_H

/// @file
/// The image catalogue, Orvane::SliceManager.

/// @class Orvane::SliceManager
/// The image catalogue. Named slices: the host embeds ":/slices.json" and
/// its sheet images in its own resources; the catalogue reads the file once,
/// when it is constructed, decodes every sheet then, and cuts a slice out of
/// its sheet on the first slice() call for its name, keeping the cut pixmap
/// for later calls. Loose images: the static helpers load files by name from
/// the folder "images" beside the host executable, uncached (only
/// lossFileCover() keeps what it loaded).
///
/// A host normally uses the one shared catalogue, sharedInstance(), created on
/// its first use and never deleted. Constructing another SliceManager gives an
/// independent catalogue that reads the file again.
///
/// @guithread
///
/// The catalogue owns the sheets (m_images) and the cut pixmaps (m_cache);
/// every Slice in m_slices points at an element of m_images. The sheets are a
/// std::deque, whose elements never move when it grows at the end (under Qt 6
/// a QList is a plain vector and would move them).
///
/// Scaled screens: a host may ship "sheet\@2x.png", drawn at twice the size,
/// beside "sheet.png" (for a sheet named without an extension, "sheet\@2x").
/// When the application draws at a device pixel ratio above 1 as the
/// catalogue is constructed (125 % and up, with Qt::AA_EnableHighDpiScaling
/// set before the QApplication), the catalogue decodes the twin instead, with
/// device pixel ratio 2. ":/slices.json" keeps its 1x coordinates for both:
/// each slice's rectangle is scaled by the sheet's ratio when it is cut, and
/// the slice comes back with that ratio, so it has the same size in
/// device-independent pixels as from the 1x sheet. Without a twin, or at
/// ratio 1, the plain sheet is used as before.
///
/// Decisions of ours:
/// - The members and parseFileNode() are protected, so that a subclass can
///   inspect or extend the catalogue; nothing else is reachable.
/// - Slice positions are computed in 64 bits and clamped to +/-2^29 pixels, so
///   huge numbers in the file cannot overflow; no real sheet comes near that.
/// - pixmapGroupNamed() returns an empty vector for a count of 0 (instead of
///   dividing by zero), for a crop that misses the image and for more frames
///   than the strip has pixels (where QPixmap::copy() would hand back the
///   whole image for each).
///
/// @code{.cpp}
/// Orvane::SliceManager &slices = Orvane::SliceManager::sharedInstance();
/// toolButton->setIcon(QIcon(slices.slice("toolbar_save")));
/// const QPixmap logo = Orvane::SliceManager::pixmapNamed("logo.png"); // images/logo.png
/// @endcode
///
/// @par Binary compatibility:
/// The slice table, the sheets and the cache are the fixed members, which
/// subclasses read. No d-pointer: the members are the class's own, as its
/// design fixes them, and they stay, in this order, through 1.x, so the
/// class's size and layout do not change. Later state is kept by the library
/// outside the object, and new functions come as non-virtual members; no
/// inline code in this header reads a private member.

#include <Orvane/orvane_export.h>
#include <Orvane/slice.h>

#include <QImage>
#include <QMap>
#include <QObject>
#include <QPixmap>
#include <QRect>
#include <QString>
#include <QVariantMap>
#include <QVector>

#include <deque>

class QByteArray;

namespace Orvane {

class ORVANE_EXPORT SliceManager : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(SliceManager)

public:
    /// Reads ":/slices.json" (loadConfig()); its result is not looked at: a
    /// missing or broken file gives an empty catalogue.
    SliceManager();
    /// Frees the sheets and the cut pixmaps (never happens to the shared one).
    ~SliceManager() override;

    /// The process-wide catalogue, created on the first call.
    static SliceManager &sharedInstance();

    /// The slice of that name, cut once and then served from the cache; a
    /// null pixmap for an unknown name. Writes the debug lines "slice: " and,
    /// on a miss, "slice not found:" with the name.
    QPixmap slice(const QString &name);

    /// Reads ":/slices.json" and appends its sheets and slices; false when
    /// the file is missing, empty or not JSON. A further call reads it again
    /// without clearing anything.
    bool loadConfig();

    /// The file `name` in the folder "images" beside the executable, cleaned
    /// ("." and ".." resolved, "/" separators). The name may hold subfolders.
    static QString pathNamed(const QString &name);
    /// That file loaded as a pixmap; null when it is missing or unreadable.
    static QPixmap pixmapNamed(const QString &name);
    /// That file loaded as an image; null when it is missing or unreadable.
    static QImage imageNamed(const QString &name);
    /// `count` equal frames side by side, cut from the file (first cropped to
    /// `rect` when that is not empty); the remainder of the width belongs to
    /// no frame. Empty when the file is missing, the crop misses the image,
    /// count is not positive or exceeds the width.
    static QVector<QPixmap> pixmapGroupNamed(const QString &name, int count, const QRect &rect);
    /// "AppIcon.png" from the images folder; null when it is missing.
    static QPixmap appIcon();
    /// "cover_default.png" from the images folder, read until it was found
    /// once and then kept; null while it is missing.
    static QPixmap lossFileCover();

protected:
    /// Enters the slices of one group of the file, all lying on `sheet`; a
    /// name defined earlier is overwritten. Missing keys take their defaults;
    /// a group without items enters nothing.
    void parseFileNode(const QVariantMap &group, QPixmap *sheet);

    QMap<QString, Slice> m_slices; ///< Slice name to slice, ordered by name.
    std::deque<QPixmap> m_images;  ///< The sheets in file order; their addresses never change.
    QMap<QString, QPixmap> m_cache; ///< Slice name to the pixmap already cut for it.

private:
    // The reader behind loadConfig(), which takes the file's bytes.
    friend bool readSliceConfig(SliceManager &manager, const QByteArray &json);
};

} // namespace Orvane

#endif // ORVANE_SLICEMANAGER_H
