#ifndef ORVANE_CACHEDSHADOWEFFECT_P_H
#define ORVANE_CACHEDSHADOWEFFECT_P_H

// The drop shadow the library's widgets and dialogs install. To a host it is
// a QGraphicsDropShadowEffect in every respect (the cast, offset, blur radius
// and colour as set, enabling, the bounding rectangle, the pixels drawn), but
// it blurs only when the shadow can have changed, where Qt's own effect
// renders its source and blurs it again on every paint.
//
// The shadow is Qt's own: on a change the effect lets Qt draw onto a
// recording device and keeps the shadow image Qt made. The shadow depends on
// nothing but the offset, radius and colour and the alpha channel of the
// rendered source (its size and device pixel ratio included), so a shadow is
// reused while those are unchanged: a state that only recolours the widget
// costs a render but no blur. Shadows are also shared between effects, in a
// small process-wide list of the latest ones: a hundred buttons of one shape,
// or every new message box of one size, need a single blur.
//
// Rendering the source costs about as much as painting the widget again, so
// the effect also skips the render while Qt's own record of the source is
// valid: Qt keeps the last rendered source in QPixmapCache and drops it as
// soon as the widget or one of its children is marked for repainting, and
// its drawSource() paints from that copy. While the entry lives (seen through
// the effect's own reference to the same pixmap), the widget stays shown with
// updates enabled, and the painter's transform, the device pixel ratio and
// the widget's size are the ones of the last render, the effect draws the
// kept shadow and Qt's copy of the source, as Qt would draw them.
//
// A widget whose pixels depend only on values it can list (the image
// button: its state, size, style record and what its two labels show; all
// else reaches it or a label as an event) can hand the effect a witness.
// When Qt's copy of the source is gone but the witness says nothing changed
// since the last render, the effect draws that render again instead of
// rendering anew: a repaint request with no change behind it (every button
// marked for repainting) costs the two blits of a plain repaint. Without a
// witness (the message box) every repaint request renders again. A
// witnessed widget's render is made without the blur's margin (a
// transparent margin drawn over changes nothing); only a new shape renders
// once more with it, for its blur.
//
// Decisions:
// - Everything else takes the full path: a widget that is hidden, or was
//   hidden since the last render, renders its source on every paint, as do
//   an effect set on a widget other than its parent and a source evicted
//   from QPixmapCache. Results stay right; only the render is paid.
// - A change that never calls update() on the widget (a style record shared
//   with another button and changed through that one) shows at the widget's
//   next update(), as with every Qt effect that paints through drawSource().
// - Memory: per effect a reference to the last rendered source (Qt's cache
//   holds it too until it drops it; with a witness the effect keeps it
//   while the widget stays shown); per distinct shadow the shadow image and
//   the source's alpha channel, 5 bytes per pixel of the widget's rectangle
//   grown by twice the blur radius on every side (a stock button, 110 x 30
//   px with radius 30: 230 x 150 px, 170 KB). A witnessed widget's kept
//   render has the widget's own size (a stock button: 13 KB).
//   Bound: the shared list keeps the 16 latest shadows, fewer when they
//   pass 16 MiB (a single larger shadow is kept alone); an effect keeps its
//   own until it is taken off its widget. So the process holds for shadows
//   at most 16 MiB in the list plus one shadow per shape on screen;
//   `make bench` (bench_memory) measures the list over a thousand message
//   boxes and a thousand buttons of fifty sizes.
// - Internal: not exported; owned like any effect by the widget it is set on.
// - GUI thread only, like the widgets; the shared list takes no lock.

#include <QGraphicsDropShadowEffect>
#include <QList>
#include <QPixmap>
#include <QPoint>
#include <QPointer>
#include <QSharedPointer>
#include <QRectF>
#include <QTransform>

#include <memory>

class QPainter;
class QWidget;

namespace Orvane {

class CachedShadowEffect : public QGraphicsDropShadowEffect
{
    Q_OBJECT

public:
    // Tells the effect whether a render of its widget made now could differ
    // from the last one; see the class comment.
    class SourceWitness
    {
    public:
        virtual ~SourceWitness() = default;
        // False when anything the widget's pixels depend on may have changed
        // since remember().
        virtual bool unchanged() const = 0;
        // Called right after a render: what it was made from.
        virtual void remember() = 0;
    };

    explicit CachedShadowEffect(QObject *parent = nullptr);
    ~CachedShadowEffect() override;

    // Takes ownership; null removes the witness.
    void setSourceWitness(std::unique_ptr<SourceWitness> witness);

    // How many times this effect has blurred a shadow so far.
    int blurCount() const { return m_blurs; }
    // How many paints rendered the source so far.
    int renderCount() const { return m_renders; }
    // Empties the process-wide list of shadows; effects keep their own.
    static void dropSharedShadows();
    // What the process-wide list holds now: shadows, and the bytes of their
    // images (the shadow and the source's alpha channel).
    static int sharedShadowCount();
    static qint64 sharedShadowBytes();
    // The list's bound: at most this many shadows, and no more bytes than
    // this unless its one shadow alone is larger.
    static constexpr int SharedShadowLimit = 16;
    static constexpr qint64 SharedShadowByteLimit = 16 * 1024 * 1024;

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void draw(QPainter *painter) override;
    void sourceChanged(ChangeFlags flags) override;

private:
    struct Shadow;
    static QList<QSharedPointer<const Shadow>> &sharedShadows();

    QWidget *watchedWidget();
    bool sameGeometry(const QPainter *painter, const QWidget *widget) const;
    bool sourceStillValid(const QPainter *painter, const QWidget *widget) const;
    bool sourceWitnessedUnchanged(const QPainter *painter, const QWidget *widget) const;
    bool fits(const Shadow &shadow, const QImage &source, const QRect &inner) const;
    bool findShadow(const QImage &source, const QRect &inner);
    bool blur(const QPixmap &unpadded, const QRect &inner);
    void drawShadow(QPainter *painter) const;
    void forget();

    QSharedPointer<const Shadow> m_shadow;
    QPixmap m_source;
    QPoint m_at; // where the shadow image goes, in device pixels
    QPoint m_sourceAt; // where m_source goes
    bool m_padded; // m_source has the blur's margin
    QTransform m_transform;
    qreal m_devicePixelRatio;
    QRectF m_sourceRect;
    QPointer<QWidget> m_watched;
    std::unique_ptr<SourceWitness> m_witness;
    bool m_witnessed; // m_source is the render the witness last remembered
    int m_blurs;
    int m_renders;

    Q_DISABLE_COPY(CachedShadowEffect)
};

} // namespace Orvane

#endif // ORVANE_CACHEDSHADOWEFFECT_P_H
