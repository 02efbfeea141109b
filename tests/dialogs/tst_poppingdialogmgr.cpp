#include <Orvane/poppingdialogmgr.h>

#include <QApplication>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

using Orvane::PoppingDialogMgr;

namespace {

// A private registry with its list in reach, so the tests can see it.
struct Registry : PoppingDialogMgr
{
    using PoppingDialogMgr::m_dialogs;

    QList<QDialog *> held() const
    {
        QList<QDialog *> out;
        for (const QSharedPointer<QDialog> &d : m_dialogs)
            out << d.data();
        return out;
    }
};

QSharedPointer<QDialog> shownDialog()
{
    QSharedPointer<QDialog> dialog(new QDialog);
    dialog->show();
    return dialog;
}

} // namespace

class tst_PoppingDialogMgr : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void sharedInstanceIsSingle();
    void pushSameTwiceKeepsOne();
    void pushKeepsOrder();
    void pushNullOnce();
    void registryKeepsDialogAlive();
    void removeNotHeldChangesNothing();
    void removeReleasesWithoutClosing();
    void clearEndsTopLevelAndDeletesSoleOwned();
    void clearKeepsDialogsSharedElsewhere();
    void clearReleasesEmbeddedDialogWithoutDone();
    void clearEndsParentedWindowDialog();
    void clearEndsHiddenTopLevelDialog();
    void clearLeavesUnheldDialogsAlone();
    void clearFollowsTopLevelOrder();
    void clearDeleteOnCloseWithDeferredDeleter();
    void clearOnEmptyRegistry();
    void sharedInstanceClears();
};

void tst_PoppingDialogMgr::cleanup()
{
    QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_PoppingDialogMgr::sharedInstanceIsSingle()
{
    PoppingDialogMgr *first = PoppingDialogMgr::sharedInstance();
    QVERIFY(first);
    QCOMPARE(PoppingDialogMgr::sharedInstance(), first);
    QCOMPARE(first->parent(), nullptr);
    QCOMPARE(first->metaObject()->className(), "Orvane::PoppingDialogMgr");
}

void tst_PoppingDialogMgr::pushSameTwiceKeepsOne()
{
    Registry registry;
    QSharedPointer<QDialog> dialog(new QDialog);
    registry.push(dialog);
    registry.push(dialog);
    QCOMPARE(registry.held(), QList<QDialog *>{dialog.data()});

    // Two shared pointers made apart to one dialog are still one entry.
    QSharedPointer<QDialog> copy = dialog;
    registry.push(copy);
    QCOMPARE(registry.m_dialogs.size(), 1);
}

void tst_PoppingDialogMgr::pushKeepsOrder()
{
    Registry registry;
    QSharedPointer<QDialog> a(new QDialog), b(new QDialog), c(new QDialog);
    registry.push(b);
    registry.push(a);
    registry.push(b);
    registry.push(c);
    QCOMPARE(registry.held(), (QList<QDialog *>{b.data(), a.data(), c.data()}));
}

void tst_PoppingDialogMgr::pushNullOnce()
{
    Registry registry;
    registry.push(QSharedPointer<QDialog>());
    registry.push(QSharedPointer<QDialog>());
    QCOMPARE(registry.held(), QList<QDialog *>{nullptr});
    registry.remove(QSharedPointer<QDialog>());
    QVERIFY(registry.m_dialogs.isEmpty());
}

void tst_PoppingDialogMgr::registryKeepsDialogAlive()
{
    Registry registry;
    QPointer<QDialog> watch;
    {
        QSharedPointer<QDialog> dialog(new QDialog);
        watch = dialog.data();
        registry.push(dialog);
    }
    QVERIFY(watch);
    registry.remove(QSharedPointer<QDialog>(registry.m_dialogs.first()));
    QVERIFY(!watch);
    QVERIFY(registry.m_dialogs.isEmpty());
}

void tst_PoppingDialogMgr::removeNotHeldChangesNothing()
{
    Registry registry;
    QSharedPointer<QDialog> a(new QDialog), b(new QDialog), stranger(new QDialog);
    registry.push(a);
    registry.push(b);
    registry.remove(stranger);
    registry.remove(QSharedPointer<QDialog>());
    QCOMPARE(registry.held(), (QList<QDialog *>{a.data(), b.data()}));
    // The stranger was neither held nor touched.
    QVERIFY(!stranger->isVisible());
    QCOMPARE(stranger->result(), 0);
}

void tst_PoppingDialogMgr::removeReleasesWithoutClosing()
{
    Registry registry;
    QSharedPointer<QDialog> dialog = shownDialog();
    QSignalSpy finished(dialog.data(), &QDialog::finished);
    registry.push(dialog);
    registry.remove(dialog);
    QVERIFY(registry.m_dialogs.isEmpty());
    QVERIFY(dialog->isVisible());
    QCOMPARE(finished.count(), 0);
}

void tst_PoppingDialogMgr::clearEndsTopLevelAndDeletesSoleOwned()
{
    Registry registry;
    QPointer<QDialog> watch;
    QSignalSpy *finished = nullptr;
    {
        QSharedPointer<QDialog> dialog = shownDialog();
        dialog->setResult(7);
        watch = dialog.data();
        finished = new QSignalSpy(dialog.data(), &QDialog::finished);
        registry.push(dialog);
    }
    QVERIFY(watch && watch->isVisible());
    registry.clear();
    QCOMPARE(finished->count(), 1);
    QCOMPARE(finished->first().first().toInt(), 0);
    QVERIFY(!watch); // the registry held the last reference
    QVERIFY(registry.m_dialogs.isEmpty());
    delete finished;
}

void tst_PoppingDialogMgr::clearKeepsDialogsSharedElsewhere()
{
    Registry registry;
    QSharedPointer<QDialog> dialog = shownDialog();
    dialog->setResult(5);
    QSignalSpy finished(dialog.data(), &QDialog::finished);
    QSignalSpy rejected(dialog.data(), &QDialog::rejected);
    registry.push(dialog);
    registry.push(dialog);
    registry.clear();
    QCOMPARE(finished.count(), 1); // held once, ended once
    QCOMPARE(rejected.count(), 1);
    QCOMPARE(dialog->result(), 0);
    QVERIFY(!dialog->isVisible());
    QVERIFY(registry.m_dialogs.isEmpty());
}

void tst_PoppingDialogMgr::clearReleasesEmbeddedDialogWithoutDone()
{
    Registry registry;
    QWidget host;
    host.show();
    QPointer<QDialog> watch;
    QSignalSpy *finished = nullptr;
    {
        // A dialog laid into another widget is not a window of its own.
        auto *embedded = new QDialog(&host);
        embedded->setWindowFlags(Qt::Widget);
        embedded->show();
        QVERIFY(!embedded->isWindow());
        watch = embedded;
        finished = new QSignalSpy(embedded, &QDialog::finished);
        registry.push(QSharedPointer<QDialog>(embedded));
    }
    registry.clear();
    QCOMPARE(finished->count(), 0);
    QVERIFY(!watch); // released: the registry was its only shared owner
    QVERIFY(registry.m_dialogs.isEmpty());
    QVERIFY(!host.findChild<QDialog *>());
    delete finished;
}

void tst_PoppingDialogMgr::clearEndsParentedWindowDialog()
{
    // A dialog with a parent is still a window, so Qt lists it among the
    // top-level widgets and it is ended like any other.
    Registry registry;
    QWidget host;
    host.show();
    QSharedPointer<QDialog> dialog(new QDialog(&host));
    dialog->show();
    QVERIFY(dialog->isWindow());
    QSignalSpy finished(dialog.data(), &QDialog::finished);
    registry.push(dialog);
    registry.clear();
    QCOMPARE(finished.count(), 1);
    QVERIFY(!dialog->isVisible());
    dialog.reset();
}

void tst_PoppingDialogMgr::clearEndsHiddenTopLevelDialog()
{
    Registry registry;
    QSharedPointer<QDialog> dialog(new QDialog);
    QSignalSpy finished(dialog.data(), &QDialog::finished);
    registry.push(dialog);
    registry.clear();
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().toInt(), 0);
}

