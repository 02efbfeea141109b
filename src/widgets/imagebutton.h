#ifndef ORVANE_IMAGEBUTTON_H
#define ORVANE_IMAGEBUTTON_H

// The library's general push button. It paints its own background (a colour
// or horizontal gradient per state, a rounded border, or a stretched image),
// shows an icon label and a text label in a box layout, colours the text per
// state through the label's style sheet, and switches a drop shadow per
// state. Everything it draws comes from one ImageButtonStyle held through
// QSharedPointer; every setter writes into that record, so all buttons built
// on one record change together. Give each button its own record (the stock
// factories return a new one per call) when they must differ.
//
// The labels and the layout are children of the button; the button keeps
// non-owning pointers to them. The drop shadow, once installed, is only ever
// enabled or disabled, never removed.
//
// Decisions:
// - A state index past the end of a vector draws or changes nothing in that
//   state: no fill, no border, no image, the text colour and icon stay as
//   they were. An empty vector given to setBackground(colors, radius) leaves
//   no fill at all. A null record given to setStyle is replaced by a new
//   default record, as in the constructor.
// - The text is shown exactly as written: an "&" in it is an ampersand and
//   makes no keyboard shortcut ("R&D" does not answer Alt+D). text() returns
//   it as given, and assistive technology reads it as the button's name. The
//   QAbstractButton text holds it with every "&" doubled (Qt's notation for
//   a literal ampersand). A shortcut given with setShortcut() stays when
//   the text changes.
// - The member names `style`, `layout` and `pressed` hide QWidget::style(),
//   QWidget::layout() and the pressed() signal in this class's scope; reach
//   those through a QWidget or QAbstractButton pointer or qualified
//   (&QAbstractButton::pressed). setStyle, setLayout, setIcon, setText,
//   text and setFont likewise hide the base-class functions of those names.

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

// The index of every per-state vector of ImageButtonStyle.
enum ButtonMouseState : int {
    Normal = 0,
    Hover = 1,
    Pressed = 2, // also while checked
    Disabled = 3
};

class ORVANE_EXPORT ImageButton : public QAbstractButton
{
    Q_OBJECT

public:
    // A null style gives the button a new default record of its own.
    explicit ImageButton(QSharedPointer<ImageButtonStyle> style, QWidget *parent = nullptr);
    explicit ImageButton(QWidget *parent = nullptr);
    // The text label is shown only when `text` is not empty.
    explicit ImageButton(const QString &text, QWidget *parent = nullptr);
    ~ImageButton() override;

    // Replaces the record and applies it.
    void setStyle(QSharedPointer<ImageButtonStyle> style);

    // Four times `c`, and the radius becomes 6 whatever it was.
    void setBackground(const QColor &c);
    // Fewer than 4 colours get the first one appended once (2 become 3).
    void setBackground(const QVector<QColor> &colors, int radius);
    // Ignored below 6 colours; exactly 6 get the last one appended twice.
    void setBackgroundGradient(const QVector<QColor> &colors, int radius);
    // Ignored below 6 colours; exactly 6 get the last one appended twice.
    void setBorderGradient(const QVector<QColor> &colors, int width, int radius);
    // The same image in every state, stretched with no fixed borders.
    void setBackground(const QPixmap &p);
    // Fewer than 4 images get the first one appended once.
    void setBackground(const QVector<QPixmap> &pixmaps, const QMargins &m);
    // As above with horizontal stretch borders only.
    void setBackground(const QVector<QPixmap> &pixmaps, int left, int right);
    // No padding: every state that occurs needs its icon.
    void setIcon(const QVector<QPixmap> &icons, const QSize &size = QSize());
    void setIcon(const QPixmap &p, const QSize &size = QSize());
    // 1 to 3 colours are padded to 4 solid colours; 4 to 7 are padded with
    // the first pair to at least 8 and read as gradient pairs.
    void setTextColors(const QVector<QColor> &colors);
    void setTextColor(const QColor &c);
    void setShadows(const QVector<QSharedPointer<ShadowEffect>> &shadows);
    // Applies `s` at once without storing it; null disables the shadow.
    void setShadow(const ShadowEffect *s);
    void enableHoverCursor(bool on);

    void setLayout(QBoxLayout::Direction dir, const QMargins &margins, int spacing);
    void setLayout(QBoxLayout::Direction dir, int margin, int spacing);
    void setText(const QString &text);
    // The text as given to setText(), with no mnemonic processing.
    QString text() const;
    // On the button and its icon label, not on the text label.
    void setTooltip(const QString &tip);
    // The text label's font.
    void setFont(const QFont &font);
    QFont font() const;

    ButtonMouseState buttonMouseState() const;
    // Drive the look from outside (for example from a neighbouring widget);
    // neither emits anything.
    void bindMouseMoveIn(bool in);
    void bindMousePressed(bool p);
    void resetMouseState();
    void refresh();

    // Widths of icon and text are summed whatever the layout direction.
    QSize sizeHint() const override;

Q_SIGNALS:
    void mouseMoveIn();
    void mouseMoveOut();
    void mousePressDown();
    void mousePressUp();

protected Q_SLOTS:
    void onToggled(bool checked);

protected:
    void setupUI();
    void setupStyle();
    void refreshBG(QPainter &painter);
    void refreshCursor();
    void refreshIcon();
    void refreshShadow();
    void refreshTextColor();

    void mousePressEvent(QMouseEvent *e) override;
    void mouseReleaseEvent(QMouseEvent *e) override;
    void mouseMoveEvent(QMouseEvent *e) override;
    // Qt 6 hands the enter event over as a QEnterEvent.
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    using EnterEvent = QEnterEvent;
#else
    using EnterEvent = QEvent;
#endif
    void enterEvent(EnterEvent *e) override;
    void leaveEvent(QEvent *e) override;
    void paintEvent(QPaintEvent *e) override;
    void changeEvent(QEvent *e) override;

    QSharedPointer<ImageButtonStyle> style;
    QBoxLayout *layout;
    QLabel *iconLabel;
    QLabel *textLabel;
    bool hovered;
    bool pressed;
};

} // namespace Orvane

#endif // ORVANE_IMAGEBUTTON_H
