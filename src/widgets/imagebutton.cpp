#include <Orvane/imagebutton.h>

#include <Orvane/helpers.h>

#include "cachedshadoweffect_p.h"
#include "core/qtcompat_p.h"

#include <QEvent>
#include <QGraphicsDropShadowEffect>
#include <QKeySequence>
#include <QLabel>
#include <QMovie>
#include <QPicture>
#include <QPointer>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <QtMath>

#include <functional>
#include <memory>
#include <typeinfo>

namespace Orvane {

namespace {

// What a label shows, as far as its pixels go; everything else that a
// label's looks depend on (font, palette, style sheets around it, enabling,
// screen) reaches the label as an event.
struct LabelLooks
{
    explicit LabelLooks(const QLabel *label = nullptr)
    {
        if (!label)
            return;
        hidden = label->isHidden();
        autoFill = label->autoFillBackground();
        geometry = label->geometry();
        text = label->text();
        pixmap = label->pixmap(Qt::ReturnByValue).cacheKey();
        alignment = int(label->alignment());
        indent = label->indent();
        margin = label->margin();
        format = int(label->textFormat());
        frameStyle = label->frameStyle();
        lineWidth = label->lineWidth();
        midLineWidth = label->midLineWidth();
        wordWrap = label->wordWrap();
        scaled = label->hasScaledContents();
        sheet = label->styleSheet();
        buddy = label->buddy();
    }
    bool operator==(const LabelLooks &o) const
    {
        return hidden == o.hidden && autoFill == o.autoFill && geometry == o.geometry && pixmap == o.pixmap && alignment == o.alignment
            && indent == o.indent && margin == o.margin && format == o.format && frameStyle == o.frameStyle
            && lineWidth == o.lineWidth && midLineWidth == o.midLineWidth && wordWrap == o.wordWrap
            && scaled == o.scaled && buddy == o.buddy && text == o.text && sheet == o.sheet;
    }

    bool hidden = true;
    bool autoFill = false;
    QRect geometry;
    QString text;
    qint64 pixmap = 0;
    int alignment = 0;
    int indent = 0;
    int margin = 0;
    int format = 0;
    int frameStyle = 0;
    int lineWidth = 0;
    int midLineWidth = 0;
    bool wordWrap = false;
    bool scaled = false;
    QString sheet;
    const QWidget *buddy = nullptr;
};

// What the button's own paint event draws from: its state and size and the
// drawing fields of its style record.
struct ButtonLooks
{
    ButtonLooks() = default;
    ButtonLooks(const QWidget *button, int state, const ImageButtonStyle *record)
        : size(button->size()),
          state(state),
          autoFill(button->autoFillBackground()),
          styled(button->testAttribute(Qt::WA_StyledBackground)),
          record(record),
          bgMargins(record->bgMargins),
          bgColors(record->bgColors),
          borderColors(record->borderColors),
          borderWidth(record->borderWidth),
          radius(record->radius)
    {
        for (const QPixmap &p : record->bgPixmaps)
            bgPixmaps.append(p.cacheKey());
    }
    bool operator==(const ButtonLooks &o) const
    {
        return size == o.size && state == o.state && autoFill == o.autoFill && styled == o.styled
            && record == o.record && bgMargins == o.bgMargins && borderWidth == o.borderWidth && radius == o.radius
            && bgPixmaps == o.bgPixmaps && bgColors == o.bgColors && borderColors == o.borderColors;
    }

    QSize size;
    int state = -1;
    bool autoFill = false;
    bool styled = false;
    const ImageButtonStyle *record = nullptr;
    QVector<qint64> bgPixmaps;
    QMargins bgMargins;
    QVector<QColor> bgColors;
    QVector<QColor> borderColors;
    int borderWidth = 0;
    int radius = 0;
};

// Vouches to the button's shadow that a render made now would give the
// pixels of the last one: the button's and its labels' looks are as they
// were, and none of the three has received an event since (a new font,
// palette, style sheet, screen, enabling, visibility or size arrives as
// one). A subclass (even one without a meta-object of its own), or a child widget other than the two labels, paints
// what this cannot see, so it is never vouched for.
class ButtonWitness : public QObject, public CachedShadowEffect::SourceWitness
{
public:
    ButtonWitness(ImageButton *button, QLabel *icon, QLabel *text, std::function<const ImageButtonStyle *()> record)
        : m_button(button),
          m_icon(icon),
          m_text(text),
          m_record(std::move(record))
    {
        for (QObject *watched : {static_cast<QObject *>(button), static_cast<QObject *>(icon), static_cast<QObject *>(text)})
            watched->installEventFilter(this);
    }

