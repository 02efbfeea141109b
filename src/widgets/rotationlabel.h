#ifndef ORVANE_ROTATIONLABEL_H
#define ORVANE_ROTATIONLABEL_H

/// @file
/// The spinning label, Orvane::RotationLabel.

/// @class Orvane::RotationLabel
/// An image label that spins its picture about the picture's centre without
/// end, as a busy indicator. A host sets a pixmap, calls startRotating() with
/// the time of one full turn in milliseconds and later stopRotating(). The
/// picture turns clockwise on screen; each frame keeps the source's size and
/// centre, so the turned corners are cut off.
///
/// The label owns its animation. Stopping keeps the last frame shown (the
/// upright picture is not put back), and a new start takes the frame shown
/// at that moment as its source: a host that wants the upright picture sets
/// it again before restarting.
///
/// Decisions of ours:
/// - On a label without a pixmap the spin runs but draws nothing: the label
///   keeps showing what it showed (a text, or nothing).
/// - A duration below 1 ms does nothing at all; a spin already running goes on.
/// - Near a quarter turn a picture that is not square turns narrower than the
///   source in one direction; the frame still has the source's size, with the
///   uncovered part transparent.
/// - A picture with a device pixel ratio keeps it in every frame.
///
/// @code{.cpp}
/// auto *busy = new Orvane::RotationLabel;
/// busy->setPixmap(QPixmap(":/Orvane/kv_Loading.png"));
/// layout->addWidget(busy);
/// busy->startRotating(1200); // one turn in 1.2 s
/// ...
/// busy->stopRotating();
/// @endcode
///
/// @guithread
///
/// @par Binary compatibility:
/// The animation and the source picture are the fixed members. No d-pointer:
/// the members are the class's own, as its design fixes them, and they stay,
/// in this order, through 1.x, so the class's size and layout do not change.
/// Later state is kept by the library outside the object, and new functions
/// come as non-virtual members; no inline code in this header reads a private
/// member.

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
    /// A label without parent and without picture; place it in a layout or
    /// give it a parent.
    RotationLabel();
    /// Stops and deletes the animation, if any.
    /// The same inside `parent`, as forms made with Designer build it.
    explicit RotationLabel(QWidget *parent);
    ~RotationLabel() override;

    /// Starts, or restarts from angle 0, with the picture shown now as
    /// source; one full turn takes `duration` milliseconds.
    /// @badinput A duration below 1 ms does nothing (a running spin goes on);
    /// without a pixmap the spin runs and draws nothing.
    void startRotating(int duration);
    /// Stops and deletes the animation; without one it does nothing.
    void stopRotating();

private:
    QVariantAnimation *m_animation = nullptr;
    QPixmap m_pixmap;
};

} // namespace Orvane

#endif // ORVANE_ROTATIONLABEL_H
