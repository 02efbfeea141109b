#include <Orvane/threads.h>

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

namespace Orvane {

bool isMainThread()
{
    return QThread::currentThread() == QCoreApplication::instance()->thread();
}

bool isWorkThread()
{
    return !isMainThread();
}

void DispatchToMainThread(std::function<void()> callback)
{
    auto *timer = new QTimer;
    timer->moveToThread(QCoreApplication::instance()->thread());
    timer->setSingleShot(true);
    QObject::connect(
        timer, &QTimer::timeout, timer,
        [callback, timer]() {
            callback();
            timer->deleteLater();
        },
        Qt::DirectConnection);
    // A timer owned by another thread must not be started from here: the
    // start is posted to the GUI thread's queue.
    QMetaObject::invokeMethod(timer, "start", Qt::QueuedConnection, Q_ARG(int, 0));
}

} // namespace Orvane