void tst_PoppingDialogMgr::clearLeavesUnheldDialogsAlone()
{
    Registry registry;
    QSharedPointer<QDialog> held = shownDialog();
    QSharedPointer<QDialog> other = shownDialog();
    QSignalSpy finished(other.data(), &QDialog::finished);
    registry.push(held);
    registry.clear();
    QCOMPARE(finished.count(), 0);
    QVERIFY(other->isVisible());
    QVERIFY(!held->isVisible());
}

void tst_PoppingDialogMgr::clearFollowsTopLevelOrder()
{
    Registry registry;
    QList<QSharedPointer<QDialog>> dialogs;
    for (int i = 0; i < 5; ++i)
        dialogs << shownDialog();
    QList<QDialog *> ended;
    for (const QSharedPointer<QDialog> &d : dialogs) {
        QDialog *raw = d.data();
        connect(raw, &QDialog::finished, this, [&ended, raw] { ended << raw; });
    }
    // Pushed in reverse, yet ended in the order Qt lists its windows.
    for (int i = dialogs.size() - 1; i >= 0; --i)
        registry.push(dialogs.at(i));
    QList<QDialog *> expected;
    for (QWidget *w : QApplication::topLevelWidgets())
        if (auto *d = qobject_cast<QDialog *>(w))
            expected << d;
    registry.clear();
    QCOMPARE(ended, expected);
    QCOMPARE(ended.size(), 5);
}

void tst_PoppingDialogMgr::clearDeleteOnCloseWithDeferredDeleter()
{
    Registry registry;
    QPointer<QDialog> watch;
    {
        QSharedPointer<QDialog> dialog(new QDialog, &QObject::deleteLater);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->show();
        watch = dialog.data();
        registry.push(dialog);
    }
    registry.clear();
    QVERIFY(registry.m_dialogs.isEmpty());
    QVERIFY(watch && !watch->isVisible());
    QTRY_VERIFY(!watch);
}

void tst_PoppingDialogMgr::clearOnEmptyRegistry()
{
    Registry registry;
    QSharedPointer<QDialog> outside = shownDialog();
    registry.clear();
    QVERIFY(registry.m_dialogs.isEmpty());
    QVERIFY(outside->isVisible());
}

void tst_PoppingDialogMgr::sharedInstanceClears()
{
    PoppingDialogMgr *registry = PoppingDialogMgr::sharedInstance();
    QPointer<QDialog> watch;
    {
        QSharedPointer<QDialog> dialog = shownDialog();
        watch = dialog.data();
        registry->push(dialog);
        registry->push(dialog);
    }
    QVERIFY(watch);
    registry->clear();
    QVERIFY(!watch);
}

QTEST_MAIN(tst_PoppingDialogMgr)
#include "tst_poppingdialogmgr.moc"
