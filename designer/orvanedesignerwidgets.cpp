#include "orvanedesignerwidgets.h"

#include "orvanewidgetplugin.h"

#include <Orvane/buttonstyles.h>
#include <Orvane/elidedlabel.h>
#include <Orvane/imagebutton.h>
#include <Orvane/rotationlabel.h>

#include <QFont>
#include <QGraphicsEffect>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QtMath>

namespace {

constexpr int IconSize = 64;

// Designer writes the "text" property through QAbstractButton::setText,
// which the button's text label never sees. In Designer the button
// therefore takes the stored text over into its label before it paints, so
// that the form shows what was typed. Outside Designer, forms' generated
// code calls ImageButton::setText and this class is not involved.
class DesignerImageButton : public Orvane::ImageButton
{
public:
    explicit DesignerImageButton(QWidget *parent)
        : ImageButton(Orvane::makeBtnStyle_Default(), parent)
    {
    }

protected:
    void paintEvent(QPaintEvent *e) override
    {
        const QString stored = QAbstractButton::text();
        if (stored != m_shown) {
            m_shown = stored;
            textLabel->setText(stored);
            textLabel->setVisible(!stored.isEmpty());
        }
        ImageButton::paintEvent(e);
    }

private:
    QString m_shown;
};

// Designer writes the "text" property through QLabel::setText, and the
// label's own resize handling would put its (empty) elided text back over
// it. In Designer the label therefore shows the text as typed, unshortened,
// and the form keeps it whole; the running program elides it.
class DesignerElidedLabel : public Orvane::ElidedLabel
{
public:
    explicit DesignerElidedLabel(QWidget *parent)
        : ElidedLabel(parent)
    {
    }

protected:
    void resizeEvent(QResizeEvent *e) override
    {
        QLabel::resizeEvent(e);
    }
};

// An empty square icon canvas.
QImage canvas()
{
    QImage image(IconSize, IconSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

// The button itself, drawn by its own style record, scaled into the icon.
QIcon imageButtonIcon()
{
    Orvane::ImageButton button(Orvane::makeBtnStyle_Default());
    button.resize(button.minimumSize());
    // The drop shadow would only blur the small picture.
    if (QGraphicsEffect *shadow = button.graphicsEffect())
        shadow->setEnabled(false);
    QImage drawn(button.size(), QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::transparent);
    button.render(&drawn, QPoint(), QRegion(), QWidget::DrawChildren);
    QImage image = canvas();
    const QImage scaled = drawn.scaledToWidth(IconSize, Qt::SmoothTransformation);
    QPainter p(&image);
    p.drawImage(0, (IconSize - scaled.height()) / 2, scaled);
    p.end();
    return QIcon(QPixmap::fromImage(image));
}

// A shortened text: "Ab" and an ellipsis.
QIcon elidedLabelIcon()
{
    QImage image = canvas();
    QPainter p(&image);
    p.setRenderHint(QPainter::TextAntialiasing);
    QFont font = p.font();
    font.setPixelSize(IconSize * 2 / 5);
    p.setFont(font);
    p.setPen(QPalette().color(QPalette::WindowText));
    p.drawText(image.rect(), Qt::AlignCenter, QStringLiteral("Ab") + QChar(0x2026));
    p.end();
    return QIcon(QPixmap::fromImage(image));
}

// A busy indicator: a ring of dots fading along the turn.
QIcon rotationLabelIcon()
{
    QImage image = canvas();
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    const QPointF centre(IconSize / 2.0, IconSize / 2.0);
    const qreal radius = IconSize * 0.36;
    const qreal dot = IconSize * 0.09;
    QColor colour = QPalette().color(QPalette::Highlight);
    constexpr int Dots = 8;
    for (int i = 0; i < Dots; ++i) {
        const qreal angle = 2 * M_PI * i / Dots;
        colour.setAlphaF(0.25 + 0.75 * i / (Dots - 1));
        p.setBrush(colour);
        p.drawEllipse(centre + QPointF(radius * qCos(angle), radius * qSin(angle)), dot, dot);
    }
    p.end();
    return QIcon(QPixmap::fromImage(image));
}

// The XML Designer drops into a form: the widget, its default size and
// settings.
QString widgetXml(const QString &className, const QString &objectName, const QSize &size,
                  const QString &properties)
{
    return QStringLiteral("<ui language=\"c++\">\n"
                          " <widget class=\"%1\" name=\"%2\">\n"
                          "  <property name=\"geometry\">\n"
                          "   <rect><x>0</x><y>0</y><width>%3</width><height>%4</height></rect>\n"
                          "  </property>\n"
                          "%5"
                          " </widget>\n"
                          "</ui>\n")
        .arg(className, objectName)
        .arg(size.width())
        .arg(size.height())
        .arg(properties);
}

QString stringProperty(const QString &name, const QString &value)
{
    return QStringLiteral("  <property name=\"%1\">\n   <string>%2</string>\n  </property>\n").arg(name, value);
}

} // namespace

OrvaneDesignerWidgets::OrvaneDesignerWidgets(QObject *parent)
    : QObject(parent)
{
    const QSize buttonSize = Orvane::makeBtnStyle_Default()->minimumSize;
    m_widgets.append(new OrvaneWidgetPlugin(
        {QStringLiteral("Orvane::ImageButton"), QStringLiteral("<Orvane/imagebutton.h>"),
         tr("Push button painted from a shared style record"),
         tr("A push button that paints its background, border, icon, text colour and drop shadow per mouse "
            "state from an ImageButtonStyle record. Designer shows it with the default stock style; give it "
            "its style in code (setStyle(makeBtnStyle_Default()) or another record) after setupUi()."),
         widgetXml(QStringLiteral("Orvane::ImageButton"), QStringLiteral("imageButton"), buttonSize,
                   stringProperty(QStringLiteral("text"), QStringLiteral("Button"))),
         imageButtonIcon, [](QWidget *parent) -> QWidget * { return new DesignerImageButton(parent); }},
        this));
    m_widgets.append(new OrvaneWidgetPlugin(
        {QStringLiteral("Orvane::ElidedLabel"), QStringLiteral("<Orvane/elidedlabel.h>"),
         tr("One-line label that elides its text"),
         tr("A one-line label that shortens its text with an ellipsis when it is too narrow; text() keeps the "
            "full text. Designer shows the text whole; the running program elides it, on the right unless "
            "setElideMode() is called in code before the text is set."),
         widgetXml(QStringLiteral("Orvane::ElidedLabel"), QStringLiteral("elidedLabel"), QSize(120, 20),
                   stringProperty(QStringLiteral("text"), QStringLiteral("Elided text"))),
         elidedLabelIcon, [](QWidget *parent) -> QWidget * { return new DesignerElidedLabel(parent); }},
        this));
    m_widgets.append(new OrvaneWidgetPlugin(
        {QStringLiteral("Orvane::RotationLabel"), QStringLiteral("<Orvane/rotationlabel.h>"),
         tr("Image label that spins its picture"),
         tr("An image label that spins its picture about its centre as a busy indicator: set a pixmap, then "
            "call startRotating() with the time of one turn in milliseconds, and stopRotating()."),
         widgetXml(QStringLiteral("Orvane::RotationLabel"), QStringLiteral("rotationLabel"), QSize(32, 32),
                   QStringLiteral("  <property name=\"alignment\">\n"
                                  "   <set>Qt::AlignCenter</set>\n"
                                  "  </property>\n")),
         rotationLabelIcon, [](QWidget *parent) -> QWidget * { return new Orvane::RotationLabel(parent); }},
        this));
}

QList<QDesignerCustomWidgetInterface *> OrvaneDesignerWidgets::customWidgets() const
{
    return m_widgets;
}
