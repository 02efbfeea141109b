#ifndef ORVANE_IMAGEBUTTON_H
#define ORVANE_IMAGEBUTTON_H

/// @file
/// The image button, Orvane::ImageButton, and its mouse states.

/// @class Orvane::ImageButton
/// The library's general push button. It paints its own background (a colour
/// or horizontal gradient per state, a rounded border, or a stretched image),
/// shows an icon label and a text label in a box layout, colours the text per
/// state through the label's style sheet, and switches a drop shadow per
/// state. Everything it draws comes from one ImageButtonStyle held through
/// QSharedPointer; every setter writes into that record, so all buttons built
/// on one record change together. Give each button its own record (the stock
/// factories return a new one per call) when they must differ.
///
/// The labels and the layout are children of the button; the button keeps
/// non-owning pointers to them. The drop shadow, once installed, is only ever
/// enabled or disabled, never removed.
///
/// Decisions:
/// - A state index past the end of a vector draws or changes nothing in that
///   state: no fill, no border, no image, the text colour and icon stay as
///   they were. An empty vector given to setBackground(colors, radius) leaves
///   no fill at all. A null record given to setStyle is replaced by a new
///   default record, as in the constructor.
/// - The text is shown exactly as written: an "&" in it is an ampersand and
///   makes no keyboard shortcut ("R&D" does not answer Alt+D). text() returns
///   it as given, and assistive technology reads it as the button's name. The
///   QAbstractButton text holds it with every "&" doubled (Qt's notation for
///   a literal ampersand). A shortcut given with setShortcut() stays when
///   the text changes.
/// - The member names `style`, `layout` and `pressed` hide QWidget::style(),
///   QWidget::layout() and the pressed() signal in this class's scope; reach
///   those through a QWidget or QAbstractButton pointer or qualified
///   (&QAbstractButton::pressed). setStyle, setLayout, setIcon, setText,
///   text and setFont likewise hide the base-class functions of those names.
///
/// @code{.cpp}
/// auto *save = new Orvane::ImageButton(Orvane::makeBtnStyle_Default(), this);
/// save->setText(tr("Save"));
/// save->setIcon(QPixmap(":/icons/save.png"), QSize(16, 16));
/// connect(save, &QAbstractButton::clicked, this, &Editor::save);
/// @endcode
///
/// @guithread
///
/// @par Binary compatibility:
/// The style record, the layout, the two labels and the two mouse flags are
/// the fixed members. No d-pointer: the members are the class's own, as its
/// design fixes them, and they stay, in this order, through 1.x, so the
/// class's size and layout do not change. Later state is kept by the library
/// outside the object, and new functions come as non-virtual members; no
/// inline code in this header reads a private member.

#include <Orvane/imagebuttonstyle.h>
#include <Orvane/orvane_export.h>
#include <Orvane/shadoweffect.h>

#include <QAbstractButton>
#include <QBoxLayout>
#include <QColor>
#include <QFont>
#include <QMargins>
#include <QPixmap>
#include <QSharedPointer>
#include <QSize>
#include <QString>
#include <QVector>

class QEnterEvent;
class QLabel;
class QPainter;

namespace Orvane {

/// The index of every per-state vector of ImageButtonStyle.
enum ButtonMouseState : int {
    Normal = 0,  ///< Enabled, neither hovered nor pressed nor checked.
    Hover = 1,   ///< Enabled and the pointer is inside.
    Pressed = 2, ///< Enabled and pressed while hovered, or checked.
    Disabled = 3 ///< The widget is disabled.
};

class ORVANE_EXPORT ImageButton : public QAbstractButton
{
    Q_OBJECT

public:
    /// A button drawn from `style`, shared with every other holder of the
    /// pointer. A null style gives the button a new default record of its own.
    explicit ImageButton(QSharedPointer<ImageButtonStyle> style, QWidget *parent = nullptr);
    /// A button with a new default record of its own.
    explicit ImageButton(QWidget *parent = nullptr);
    /// A button with a new default record and `text`. The text label is shown
    /// only when `text` is not empty.
    explicit ImageButton(const QString &text, QWidget *parent = nullptr);
    /// Releases the style reference; the children go with the button.
    ~ImageButton() override;

    /// Replaces the record and applies it. A null record is replaced by a new
    /// default record.
    void setStyle(QSharedPointer<ImageButtonStyle> style);

