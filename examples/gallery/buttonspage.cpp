// The image button: the three stock styles and three styles of the
// gallery's own, each in every state, plus a live one to try.
#include "gallerypage.h"
#include "pages.h"
#include "palette.h"

#include <Orvane/Orvane.h>

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

using StylePointer = QSharedPointer<Orvane::ImageButtonStyle>;
using ShadowPointer = QSharedPointer<Orvane::ShadowEffect>;

// Text colours one per state. Four entries would be read as two gradient
// pairs, so each colour is given as a pair of itself.
QVector<QColor> solidTextColors(const QVector<QColor> &perState)
{
    QVector<QColor> pairs;
    for (const QColor &c : perState)
        pairs << c << c;
    return pairs;
}

// A stretched picture per state, cut from the gallery's sprite sheets, with
// a heart icon per state and a violet glow while hovered or pressed.
StylePointer stretchedImageStyle()
{
    Orvane::SliceManager &slices = Orvane::SliceManager::sharedInstance();
    StylePointer style(new Orvane::ImageButtonStyle);
    const QStringList states = {QStringLiteral("normal"), QStringLiteral("hover"), QStringLiteral("pressed"),
                                QStringLiteral("disabled")};
    for (const QString &state : states) {
        style->bgPixmaps.append(slices.slice(QStringLiteral("button_") + state));
        style->icons.append(slices.slice(QStringLiteral("heart_") + state));
    }
    style->bgMargins = QMargins(12, 12, 12, 12);
    style->iconSize = QSize(18, 18);
    style->textColors = solidTextColors({Qt::white, Qt::white, QColor(QStringLiteral("#FFB3CF")),
                                         QColor(QStringLiteral("#6E7080"))});
    const ShadowPointer glow(new Orvane::ShadowEffect(0, 0, 22, "#8273FF", 0.8f));
    const ShadowPointer press(new Orvane::ShadowEffect(0, 0, 10, "#8273FF", 0.6f));
    style->shadows = {ShadowPointer(), glow, press, ShadowPointer()};
    style->hoverCursor = true;
    style->margins = QMargins(16, 0, 16, 0);
    style->minimumSize = QSize(124, 40);
    return style;
}

// A dark fill with a gradient outline and gradient text in every state.
StylePointer gradientOutlineStyle()
{
    StylePointer style(new Orvane::ImageButtonStyle);
    style->bgColors = {QColor(QStringLiteral("#26272B")), QColor(QStringLiteral("#33343A")),
                       QColor(QStringLiteral("#1D1E22")), QColor(QStringLiteral("#2A2B2E"))};
    style->borderColors = {QColor(QStringLiteral("#2EE6C5")), QColor(QStringLiteral("#5C8BFF")),
                           QColor(QStringLiteral("#5CFFD9")), QColor(QStringLiteral("#9A68FF")),
                           QColor(QStringLiteral("#1FB89C")), QColor(QStringLiteral("#4D7AE9")),
                           QColor(QStringLiteral("#55575E")), QColor(QStringLiteral("#55575E"))};
    style->borderWidth = 2;
    style->textColors = {QColor(QStringLiteral("#2EE6C5")), QColor(QStringLiteral("#5C8BFF")),
                         QColor(QStringLiteral("#5CFFD9")), QColor(QStringLiteral("#9A68FF")),
                         QColor(QStringLiteral("#1FB89C")), QColor(QStringLiteral("#4D7AE9")),
                         QColor(QStringLiteral("#6E7080")), QColor(QStringLiteral("#6E7080"))};
    style->radius = 8;
    style->minimumSize = QSize(124, 40);
    style->margins = QMargins(10, 0, 10, 0);
    const ShadowPointer shadow(new Orvane::ShadowEffect(0, 4, 18, "#2EE6C5", 0.35f));
    style->shadows = {ShadowPointer(), shadow, ShadowPointer(), ShadowPointer()};
    return style;
}

// A square tile with the gear slice above its text.
StylePointer iconTileStyle()
{
    StylePointer style(new Orvane::ImageButtonStyle);
    const QPixmap gear = Orvane::SliceManager::sharedInstance().slice(QStringLiteral("icon_gear"));
    style->icons = {gear, gear, gear, gear};
    style->iconSize = QSize(28, 28);
    style->bgColors = {QColor(QStringLiteral("#3B3C3D")), QColor(QStringLiteral("#4A4B4D")),
                       QColor(QStringLiteral("#2A2B2C")), QColor(QStringLiteral("#333435"))};
    style->textColors = solidTextColors({QColor(QStringLiteral("#D9D9DE")), Qt::white,
                                         QColor(QStringLiteral("#BBB4FF")), QColor(QStringLiteral("#6E7080"))});
    style->radius = 10;
    style->fixedSize = QSize(124, 64);
    style->margins = QMargins(6, 8, 6, 6);
    const ShadowPointer shadow(new Orvane::ShadowEffect(0, 2, 12, "#000000", 0.6f));
    style->shadows = {shadow, shadow, ShadowPointer(), ShadowPointer()};
    return style;
}

enum class Frozen { Normal, Hover, Pressed, Disabled, Live };

