#ifndef ORVANE_POPPINGDIALOGMGR_H
#define ORVANE_POPPINGDIALOGMGR_H

/// @file
/// The popped-dialog registry, Orvane::PoppingDialogMgr.

/// @class Orvane::PoppingDialogMgr
/// A process-wide registry of dialogs the host has popped up: holding a
/// shared pointer here keeps a modeless dialog alive after the code that made
/// it returned, and clear() closes them all at once.
///
/// @code{.cpp}
/// auto dlg = QSharedPointer<QDialog>(new MyDialog, &QObject::deleteLater);
/// PoppingDialogMgr::sharedInstance()->push(dlg);
/// dlg->show();
/// ...
/// PoppingDialogMgr::sharedInstance()->clear(); // e.g. when the host quits
/// @endcode
///
/// The registry shares ownership with every other holder of the pointers. It
/// does not watch the dialogs: one that closes or is destroyed by other means
/// stays held until remove() or clear(). A dialog with Qt::WA_DeleteOnClose
/// deletes itself later when closed, so give its shared pointer the deleter
/// &QObject::deleteLater; a plain delete would then run twice.
///
/// The single instance is created on first use, has no parent and is never
/// destroyed. The constructor is protected so that the instance cannot be
/// made twice by accident; a subclass may still build a private registry.
/// @guithread
///
/// @par Binary compatibility:
/// The one member, the list of held dialogs, is fixed. No d-pointer: the
/// members are the class's own, as its design fixes them, and they stay, in
/// this order, through 1.x, so the class's size and layout do not change.
/// Later state is kept by the library outside the object, and new functions
/// come as non-virtual members; no inline code in this header reads a private
/// member.

#include <Orvane/orvane_export.h>

#include <QDialog>
#include <QList>
#include <QObject>
#include <QSharedPointer>

namespace Orvane {

class ORVANE_EXPORT PoppingDialogMgr : public QObject
{
    Q_OBJECT

public:
    /// The process-wide registry, created on the first call; never null.
    static PoppingDialogMgr *sharedInstance();

    /// Drops the held pointers (the shared instance is never destroyed).
    ~PoppingDialogMgr() override;

    /// Appends `dialog` unless an entry already points to the same dialog.
    /// @badinput A null pointer is held like any other value, once.
    void push(QSharedPointer<QDialog> dialog);

    /// Drops every entry pointing to the same dialog; does not close it. A
    /// dialog that is not held changes nothing.
    void remove(QSharedPointer<QDialog> dialog);

    /// Ends every held dialog that is a top-level window with done(0), in the
    /// order of QApplication::topLevelWidgets(), then drops every entry. Held
    /// dialogs with a parent widget, and null entries, are only dropped.
    void clear();

protected:
    /// An empty registry without a parent; sharedInstance() makes the one a
    /// host uses.
    PoppingDialogMgr();

    /// The held dialogs in insertion order, no two pointing to one dialog.
    QList<QSharedPointer<QDialog>> m_dialogs;

private:
    Q_DISABLE_COPY(PoppingDialogMgr)
};

} // namespace Orvane

#endif // ORVANE_POPPINGDIALOGMGR_H
