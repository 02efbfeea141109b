#include <Orvane/buttonstyles.h>

#include <Orvane/shadoweffect.h>

#include <QColor>
#include <QMargins>
#include <QSize>
#include <QVector>

#include <array>

namespace Orvane {

namespace {

// Which states (normal, hover, pressed, disabled) show the shared shadow.
using ShadowSlots = std::array<bool, 4>;

// The fields common to every stock style, then the per-style ones.
QSharedPointer<ImageButtonStyle> makeStockStyle(const QVector<QColor> &bgColors,
                                                const QVector<QColor> &borderColors,
                                                int borderWidth,
                                                const QVector<QColor> &textColors,
                                                const ShadowSlots &shadowSlots)
{
    QSharedPointer<ImageButtonStyle> style(new ImageButtonStyle);
    // With the minimum height of 30 this radius gives round ends.
    style->radius = 15;
    style->minimumSize = QSize(110, 30);
    style->margins = QMargins(8, 0, 8, 0);
    style->bgColors = bgColors;
    style->borderColors = borderColors;
    style->borderWidth = borderWidth;
    style->textColors = textColors;

    // The orange style deliberately carries the same blue shadow colour.
    const QSharedPointer<ShadowEffect> shadow(new ShadowEffect(0, 3, 30, "#4C69FF", 0.3f));
    for (const bool on : shadowSlots)
        style->shadows.append(on ? shadow : QSharedPointer<ShadowEffect>());
    return style;
}

} // namespace

QSharedPointer<ImageButtonStyle> makeBtnStyle_Default()
{
    return makeStockStyle(
        {QColor("#5C8BFF"), QColor("#9A68FF"),   // normal
         QColor("#80A4FF"), QColor("#BB99FF"),   // hover
         QColor("#4D7AE9"), QColor("#976EEA"),   // pressed
         QColor("#CCCCCC"), QColor("#CCCCCC")},  // disabled
        {}, 0, {QColor(Qt::white)}, {true, true, true, false});
}

QSharedPointer<ImageButtonStyle> makeBtnStyle_Orange()
{
    return makeStockStyle(
        {QColor("#FF9933"), QColor("#FF7733"),   // normal
         QColor("#FFB25A"), QColor("#FF9A57"),   // hover
         QColor("#EB8D2E"), QColor("#EB6D2F"),   // pressed
         QColor("#CCCCCC"), QColor("#CCCCCC")},  // disabled
        {}, 0, {QColor(Qt::white)}, {true, true, true, false});
}

QSharedPointer<ImageButtonStyle> makeBtnStyle_Ring()
{
    // Six background colours: padding repeats the pressed end colour for the
    // disabled state, which is kept rather than grey. The shadow shows in
    // every state but the normal one, the disabled state included.
    return makeStockStyle(
        {QColor(Qt::transparent), QColor(Qt::transparent),  // normal
         QColor("#80A4FF"), QColor("#BB99FF"),              // hover
         QColor("#4D7AE9"), QColor("#976EEA")},             // pressed
        {QColor("#5C8BFF"), QColor("#9A68FF"), QColor(Qt::transparent), QColor(Qt::transparent),
         QColor(Qt::transparent), QColor(Qt::transparent)},
        1, QVector<QColor>(4, QColor(Qt::white)), {false, true, true, true});
}

} // namespace Orvane
