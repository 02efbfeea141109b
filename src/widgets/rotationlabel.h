#ifndef ORVANE_ROTATIONLABEL_H
#define ORVANE_ROTATIONLABEL_H

// An image label that spins its picture about the picture's centre without
// end, as a busy indicator. A host sets a pixmap, calls startRotating() with
// the time of one full turn in milliseconds and later stopRotating(). The
// picture turns clockwise on screen; each frame keeps the source's size and
// centre, so the turned corners are cut off.
//
// The label owns its animation. Stopping keeps the last frame shown (the
// upright picture is not put back), and a new start takes the frame shown
// at that moment as its source: a host that wants the upright picture sets
// it again before restarting.
//
// Decisions of ours:
// - On a label without a pixmap the spin runs but draws nothing: the label
//   keeps showing what it showed (a text, or nothing).
// - A duration below 1 ms does nothing at all; a spin already running goes on.
// - Near a quarter turn a picture that is not square turns narrower than the
//   source in one direction; the frame still has the source's size, with the
//   uncovered part transparent.
// - A picture with a device pixel ratio keeps it in every frame.

#include <Orvane/orvane_export.h>

#include <QLabel>
#include <QPixmap>

class QVariantAnimation;

namespace Orvane {

class ORVANE_EXPORT RotationLabel : public QLabel
{
    Q_OBJECT
    Q_DISABLE_COPY(RotationLabel)

public:
    RotationLabel();
    // The same inside `parent`, as forms made with Designer build it.
    explicit RotationLabel(QWidget *parent);
    ~RotationLabel() override;

    // Starts, or restarts from angle 0, with the picture shown now as source.
    void startRotating(int duration);
    // Stops and deletes the animation; without one it does nothing.
    void stopRotating();

private:
    QVariantAnimation *m_animation = nullptr;
    QPixmap m_pixmap;
};

} // namespace Orvane

#endif // ORVANE_ROTATIONLABEL_H
