#ifndef ORVANE_BARDIALOG_H
#define ORVANE_BARDIALOG_H

/// @file
/// The frameless bar dialog, Orvane::BarDialog.

/// @class Orvane::BarDialog
/// A frameless, rounded dialog with a drawn title bar: title text, optional
/// application icon, close button, and a content area for the host's widgets.
/// The bar is the drag handle that moves the window.
///
/// @code{.cpp}
/// Orvane::BarDialog dlg(mainWindow, 2);
/// dlg.setWindowTitle(tr("Settings"));
/// dlg.showBarIcon(true);
/// QVBoxLayout *l = dlg.makeVBoxLayout(&dlg, 20, 10); // lands on the content
/// l->addWidget(...);
/// dlg.exec();
/// @endcode
///
/// The skin number picks the looks (2 dark, anything else light, see
/// DialogSkinStyle). The whole widget tree is built by the constructor; the
/// child pointers below are non-owning (Qt's parent ownership deletes them).
/// Closing hides and rejects the dialog; it is not deleted unless the caller
/// sets Qt::WA_DeleteOnClose. Every show centres it over the application's
/// main window.
///
/// The app icon, close image and bar icon size are shared by all bar dialogs.
/// setAppIcon() and setCloseImage() replace the stored copy; the close image is
/// kept but never drawn (the close button's picture comes from the skin). The
/// drag state lives in the dynamic properties "mousePressed" and
/// "mousePressedPosition" of the dialog.
///
/// @guithread
///
/// @par Binary compatibility:
/// The six child pointers are the fixed members; subclasses read them. No
/// d-pointer: the members are the class's own, as its design fixes them, and
/// they stay, in this order, through 1.x, so the class's size and layout do
/// not change. Later state is kept by the library outside the object, and new
/// functions come as non-virtual members; no inline code in this header reads
/// a private member.

#include <Orvane/orvane_export.h>

#include <QDialog>

QT_BEGIN_NAMESPACE
class QHBoxLayout;
class QLabel;
class QPixmap;
class QPushButton;
class QStackedLayout;
class QVBoxLayout;
QT_END_NAMESPACE

namespace Orvane {

class ORVANE_EXPORT BarDialog : public QDialog
{
    Q_OBJECT

public:
    /// Builds the whole widget tree on `parent` (may be null) in the looks of
    /// `skin` (2 dark, anything else light, so no value is wrong). The window
    /// flags are always Qt::Dialog | Qt::FramelessWindowHint | Qt::Tool;
    /// `flags` is accepted for symmetry with QDialog and ignored.
    explicit BarDialog(QWidget *parent = nullptr, int skin = 2,
                       Qt::WindowFlags flags = Qt::WindowFlags());
    /// Nothing beyond QDialog's destructor; the children go with the dialog.
    ~BarDialog() override;

    /// The content area under the bar, where the host's widgets go. Never
    /// null.
    QWidget *contentWidget() const;

    /// A QHBoxLayout on `parent` with margin and spacing; passing the dialog
    /// itself puts it on the content widget instead. Ownership and a parent
    /// that already has a layout as with Orvane::makeHBoxLayout().
    QHBoxLayout *makeHBoxLayout(QWidget *parent, int margin, int spacing);
    /// The same for a QVBoxLayout.
    QVBoxLayout *makeVBoxLayout(QWidget *parent, int margin, int spacing);
    /// A QStackedLayout on `parent` (the content widget when `parent` is the
    /// dialog), nothing else set. A null parent gives a layout without one,
    /// owned by the caller.
    QStackedLayout *makeStackedLayout(QWidget *parent);

    /// The bar icon of bar dialogs built afterwards (a copy is kept). Without
    /// one the bar shows the slice catalogue's application icon; a null
    /// pixmap leaves the icon label empty.
    static void setAppIcon(const QPixmap &icon);
    /// Stores a copy of a close-button image; it is kept but never drawn
    /// (the close button's picture comes from the skin).
    static void setCloseImage(const QPixmap &image);

    /// Shows or hides the bar's close button.
    void setVisibleCloseButton(bool visible);

    /// Sets the bar's title and its alignment; the native window title is
    /// left alone. An empty text leaves the bar without a title.
    void setWindowTitle(const QString &text, Qt::Alignment align = Qt::AlignLeft);

    /// Shows or hides the bar icon and moves the title to the right of it.
    void showBarIcon(bool show);

protected:
    /// Builds the widget tree in the looks of `skin`; called once by the
    /// constructor.
    void setupUI(int skin);

    /// Centres the dialog over the application's main window on every show.
    void showEvent(QShowEvent *event) override;
    /// Moves the window while the bar is dragged with the mouse.
    bool eventFilter(QObject *watched, QEvent *event) override;

    QLabel *barIconLabel;     ///< The application icon in the bar; hidden until showBarIcon(true).
    QLabel *titleLabel;       ///< The title text.
    QHBoxLayout *titleLayout; ///< The lower bar's layout, which holds the title.
    QWidget *barOverlay;      ///< The upper bar: the drag handle, with icon and close button.
    QWidget *content;         ///< The content area, contentWidget().
    QPushButton *closeButton; ///< The bar's close button; it closes (rejects) the dialog.

private:
    Q_DISABLE_COPY(BarDialog)
};

} // namespace Orvane

#endif // ORVANE_BARDIALOG_H
