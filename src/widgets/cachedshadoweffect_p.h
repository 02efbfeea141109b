#ifndef ORVANE_CACHEDSHADOWEFFECT_P_H
#define ORVANE_CACHEDSHADOWEFFECT_P_H

// The drop shadow the library's widgets install. It is a
// QGraphicsDropShadowEffect in every respect a host can see (the cast, the
// offset, blur radius and colour read back as set, enabling, the bounding
// rectangle) but it blurs only when something the shadow depends on has
// changed: Qt's own effect re-blurs on every paint, which costs far more than
// painting the widget.
//
// Every paint still renders the source, as Qt does, and compares its pixels
// (which include its size and device pixel ratio) with the last ones. While
// they and the offset, radius and colour are unchanged, the shadow is drawn
// again from a kept image: Qt's own drawing of shadow and source, made once
// into a transparent image and blended in one step. Moving the widget keeps
// the image; any change of state, text, size or screen makes a new one.
//
// Decisions:
// - A painter with an opacity below 1 or another composition mode than
//   source-over gets Qt's drawing every time: there the shadow and the source
//   must be blended one after the other.
// - The kept image and the last source pixels cost about twice the padded
//   source's size in memory per widget; they are dropped when the effect is
//   taken off its widget.
// - Internal: not exported, owned like any effect by the widget it is set on.

#include <QColor>
#include <QGraphicsDropShadowEffect>
#include <QImage>
#include <QPointF>

class QPainter;

namespace Orvane {

class CachedShadowEffect : public QGraphicsDropShadowEffect
{
    Q_OBJECT

public:
    explicit CachedShadowEffect(QObject *parent = nullptr);
    ~CachedShadowEffect() override;

    // How many times the shadow has been blurred so far.
    int blurCount() const { return m_blurs; }

protected:
    void draw(QPainter *painter) override;
    void sourceChanged(ChangeFlags flags) override;

private:
    bool matches(const QImage &source) const;
    void compose(const QImage &source, const QPoint &at);

    QImage m_source;
    QImage m_composed;
    QPointF m_offset;
    qreal m_blurRadius;
    QColor m_color;
    int m_blurs;

    Q_DISABLE_COPY(CachedShadowEffect)
};

} // namespace Orvane

#endif // ORVANE_CACHEDSHADOWEFFECT_P_H
