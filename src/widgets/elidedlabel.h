#ifndef ORVANE_ELIDEDLABEL_H
#define ORVANE_ELIDEDLABEL_H

/// @file
/// The eliding label, Orvane::ElidedLabel.

/// @class Orvane::ElidedLabel
/// A one-line label that shortens its text with an ellipsis when it is too
/// narrow, while text() keeps the full text for the program. The label never
/// lets itself be squeezed below the width of the text's first character
/// followed by "...".
///
/// A host creates it like any QLabel (parent ownership as usual), sets the
/// elide mode first and the text afterwards: setElideMode() erases the text.
/// Every update writes two debug lines, "m_cachedText : " with the full text
/// and "ElidedLabel text: " with the shown one.
///
/// The shortened text is cached: once the whole text has fitted, later
/// resizes do not shorten it again, not even to a narrower width, until
/// setText() or setElideMode() changes the full text. While the text is
/// shortened, every resize recomputes it.
///
/// Decisions of ours:
/// - The constructor takes the parent and the initial elide mode, which is
///   Qt::ElideRight by default; it does not clear anything (both texts start
///   empty).
/// - The base label shows plain text, so that what is shown is exactly what
///   the font metrics measured (no rich-text interpretation of "<...>").
/// - The "first character" of the minimum width is the first code point: a
///   surrogate pair counts as one character.
/// - The minimum width is only ever raised by a text, never reset; an empty
///   text leaves the last one in force.
///
/// @code{.cpp}
/// auto *path = new Orvane::ElidedLabel(this, Qt::ElideMiddle);
/// path->setText("/home/ana/projects/2024/report/final/summary.pdf");
/// layout->addWidget(path); // shows "/home/ana/pro...ary.pdf" when narrow
/// @endcode
///
/// @guithread
///
/// @par Binary compatibility:
/// The elide mode and the two texts are the fixed members. No d-pointer: the
/// members are the class's own, as its design fixes them, and they stay, in
/// this order, through 1.x, so the class's size and layout do not change.
/// Later state is kept by the library outside the object, and new functions
/// come as non-virtual members; no inline code in this header reads a private
/// member.

#include <Orvane/orvane_export.h>

#include <QLabel>
#include <QString>

class QResizeEvent;

namespace Orvane {

class ORVANE_EXPORT ElidedLabel : public QLabel
{
    Q_OBJECT
    Q_DISABLE_COPY(ElidedLabel)

public:
    /// An empty label on `parent` (may be null) that elides with `elideMode`.
    explicit ElidedLabel(QWidget *parent = nullptr, Qt::TextElideMode elideMode = Qt::ElideRight);

    /// Stores the full text and updates what is shown. Hides QLabel::setText:
    /// the full text never reaches the base label directly. An empty text
    /// blanks the label.
    void setText(const QString &text);
    /// The full text, not what is shown; empty until setText().
    QString text() const;

    /// Stores the mode and clears the full text: the label is blank until the
    /// next setText(). Qt::ElideNone shows the text unshortened.
    void setElideMode(Qt::TextElideMode mode);

    /// Recomputes the shown text (see the caching rule above), hands it to the
    /// base label and repaints. Hides QWidget::update().
    void update();

protected:
    /// Recomputes the shown text for the new width.
    void resizeEvent(QResizeEvent *event) override;

private:
    void updateCachedTexts();

    Qt::TextElideMode m_elideMode;
    QString m_cachedElidedText;
    QString m_cachedText;
};

} // namespace Orvane

#endif // ORVANE_ELIDEDLABEL_H
