#ifndef ORVANE_IMAGEBUTTONSTYLE_H
#define ORVANE_IMAGEBUTTONSTYLE_H

// Everything an ImageButton draws, per mouse state (0 normal, 1 hover,
// 2 pressed or checked, 3 disabled). A public bag of fields: callers fill it
// directly and it checks nothing; the button pads the vectors when it applies
// the record.
//
// The record is always created on the heap and held by
// QSharedPointer<ImageButtonStyle>. Buttons given the same pointer write into
// the same record, so they change together.
//
// Colour vectors hold one colour per state, or with exactly 8 entries a
// horizontal gradient pair per state (elements 2s and 2s + 1). Text colours
// are read as pairs as soon as there are more than 4.

#include <Orvane/orvane_export.h>
#include <Orvane/shadoweffect.h>

#include <QColor>
#include <QMargins>
#include <QObject>
#include <QPixmap>
#include <QSharedPointer>
#include <QSize>
#include <QVector>

namespace Orvane {

class ORVANE_EXPORT ImageButtonStyle : public QObject
{
    Q_OBJECT

public:
    ImageButtonStyle();
    ~ImageButtonStyle() override;

    // Background image per state; when present it replaces fill and border.
    QVector<QPixmap> bgPixmaps;
    // Fixed borders of the background image when it is stretched.
    QMargins bgMargins;
    QVector<QPixmap> icons;
    // Fixed size of the icon label; an empty size leaves the label alone.
    QSize iconSize;
    QVector<QColor> textColors;
    QVector<QColor> bgColors;
    QVector<QColor> borderColors;
    // A null pointer in a slot means no shadow in that state.
    QVector<QSharedPointer<ShadowEffect>> shadows;
    bool hoverCursor;
    int radius;
    // 0 means the style applies no border.
    int borderWidth;
    // Contents margins of the button's inner layout.
    QMargins margins;
    // Used only when minimumSize is empty.
    QSize fixedSize;
    QSize minimumSize;
};

} // namespace Orvane

#endif // ORVANE_IMAGEBUTTONSTYLE_H