    /// Four times `c`, and the radius becomes 6 whatever it was.
    void setBackground(const QColor &c);
    /// One fill colour per state. Fewer than 4 colours get the first one
    /// appended once (2 become 3); an empty vector leaves no fill at all.
    void setBackground(const QVector<QColor> &colors, int radius);
    /// Horizontal gradient pairs per state. Ignored below 6 colours; exactly 6
    /// get the last one appended twice.
    void setBackgroundGradient(const QVector<QColor> &colors, int radius);
    /// Border gradient pairs per state. Ignored below 6 colours; exactly 6 get
    /// the last one appended twice.
    void setBorderGradient(const QVector<QColor> &colors, int width, int radius);
    /// The same image in every state, stretched with no fixed borders.
    void setBackground(const QPixmap &p);
    /// One image per state, stretched with fixed borders `m`. Fewer than 4
    /// images get the first one appended once; an empty vector draws no image.
    void setBackground(const QVector<QPixmap> &pixmaps, const QMargins &m);
    /// As above with horizontal stretch borders only.
    void setBackground(const QVector<QPixmap> &pixmaps, int left, int right);
    /// One icon per state, in a label of fixed `size` when that is not empty.
    /// No padding: a state past the end of the vector keeps the icon shown.
    void setIcon(const QVector<QPixmap> &icons, const QSize &size = QSize());
    /// The same icon in every state.
    void setIcon(const QPixmap &p, const QSize &size = QSize());
    /// Text colours per state. 1 to 3 colours are padded to 4 solid colours;
    /// 4 to 7 are padded with the first pair to at least 8 and read as
    /// gradient pairs. An empty vector leaves the colours as they were.
    void setTextColors(const QVector<QColor> &colors);
    /// The same text colour in every state.
    void setTextColor(const QColor &c);
    /// One shadow per state; a null pointer means no shadow in that state.
    void setShadows(const QVector<QSharedPointer<ShadowEffect>> &shadows);
    /// Applies `s` at once without storing it; null disables the shadow.
    void setShadow(const ShadowEffect *s);
    /// Whether the pointing-hand cursor shows while hovered.
    void enableHoverCursor(bool on);

    /// Direction, contents margins and spacing of the icon-and-text layout.
    void setLayout(QBoxLayout::Direction dir, const QMargins &margins, int spacing);
    /// The same with one margin on every side.
    void setLayout(QBoxLayout::Direction dir, int margin, int spacing);
    /// The label's text, also kept as the button's text (text(), and its
    /// accessible name). An empty text hides the text label.
    void setText(const QString &text);
    /// The text as given to setText(), with no mnemonic processing (the
    /// QAbstractButton text holds it with every "&" doubled).
    QString text() const;
    /// On the button and its icon label, not on the text label.
    void setTooltip(const QString &tip);
    /// Sets the text label's font.
    void setFont(const QFont &font);
    /// The text label's font.
    QFont font() const;

    /// The state the button draws now.
    ButtonMouseState buttonMouseState() const;
    /// Drives the hover look from outside (for example from a neighbouring
    /// widget); emits nothing.
    void bindMouseMoveIn(bool in);
    /// Drives the pressed look from outside; emits nothing.
    void bindMousePressed(bool p);
    /// Forgets hover and press and repaints (the text colour, icon and
    /// shadow follow at the next refresh()).
    void resetMouseState();
    /// Re-applies the record (icon, text colour, shadow, cursor) and repaints.
    void refresh();

    /// Widths of icon and text are summed whatever the layout direction.
    QSize sizeHint() const override;

Q_SIGNALS:
    /// The pointer entered the button.
    void mouseMoveIn();
    /// The pointer left the button.
    void mouseMoveOut();
    /// A mouse button went down on the button.
    void mousePressDown();
    /// A mouse button went up after a press on the button.
    void mousePressUp();

protected Q_SLOTS:
    /// Unchecking also ends the pressed flag; then refresh().
    void onToggled(bool checked);

protected:
    /// Builds the labels and the layout; called once by the constructor.
    void setupUI();
    /// Applies the record's sizes, margins, icon and text colour.
    void setupStyle();
    /// Paints the background of the current state.
    void refreshBG(QPainter &painter);
    /// Applies the hover cursor of the current state.
    void refreshCursor();
    /// Shows the icon of the current state.
    void refreshIcon();
    /// Switches the drop shadow of the current state.
    void refreshShadow();
    /// Colours the text of the current state.
    void refreshTextColor();

    /// QAbstractButton's handling, then the pressed look and mousePressDown().
    void mousePressEvent(QMouseEvent *e) override;
    /// QAbstractButton's handling (clicked, toggled), then mousePressUp() and
    /// the look after the press.
    void mouseReleaseEvent(QMouseEvent *e) override;
    /// Follows the pointer in and out of the button while pressed
    /// (mouseMoveIn(), mouseMoveOut()).
    void mouseMoveEvent(QMouseEvent *e) override;
    // Qt 6 hands the enter event over as a QEnterEvent.
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    using EnterEvent = QEnterEvent;
#else
    /// The enter event's type: QEvent under Qt 5, QEnterEvent under Qt 6.
    using EnterEvent = QEvent;
#endif
    /// Hover look and mouseMoveIn().
    void enterEvent(EnterEvent *e) override;
    /// Normal look and mouseMoveOut().
    void leaveEvent(QEvent *e) override;
    /// Paints the background; the labels paint themselves.
    void paintEvent(QPaintEvent *e) override;
    /// Re-applies the look after any change (enabling and disabling included).
    void changeEvent(QEvent *e) override;

    QSharedPointer<ImageButtonStyle> style; ///< The shared record everything is drawn from; never null.
    QBoxLayout *layout;                     ///< The icon-and-text layout.
    QLabel *iconLabel;                      ///< The icon.
    QLabel *textLabel;                      ///< The text.
    bool hovered;                           ///< The pointer is inside.
    bool pressed;                           ///< A mouse button is down on the button.
};

} // namespace Orvane

#endif // ORVANE_IMAGEBUTTON_H
