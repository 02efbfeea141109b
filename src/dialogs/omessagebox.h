#ifndef ORVANE_OMESSAGEBOX_H
#define ORVANE_OMESSAGEBOX_H

/// @file
/// The message box, Orvane::OMessageBox, and its icon types.

/// @class Orvane::OMessageBox
/// The library's message box: a bar dialog with an icon, an optional bold
/// heading, a message, an optional check box with a callback and a row of
/// buttons whose 1-based position is the result.
///
/// @code{.cpp}
/// // Modal, one "OK" button: 1 when it was clicked, 0 otherwise.
/// Orvane::OMessageBox::popupTips(Orvane::Success, tr("Saved."));
///
/// // Modal, the host's buttons: the position of the clicked one, or 0.
/// const int choice = Orvane::OMessageBox::popupTips(
///     Orvane::Attention, {tr("Cancel"), tr("Later"), tr("Update")},
///     tr("A new version is ready."), tr("Update"), -1,
///     tr("Don't ask again"), [](bool on) { ... });
///
/// // Modeless: returns at once.
/// Orvane::OMessageBox::showTips(Orvane::Success, tr("Copied."));
/// @endcode
///
/// The box always takes the process-wide current skin (currentDialogSkin(),
/// dark unless the host changed it). It deletes itself when it closes, however
/// that happens, so build it with new and never keep a pointer past exec() or
/// close. Any close that is not a button click (the bar's close button,
/// Escape, close(), reject()) gives the result 0.
///
/// The highlighted button is the `defaultButton`-th (1-based), or the last one
/// when `defaultButton` is -1; it is only a look, not the keyboard default.
/// The check-box callback is called with true when the box gets ticked and
/// false otherwise (a partial state counts as false); an empty callback is
/// never called.
///
/// Decisions of ours: the icon enumeration has int as its underlying type, so
/// any int converts to it safely; values other than 0 to 3 show an empty icon
/// area. The recoloured library icons are made once per picture and colour
/// and then shared by every box.
///
/// @guithread
///
/// @par Binary compatibility:
/// The one member, the check-box callback, is fixed. No d-pointer: the
/// members are the class's own, as its design fixes them, and they stay, in
/// this order, through 1.x, so the class's size and layout do not change.
/// Later state is kept by the library outside the object, and new functions
/// come as non-virtual members; no inline code in this header reads a private
/// member.

#include <Orvane/bardialog.h>
#include <Orvane/orvane_export.h>

#include <QString>
#include <QStringList>

#include <functional>

namespace Orvane {

/// The picture of a message box. Any int converts safely: values other than
/// 0 to 3 show an empty icon area.
enum MessageBoxIconType : int {
    AppIcon = 0,   ///< The slice catalogue's application icon, never recoloured.
    Attention = 1, ///< The attention sign, in the skin's icon colour.
    Warning = 2,   ///< The same picture as Attention.
    Success = 3    ///< The tick, in the skin's icon colour.
};

class ORVANE_EXPORT OMessageBox : public BarDialog
{
    Q_OBJECT

public:
    /// Builds the box with the caller's buttons (1-based positions in order).
    /// Note the order: the message text comes before the heading. Empty
    /// heading, text or check-box text leave their widget out; an empty
    /// button list gives a box without buttons, closed only by the bar or
    /// Escape (result 0). A `defaultButton` out of range highlights none.
    /// `flags` is ignored, as by every bar dialog. Build it with new: it
    /// deletes itself when it closes.
    OMessageBox(MessageBoxIconType icon, QStringList buttons, const QString &text,
                const QString &heading = QString(), int defaultButton = -1,
                const QString &checkText = QString(),
                std::function<void(bool)> onChecked = std::function<void(bool)>(),
                QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    /// Nothing beyond BarDialog's destructor.
    ~OMessageBox() override;

    /// One highlighted "OK" button; blocks until closed. 1 for OK, else 0.
    static int popupTips(MessageBoxIconType icon, const QString &text, const QString &heading = QString());

    /// The caller's buttons; blocks until closed. The 1-based position of the
    /// clicked button, or 0 (also for an empty button list).
    static int popupTips(MessageBoxIconType icon, const QStringList &buttons, const QString &text,
                         const QString &heading, int defaultButton, const QString &checkText,
                         std::function<void(bool)> onChecked);

    /// The box of the first popupTips(), shown modeless, without a parent;
    /// returns at once and the box deletes itself when closed.
    static void showTips(MessageBoxIconType icon, const QString &text, const QString &heading = QString());

protected:
    /// Centres over the main window as every bar dialog does; without one, on
    /// the screen under the pointer.
    void showEvent(QShowEvent *event) override;

private:
    std::function<void(bool)> m_onChecked;

    Q_DISABLE_COPY(OMessageBox)
};

} // namespace Orvane

#endif // ORVANE_OMESSAGEBOX_H
