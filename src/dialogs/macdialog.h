#ifndef ORVANE_MACDIALOG_H
#define ORVANE_MACDIALOG_H

/// @file
/// The Mac-style dialog, Orvane::MacDialog.

/// @class Orvane::MacDialog
/// A plain dialog with the platform's own frame that stays on top and takes
/// only its background from the skin: in the dark skin (2) the skin's colour
/// and a thin dark top border, in every other skin nothing. It has no drawn
/// bar, no content widget and no dragging; the host lays out the dialog
/// itself. Ownership follows QDialog (parent, or the caller when null).
///
/// @code{.cpp}
/// Orvane::MacDialog dlg(mainWindow, Orvane::currentDialogSkin());
/// auto *l = new QVBoxLayout(&dlg);
/// l->addWidget(new QLabel(tr("Done.")));
/// dlg.exec();
/// @endcode
///
/// @guithread
///
/// @par Binary compatibility:
/// The class has no members of its own and keeps none. No d-pointer: the
/// members are the class's own, as its design fixes them, and they stay, in
/// this order, through 1.x, so the class's size and layout do not change.
/// Later state is kept by the library outside the object, and new functions
/// come as non-virtual members; no inline code in this header reads a private
/// member.

#include <Orvane/orvane_export.h>

#include <QDialog>

namespace Orvane {

class ORVANE_EXPORT MacDialog : public QDialog
{
    Q_OBJECT

public:
    /// A dialog on `parent` (may be null) in the looks of `skin` (2 dark,
    /// anything else light, so no value is wrong). The caller's flags are
    /// honoured, with Qt::WindowStaysOnTopHint added.
    explicit MacDialog(QWidget *parent = nullptr, int skin = 2,
                       Qt::WindowFlags flags = Qt::WindowFlags());
    /// Nothing beyond QDialog's destructor.
    ~MacDialog() override;

private:
    Q_DISABLE_COPY(MacDialog)
};

} // namespace Orvane

#endif // ORVANE_MACDIALOG_H
