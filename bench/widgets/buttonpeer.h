#ifndef ORVANE_BENCH_BUTTONPEER_H
#define ORVANE_BENCH_BUTTONPEER_H

// The image buttons' peer in the benchmarks: a QPushButton whose style sheet
// draws the same pill as a stock style record (per-state gradient fill,
// radius, outline, text colour).

#include <Orvane/buttonstyles.h>
#include <Orvane/imagebuttonstyle.h>

#include <QColor>
#include <QSharedPointer>
#include <QString>
#include <QVector>

namespace ButtonPeer {

using Factory = QSharedPointer<Orvane::ImageButtonStyle> (*)();
const Factory factories[] = {&Orvane::makeBtnStyle_Default, &Orvane::makeBtnStyle_Orange,
                             &Orvane::makeBtnStyle_Ring};

inline QString gradient(const QColor &from, const QColor &to)
{
    return QStringLiteral("qlineargradient(x1:0, y1:0, x2:1, y2:0, stop:0 %1, stop:1 %2)")
        .arg(from.name(QColor::HexArgb), to.name(QColor::HexArgb));
}

// The peer's style sheet, read from the same record so that both windows
// draw the same pills: per-state gradient fill, radius, outline, text colour.
inline QString styleSheetFor(const Orvane::ImageButtonStyle &s)
{
    // Padded as the image button pads them when it applies the record.
    QVector<QColor> bg = s.bgColors;
    while (bg.size() < 8)
        bg.append(bg.last());
    QString border = QStringLiteral("none");
    if (s.borderWidth > 0 && s.borderColors.size() >= 2)
        border = QStringLiteral("%1px solid %2").arg(s.borderWidth).arg(gradient(s.borderColors.at(0), s.borderColors.at(1)));
    const QString text = s.textColors.value(0, Qt::black).name();
    return QStringLiteral("QPushButton { color: %1; border: %2; border-radius: %3px; min-width: %4px;"
                          " min-height: %5px; padding: 0 %6px; background: %7; }"
                          " QPushButton:hover { border: none; background: %8; }"
                          " QPushButton:pressed { border: none; background: %9; }"
                          " QPushButton:disabled { border: none; background: %10; }")
        .arg(text, border)
        .arg(s.radius)
        .arg(s.minimumSize.width() - 2 * s.margins.left())
        .arg(s.minimumSize.height())
        .arg(s.margins.left())
        .arg(gradient(bg.at(0), bg.at(1)), gradient(bg.at(2), bg.at(3)), gradient(bg.at(4), bg.at(5)),
             gradient(bg.at(6), bg.at(7)));
}

} // namespace ButtonPeer

#endif // ORVANE_BENCH_BUTTONPEER_H
