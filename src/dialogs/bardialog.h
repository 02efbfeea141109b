#ifndef ORVANE_BARDIALOG_H
#define ORVANE_BARDIALOG_H

// A frameless, rounded dialog with a drawn title bar: title text, optional
// application icon, close button, and a content area for the host's widgets.
// The bar is the drag handle that moves the window.
//
//     Orvane::BarDialog dlg(mainWindow, 2);
//     dlg.setWindowTitle(tr("Settings"));
//     dlg.showBarIcon(true);
//     QVBoxLayout *l = dlg.makeVBoxLayout(&dlg, 20, 10); // lands on the content
//     l->addWidget(...);
//     dlg.exec();
//
// The skin number picks the looks (2 dark, anything else light, see
// DialogSkinStyle). The whole widget tree is built by the constructor; the
// child pointers below are non-owning (Qt's parent ownership deletes them).
// Closing hides and rejects the dialog; it is not deleted unless the caller
// sets Qt::WA_DeleteOnClose. Every show centres it over the application's
// main window.
//
// The app icon, close image and bar icon size are shared by all bar dialogs.
// setAppIcon() and setCloseImage() replace the stored copy; the close image is
// kept but never drawn (the close button's picture comes from the skin). The
// drag state lives in the dynamic properties "mousePressed" and
// "mousePressedPosition" of the dialog. GUI thread only.

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
    // The window flags are always Qt::Dialog | Qt::FramelessWindowHint |
    // Qt::Tool; `flags` is accepted for symmetry with QDialog and ignored.
    explicit BarDialog(QWidget *parent = nullptr, int skin = 2,
                       Qt::WindowFlags flags = Qt::WindowFlags());
    ~BarDialog() override;

    QWidget *contentWidget() const;

    // Layouts on `parent`; passing the dialog itself puts them on the
    // content widget instead.
    QHBoxLayout *makeHBoxLayout(QWidget *parent, int margin, int spacing);
    QVBoxLayout *makeVBoxLayout(QWidget *parent, int margin, int spacing);
    QStackedLayout *makeStackedLayout(QWidget *parent);

    // For bar dialogs built afterwards. Without an app icon the bar shows the
    // slice catalogue's application icon.
    static void setAppIcon(const QPixmap &icon);
    static void setCloseImage(const QPixmap &image);

    void setVisibleCloseButton(bool visible);

    // Sets the bar's title; the native window title is left alone.
    void setWindowTitle(const QString &text, Qt::Alignment align = Qt::AlignLeft);

    // Shows or hides the bar icon and moves the title to the right of it.
    void showBarIcon(bool show);

protected:
    void setupUI(int skin);

    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    QLabel *barIconLabel;
    QLabel *titleLabel;
    QHBoxLayout *titleLayout;
    QWidget *barOverlay;
    QWidget *content;
    QPushButton *closeButton;

private:
    Q_DISABLE_COPY(BarDialog)
};

} // namespace Orvane

#endif // ORVANE_BARDIALOG_H