    bool unchanged() const override
    {
        return !m_changed && m_button && m_icon && m_text && plainButton() && looks() == m_looks
            && LabelLooks(m_icon) == m_iconLooks && LabelLooks(m_text) == m_textLooks;
    }

    void remember() override
    {
        if (!m_button || !m_icon || !m_text)
            return;
        m_looks = looks();
        m_iconLooks = LabelLooks(m_icon);
        m_textLooks = LabelLooks(m_text);
        m_changed = false;
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::Paint:
        case QEvent::UpdateRequest:
        case QEvent::UpdateLater:
        case QEvent::Timer:
        case QEvent::MetaCall:
            break;
        default:
            m_changed = true;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    ButtonLooks looks() const { return ButtonLooks(m_button, m_button->buttonMouseState(), m_record()); }

    bool plainButton() const
    {
        // Through a plain reference: typeid of the guarded pointer's operator*
        // would count as an expression with side effects.
        const ImageButton &button = *m_button;
        if (typeid(button) != typeid(ImageButton))
            return false;
        int widgets = 0;
        for (const QObject *child : m_button->children()) {
            if (child->isWidgetType() && ++widgets > 2)
                return false;
        }
        for (const QLabel *label : {m_icon.data(), m_text.data()}) {
            if (label->parent() != m_button || typeid(*label) != typeid(QLabel)
                || label->movie() || !label->picture(Qt::ReturnByValue).isNull())
                return false;
            for (const QObject *child : label->children()) {
                if (child->isWidgetType())
                    return false;
            }
        }
        return true;
    }

    QPointer<ImageButton> m_button;
    QPointer<QLabel> m_icon;
    QPointer<QLabel> m_text;
    std::function<const ImageButtonStyle *()> m_record;
    bool m_changed = true;
    ButtonLooks m_looks;
    LabelLooks m_iconLooks;
    LabelLooks m_textLooks;
};

// The brush of state `s` from a colour vector: exactly 8 colours are a
// horizontal gradient pair per state across `r`, anything else one solid
// colour per state. False when the vector has no entry for `s`.
bool stateBrush(const QVector<QColor> &colors, int s, const QRect &r, QBrush *brush)
{
    if (colors.size() == 8) {
        QLinearGradient gradient(r.topLeft(), r.topRight());
        gradient.setColorAt(0.0, colors.at(2 * s));
        gradient.setColorAt(1.0, colors.at(2 * s + 1));
        *brush = QBrush(gradient);
        return true;
    }
    if (s >= colors.size())
        return false;
    *brush = QBrush(colors.at(s));
    return true;
}

// A gradient vector of exactly 6 colours gets its last colour twice, so the
// disabled pair repeats the pressed end colour.
void padGradient(QVector<QColor> &colors)
{
    if (colors.size() == 6) {
        const QColor last = colors.last();
        colors.append(last);
        colors.append(last);
    }
}

// Fewer than 4 entries get the first one appended once, not up to 4.
template <typename T>
void padOnce(QVector<T> &v)
{
    if (!v.isEmpty() && v.size() < 4) {
        const T first = v.first();
        v.append(first);
    }
}

// The text in QAbstractButton's mnemonic notation with no mnemonic in it:
// every "&" doubled, which Qt reads as a literal "&". The button then grabs
// no shortcut from its text, and Qt's accessibility reads the name back as
// written and reports no accelerator.
QString literalMnemonicText(const QString &text)
{
    QString escaped = text;
    return escaped.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

ImageButton::ImageButton(QSharedPointer<ImageButtonStyle> style_, QWidget *parent)
    : QAbstractButton(parent),
      style(std::move(style_)),
      layout(nullptr),
      iconLabel(nullptr),
      textLabel(nullptr),
      hovered(false),
      pressed(false)
{
    if (!style)
        style = QSharedPointer<ImageButtonStyle>(new ImageButtonStyle);
    setupUI();
    setupStyle();
    connect(this, SIGNAL(toggled(bool)), this, SLOT(onToggled(bool)));
}

ImageButton::ImageButton(QWidget *parent)
    : ImageButton(QSharedPointer<ImageButtonStyle>(), parent)
{
}

ImageButton::ImageButton(const QString &text, QWidget *parent)
    : ImageButton(QSharedPointer<ImageButtonStyle>(), parent)
{
    setText(text);
}

ImageButton::~ImageButton() = default;

void ImageButton::setupUI()
{
    layout = new QBoxLayout(QBoxLayout::TopToBottom, this);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->setAlignment(Qt::AlignCenter);

    iconLabel = new QLabel(this);
    iconLabel->setAlignment(Qt::AlignCenter);
    iconLabel->setAttribute(Qt::WA_TranslucentBackground);
    iconLabel->setScaledContents(true);

    textLabel = new QLabel(this);
    textLabel->setAttribute(Qt::WA_TranslucentBackground);

    layout->addWidget(iconLabel);
    layout->addWidget(textLabel);
    iconLabel->hide();
    textLabel->hide();
}

void ImageButton::setupStyle()
{
    ImageButtonStyle &st = *style;

    if (!st.minimumSize.isEmpty()) {
        if (st.minimumSize.width() != 0)
            setMinimumWidth(st.minimumSize.width());
        if (st.minimumSize.height() != 0)
            setMinimumHeight(st.minimumSize.height());
    } else if (!st.fixedSize.isEmpty()) {
        if (st.fixedSize.width() != 0)
            setFixedWidth(st.fixedSize.width());
        if (st.fixedSize.height() != 0)
            setFixedHeight(st.fixedSize.height());
    }

    setTextColors(st.textColors);

    if (!st.icons.isEmpty()) {
        if (!st.iconSize.isEmpty())
            iconLabel->setFixedSize(st.iconSize);
        refreshIcon();
    }

    const int n = st.bgColors.size();
    if (n >= 1 && n <= 4) {
        setBackground(st.bgColors, st.radius);
        update();
    } else if (n >= 6) {
        setBackgroundGradient(st.bgColors, st.radius);
    }

    if (st.borderWidth > 0 && st.borderColors.size() >= 6)
        setBorderGradient(st.borderColors, st.borderWidth, st.radius);

    layout->setContentsMargins(st.margins);

    refreshTextColor();
    refreshShadow();
}

void ImageButton::setStyle(QSharedPointer<ImageButtonStyle> style_)
{
    style = std::move(style_);
    if (!style)
        style = QSharedPointer<ImageButtonStyle>(new ImageButtonStyle);
    setupStyle();
}

void ImageButton::setBackground(const QColor &c)
{
    style->bgColors = QVector<QColor>(4, c);
    // Deliberately overrides any radius set before.
    style->radius = 6;
    update();
}

void ImageButton::setBackground(const QVector<QColor> &colors, int radius)
{
    style->bgColors = colors;
    padOnce(style->bgColors);
    style->radius = radius;
    update();
}

void ImageButton::setBackgroundGradient(const QVector<QColor> &colors, int radius)
{
    if (colors.size() < 6)
        return;
    style->bgColors = colors;
    padGradient(style->bgColors);
    style->radius = radius;
}

void ImageButton::setBorderGradient(const QVector<QColor> &colors, int width, int radius)
{
    if (colors.size() < 6)
        return;
    style->borderColors = colors;
    padGradient(style->borderColors);
    style->borderWidth = width;
    style->radius = radius;
}

void ImageButton::setBackground(const QPixmap &p)
{
    style->bgPixmaps = QVector<QPixmap>(3, p);
    padOnce(style->bgPixmaps);
    style->bgMargins = QMargins(0, 0, 0, 0);
}

void ImageButton::setBackground(const QVector<QPixmap> &pixmaps, const QMargins &m)
{
    style->bgPixmaps = pixmaps;
    padOnce(style->bgPixmaps);
    style->bgMargins = m;
}

void ImageButton::setBackground(const QVector<QPixmap> &pixmaps, int left, int right)
{
    setBackground(pixmaps, QMargins(left, 0, right, 0));
}

void ImageButton::setIcon(const QVector<QPixmap> &icons, const QSize &size)
{
    style->icons = icons;
    if (!size.isEmpty())
        iconLabel->setFixedSize(size);
    refreshIcon();
}

void ImageButton::setIcon(const QPixmap &p, const QSize &size)
{
    if (!size.isEmpty())
        iconLabel->setFixedSize(size);
    style->icons = QVector<QPixmap>(4, p);
    refreshIcon();
}

void ImageButton::setTextColors(const QVector<QColor> &colors)
{
    QVector<QColor> &v = style->textColors;
    v = colors;
    const int n = v.size();
    if (n >= 1 && n <= 3) {
        const QColor first = v.first();
        while (v.size() < 4)
            v.append(first);
    } else if (n >= 4 && n <= 7) {
        // Four colours become four gradient pairs on purpose.
        const QColor c0 = v.at(0);
        const QColor c1 = v.at(1);
        while (v.size() < 8) {
            v.append(c0);
            v.append(c1);
        }
    }
    refreshTextColor();
}

void ImageButton::setTextColor(const QColor &c)
{
    setTextColors(QVector<QColor>(4, c));
    QPalette palette = textLabel->palette();
    palette.setBrush(QPalette::All, textLabel->foregroundRole(), QBrush(c));
    textLabel->setPalette(palette);
}

void ImageButton::setShadows(const QVector<QSharedPointer<ShadowEffect>> &shadows)
{
    style->shadows = shadows;
    refreshShadow();
}

void ImageButton::setShadow(const ShadowEffect *s)
{
    auto *effect = qobject_cast<QGraphicsDropShadowEffect *>(graphicsEffect());
    if (s) {
        if (!effect) {
            // Replaces (and deletes) any other kind of effect. Ours keeps the
            // blurred shadow between paints, and the rendered button while
            // the witness sees no change.
            auto *cached = new CachedShadowEffect(this);
            cached->setSourceWitness(std::unique_ptr<CachedShadowEffect::SourceWitness>(
                new ButtonWitness(this, iconLabel, textLabel, [this] { return style.data(); })));
            effect = cached;
            setGraphicsEffect(effect);
        }
        effect->setEnabled(true);
        effect->setOffset(qreal(s->offsetX), qreal(s->offsetY));
        effect->setBlurRadius(s->blurRadius);
        if (s->color.isValid())
            effect->setColor(s->color);
    } else if (effect) {
        // Kept installed and only disabled, so the next state can re-enable it.
        effect->setEnabled(false);
    }
}

void ImageButton::enableHoverCursor(bool on)
{
    style->hoverCursor = on;
}

void ImageButton::setLayout(QBoxLayout::Direction dir, const QMargins &margins, int spacing)
{
    layout->setDirection(dir);
    layout->setContentsMargins(margins);
    layout->setSpacing(spacing);
    if (dir == QBoxLayout::LeftToRight) {
        textLabel->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        layout->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    } else if (dir == QBoxLayout::TopToBottom) {
        // Only horizontal centring for a column, kept as it has always been.
        layout->setAlignment(Qt::AlignHCenter);
    }
}

void ImageButton::setLayout(QBoxLayout::Direction dir, int margin, int spacing)
{
    setLayout(dir, QMargins(margin, margin, margin, margin), spacing);
}

void ImageButton::setText(const QString &text)
{
    textLabel->setText(text);
    textLabel->setVisible(!text.isEmpty());
    // The button's own text is what assistive technology reads as its name;
    // it is stored with every "&" doubled so that it makes no shortcut.
    // QAbstractButton::setText replaces the shortcut with the text's
    // mnemonic (none here): a shortcut the host set stays.
    const QKeySequence own = shortcut();
    QAbstractButton::setText(literalMnemonicText(text));
    if (shortcut() != own)
        setShortcut(own);
}

QString ImageButton::text() const
{
    QString stored = QAbstractButton::text();
    return stored.replace(QLatin1String("&&"), QLatin1String("&"));
}

void ImageButton::setTooltip(const QString &tip)
{
    setToolTip(tip);
    iconLabel->setToolTip(tip);
}

void ImageButton::setFont(const QFont &font)
{
    textLabel->setFont(font);
}

QFont ImageButton::font() const
{
    return textLabel->font();
}

ButtonMouseState ImageButton::buttonMouseState() const
{
    if (!isEnabled())
        return Disabled;
    if (pressed && hovered)
        return Pressed;
    if (isChecked())
        return Pressed;
    if (hovered)
        return Hover;
    return Normal;
}

void ImageButton::bindMouseMoveIn(bool in)
{
    hovered = in;
    update();
    refreshCursor();
}

void ImageButton::bindMousePressed(bool p)
{
    pressed = p;
    update();
}

void ImageButton::resetMouseState()
{
    hovered = false;
    pressed = false;
    update();
}

void ImageButton::refresh()
{
    refreshCursor();
    refreshTextColor();
    refreshIcon();
    refreshShadow();
    update();
}

QSize ImageButton::sizeHint() const
{
    const QMargins m = layout->contentsMargins();
    const QSize t = textLabel->sizeHint();
    if (iconLabel->isHidden())
        return QSize(t.width() + m.left() + m.right(), t.height() + m.top() + m.bottom());
    const QSize i = iconLabel->size();
    return QSize(layout->spacing() + i.width() + t.width() + m.left() + m.right(),
                 qMax(i.height(), t.height()) + m.top() + m.bottom());
}

void ImageButton::onToggled(bool checked)
{
    if (!checked)
        pressed = false;
    refresh();
}

void ImageButton::refreshBG(QPainter &painter)
{
    const ImageButtonStyle &st = *style;
    const int s = buttonMouseState();

    if (!st.bgPixmaps.isEmpty()) {
        // An image replaces both fill and border.
        if (s < st.bgPixmaps.size())
            drawStretchedImage(painter, frameSize(), st.bgPixmaps.at(s), st.bgMargins);
        return;
    }

    const QRect r = rect();
    QBrush brush;
    if (!st.bgColors.isEmpty() && stateBrush(st.bgColors, s, r, &brush)) {
        static const QPen transparentPen{QColor(Qt::transparent)};
        painter.setPen(transparentPen);
        painter.setBrush(brush);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.drawRoundedRect(r, st.radius, st.radius);
    }

    if (!st.borderColors.isEmpty() && stateBrush(st.borderColors, s, r, &brush)) {
        static const QBrush transparentFill(Qt::transparent);
        painter.setPen(QPen(brush, st.borderWidth));
        painter.setBrush(transparentFill);
        painter.setRenderHint(QPainter::Antialiasing);
        // Inset by half the pen so the stroke stays inside the button.
        const int inset = qCeil(st.borderWidth * 0.5);
        QRect border = r;
        border.setY(inset);
        border.setX(inset);
        border.setWidth(r.width() - st.borderWidth - border.x());
        border.setHeight(r.height() - st.borderWidth - border.y());
        painter.drawRoundedRect(border, st.radius, st.radius);
    }
}

void ImageButton::refreshCursor()
{
    if (style->hoverCursor)
        setCursor(hovered ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void ImageButton::refreshIcon()
{
    const QVector<QPixmap> &icons = style->icons;
    if (icons.isEmpty())
        return;
    const int s = buttonMouseState();
    if (s < icons.size())
        iconLabel->setPixmap(icons.at(s));
    iconLabel->setVisible(true);
}

void ImageButton::refreshShadow()
{
    const QVector<QSharedPointer<ShadowEffect>> &shadows = style->shadows;
    const int s = buttonMouseState();
    // Without a slot for this state the effect keeps what the last state set.
    if (s >= shadows.size())
        return;
    setShadow(shadows.at(s).data());
}

void ImageButton::refreshTextColor()
{
    const QVector<QColor> &colors = style->textColors;
    const int s = buttonMouseState();
    QString sheet;
    if (colors.size() > 4) {
        if (2 * s + 1 >= colors.size())
            return;
        sheet = QStringLiteral(".QLabel{color:qlineargradient(x1:0 y1:0, x2:%1 y2:1, stop:0 %2, stop:1 %3)}")
                    .arg(width())
                    .arg(colors.at(2 * s).name(), colors.at(2 * s + 1).name());
    } else {
        if (s >= colors.size())
            return;
        sheet = QStringLiteral(".QLabel{color: %1;}").arg(colors.at(s).name());
    }
    // Re-polishing the label is costly; skip it when nothing changed.
    if (textLabel->styleSheet() != sheet)
        textLabel->setStyleSheet(sheet);
}

void ImageButton::mousePressEvent(QMouseEvent *e)
{
    QAbstractButton::mousePressEvent(e);
    pressed = true;
    setMouseTracking(true);
    emit mousePressDown();
    refresh();
}

void ImageButton::mouseReleaseEvent(QMouseEvent *e)
{
    // The base emits clicked and toggled first, while `pressed` is still set.
    QAbstractButton::mouseReleaseEvent(e);
    pressed = false;
    setMouseTracking(false);
    emit mousePressUp();
    refresh();
}

void ImageButton::mouseMoveEvent(QMouseEvent *e)
{
    QAbstractButton::mouseMoveEvent(e);
    const QSize frame = frameSize();
    const bool inside = QRectF(0, 0, frame.width(), frame.height()).contains(mouseLocalPosition(e));
    if (inside && !hovered) {
        hovered = true;
        emit mouseMoveIn();
        refresh();
    } else if (!inside && hovered) {
        hovered = false;
        emit mouseMoveOut();
        refresh();
    }
}

void ImageButton::enterEvent(EnterEvent *e)
{
    QAbstractButton::enterEvent(e);
    hovered = true;
    emit mouseMoveIn();
    refresh();
}

void ImageButton::leaveEvent(QEvent *e)
{
    QAbstractButton::leaveEvent(e);
    hovered = false;
    emit mouseMoveOut();
    refresh();
}

void ImageButton::paintEvent(QPaintEvent *)
{
    // Text and icon are the child labels; only the background is painted.
    QPainter painter(this);
    refreshBG(painter);
}

void ImageButton::changeEvent(QEvent *e)
{
    QAbstractButton::changeEvent(e);
    refresh();
}

} // namespace Orvane
