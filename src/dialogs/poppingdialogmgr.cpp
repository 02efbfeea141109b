#include <Orvane/poppingdialogmgr.h>

#include <QApplication>
#include <QPointer>

namespace Orvane {

PoppingDialogMgr::PoppingDialogMgr()
    : QObject(nullptr)
{
}

PoppingDialogMgr::~PoppingDialogMgr() = default;

PoppingDialogMgr *PoppingDialogMgr::sharedInstance()
{
    static PoppingDialogMgr *const instance = new PoppingDialogMgr;
    return instance;
}

void PoppingDialogMgr::push(QSharedPointer<QDialog> dialog)
{
    for (const QSharedPointer<QDialog> &held : qAsConst(m_dialogs)) {
        if (held.data() == dialog.data())
            return;
    }
    m_dialogs.append(dialog);
}

void PoppingDialogMgr::remove(QSharedPointer<QDialog> dialog)
{
    m_dialogs.removeAll(dialog);
}

void PoppingDialogMgr::clear()
{
    // Guarded: closing one dialog may destroy other top-level widgets.
    QList<QPointer<QWidget>> topLevels;
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets)
        topLevels.append(widget);
    // A copy: a dialog's finished() handler may push or remove meanwhile,
    // and the copy keeps every held dialog alive until the end.
    const QList<QSharedPointer<QDialog>> held = m_dialogs;
    for (const QPointer<QWidget> &widget : qAsConst(topLevels)) {
        QDialog *dialog = qobject_cast<QDialog *>(widget.data());
        if (!dialog)
            continue;
        for (const QSharedPointer<QDialog> &entry : held) {
            if (entry.data() == dialog)
                dialog->done(0);
        }
    }
    m_dialogs.clear();
}

} // namespace Orvane