Orvane::ImageButton *makeButton(const StylePointer &style, const QString &text, Frozen state,
                                bool iconAbove)
{
    auto *button = new Orvane::ImageButton(style);
    button->setText(text);
    if (iconAbove)
        button->setLayout(QBoxLayout::TopToBottom, style->margins, 4);
    else if (!style->icons.isEmpty())
        button->setLayout(QBoxLayout::LeftToRight, style->margins, 8);
    switch (state) {
    case Frozen::Normal:
        break;
    case Frozen::Hover:
        button->bindMouseMoveIn(true);
        break;
    case Frozen::Pressed:
        button->bindMouseMoveIn(true);
        button->bindMousePressed(true);
        break;
    case Frozen::Disabled:
        button->setEnabled(false);
        break;
    case Frozen::Live:
        return button;
    }
    // The frozen samples show one state each; the mouse must not change it.
    button->setAttribute(Qt::WA_TransparentForMouseEvents);
    button->refresh();
    return button;
}

class ButtonsPage : public GalleryPage
{
public:
    ButtonsPage()
        : GalleryPage(QStringLiteral("buttons"), tr("Image buttons"),
                      tr("ImageButton paints its background, border, icon, text colour and shadow per "
                         "mouse state from one shared style record. The first three rows are the stock "
                         "styles; the others are records the gallery fills itself."))
    {
        auto *states = addSection(tr("Every state (the last column reacts to the mouse)"));
        auto *outer = new QVBoxLayout(states);
        auto *panel = new QWidget;
        panel->setObjectName(QStringLiteral("buttonPanel"));
        panel->setStyleSheet(themed(QStringLiteral("#buttonPanel{background:@darkPanel@; border-radius:8px;}"
                                                   "#buttonPanel > QLabel{color:@muted@; font-size:12px;}")));
        outer->addWidget(panel);
        auto *grid = new QGridLayout(panel);
        grid->setContentsMargins(18, 12, 18, 18);
        grid->setHorizontalSpacing(16);
        grid->setVerticalSpacing(22);
        const QStringList columns = {tr("Normal"), tr("Hover"), tr("Pressed"), tr("Disabled"), tr("Try it")};
        for (int c = 0; c < columns.size(); ++c)
            grid->addWidget(new QLabel(columns.at(c)), 0, c + 1, Qt::AlignHCenter);

        struct Row
        {
            QString name;
            StylePointer (*make)();
            QString text;
            bool iconAbove;
        };
        const QList<Row> rows = {
            {QStringLiteral("makeBtnStyle_Default()"), &Orvane::makeBtnStyle_Default, tr("Continue"), false},
            {QStringLiteral("makeBtnStyle_Orange()"), &Orvane::makeBtnStyle_Orange, tr("Buy now"), false},
            {QStringLiteral("makeBtnStyle_Ring()"), &Orvane::makeBtnStyle_Ring, tr("Later"), false},
            {tr("stretched image, icons"), &stretchedImageStyle, tr("Favourite"), false},
            {tr("gradient outline and text"), &gradientOutlineStyle, tr("Outline"), false},
            {tr("icon above text"), &iconTileStyle, tr("Settings"), true},
        };
        const QList<Frozen> frozen = {Frozen::Normal, Frozen::Hover, Frozen::Pressed, Frozen::Disabled,
                                      Frozen::Live};
        for (int r = 0; r < rows.size(); ++r) {
            const Row &row = rows.at(r);
            grid->addWidget(new QLabel(row.name), r + 1, 0, Qt::AlignVCenter);
            // One record per row, shared by its five buttons.
            const StylePointer style = row.make();
            for (int c = 0; c < frozen.size(); ++c)
                grid->addWidget(makeButton(style, row.text, frozen.at(c), row.iconAbove), r + 1, c + 1,
                                Qt::AlignCenter);
        }
        grid->setColumnStretch(6, 1);

        auto *shared = addSection(tr("One record, two buttons"));
        auto *sharedRow = new QHBoxLayout(shared);
        sharedRow->setSpacing(16);
        const StylePointer record = Orvane::makeBtnStyle_Default();
        auto *first = new Orvane::ImageButton(record);
        first->setText(tr("First"));
        auto *second = new Orvane::ImageButton(record);
        second->setText(tr("Second"));
        auto *recolour = new QPushButton(tr("Recolour"));
        sharedRow->addWidget(first);
        sharedRow->addWidget(second);
        sharedRow->addWidget(recolour);
        sharedRow->addWidget(note(tr("Both buttons hold one record. \"Recolour\" calls setBackground() on the "
                                     "first only; every setter writes into the record, so the second "
                                     "changes too.")),
                             1);
        connect(recolour, &QPushButton::clicked, this, [first, second] {
            static bool green = false;
            green = !green;
            const QVector<QColor> colours =
                green ? QVector<QColor>{QColor(QStringLiteral("#2BB673")), QColor(QStringLiteral("#1E9BD7")),
                                        QColor(QStringLiteral("#45CF8C")), QColor(QStringLiteral("#3AB2EC")),
                                        QColor(QStringLiteral("#229E62")), QColor(QStringLiteral("#1883B8")),
                                        QColor(QStringLiteral("#CCCCCC")), QColor(QStringLiteral("#CCCCCC"))}
                      : Orvane::makeBtnStyle_Default()->bgColors;
            first->setBackground(colours, 15);
            second->update();
        });
        body()->addStretch();
    }
};

} // namespace

GalleryPage *makeButtonsPage()
{
    return new ButtonsPage;
}
