#ifndef ORVANE_IMAGEBUTTONSTYLE_H
#define ORVANE_IMAGEBUTTONSTYLE_H

/// @file
/// The image button's appearance record, Orvane::ImageButtonStyle.

/// @class Orvane::ImageButtonStyle
/// Everything an ImageButton draws, per mouse state (0 normal, 1 hover,
/// 2 pressed or checked, 3 disabled). A public bag of fields: callers fill it
/// directly and it checks nothing; the button pads the vectors when it applies
/// the record.
///
/// The record is always created on the heap and held by
/// QSharedPointer<ImageButtonStyle>. Buttons given the same pointer write into
/// the same record, so they change together.
///
/// Colour vectors hold one colour per state, or with exactly 8 entries a
/// horizontal gradient pair per state (elements 2s and 2s + 1). Text colours
/// are read as pairs as soon as there are more than 4.
///
/// @code{.cpp}
/// auto style = QSharedPointer<Orvane::ImageButtonStyle>::create();
/// style->bgColors = {Qt::white, QColor("#EEEEEE"), QColor("#DDDDDD"), Qt::lightGray};
/// style->radius = 4;
/// auto *a = new Orvane::ImageButton(style, this);
/// auto *b = new Orvane::ImageButton(style, this); // a and b change together
/// @endcode
///
/// @guithread Like the buttons that read it.
///
/// @par Binary compatibility:
/// A record with public fields and no d-pointer: hosts create it themselves,
/// so its fields stay, in this order and with these types, through 1.x. A
/// later need gets a new record type, never a new field here.

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
    /// Four black text colours, margins 2, both sizes invalid, nothing else.
    ImageButtonStyle();
    /// Releases the vectors.
    ~ImageButtonStyle() override;

    /// Background image per state; when present it replaces fill and border.
    QVector<QPixmap> bgPixmaps;
    /// Fixed borders of the background image when it is stretched.
    QMargins bgMargins;
    /// Icon per state.
    QVector<QPixmap> icons;
    /// Fixed size of the icon label; an empty size leaves the label alone.
    QSize iconSize;
    /// Text colour per state, or gradient pairs per state with more than 4.
    QVector<QColor> textColors;
    /// Background fill per state, or with exactly 8 a gradient pair per state.
    QVector<QColor> bgColors;
    /// Border colour per state, or with exactly 8 a gradient pair per state.
    QVector<QColor> borderColors;
    /// Shadow per state; a null pointer in a slot means no shadow in that state.
    QVector<QSharedPointer<ShadowEffect>> shadows;
    /// Whether the button shows the pointing-hand cursor while hovered.
    bool hoverCursor;
    /// Corner radius of background and border, pixels.
    int radius;
    /// Border pen width, pixels; 0 means the style applies no border.
    int borderWidth;
    /// Contents margins of the button's inner layout.
    QMargins margins;
    /// Fixed button size; used only when minimumSize is empty.
    QSize fixedSize;
    /// Minimum button size; takes precedence over fixedSize.
    QSize minimumSize;
};

} // namespace Orvane

#endif // ORVANE_IMAGEBUTTONSTYLE_H
