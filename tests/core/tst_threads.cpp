#include <Orvane/orvanecore.h>

#include <QAtomicInt>
#include <QCoreApplication>
#include <QThread>
#include <QtTest>

#include <algorithm>
#include <atomic>
#include <vector>

// Qt's object hooks (exported by QtCore for tools such as debuggers) let the
// test count the dispatch timers: every QObject made and destroyed passes
// through them, from any thread.
extern quintptr qtHookData[];

namespace {

enum HookIndex { AddQObject = 3, RemoveQObject = 4 };
using ObjectCallback = void (*)(QObject *);

std::atomic<int> objectsAdded{0};
std::atomic<int> objectsRemoved{0};
ObjectCallback previousAdd = nullptr;
ObjectCallback previousRemove = nullptr;

void countAdd(QObject *o)
{
    ++objectsAdded;
    if (previousAdd)
        previousAdd(o);
}

void countRemove(QObject *o)
{
    ++objectsRemoved;
    if (previousRemove)
        previousRemove(o);
}

// Counts the QObjects made and destroyed while it lives.
class ObjectCounter
{
public:
    ObjectCounter()
    {
        objectsAdded = 0;
        objectsRemoved = 0;
        previousAdd = reinterpret_cast<ObjectCallback>(qtHookData[AddQObject]);
        previousRemove = reinterpret_cast<ObjectCallback>(qtHookData[RemoveQObject]);
        qtHookData[AddQObject] = reinterpret_cast<quintptr>(&countAdd);
        qtHookData[RemoveQObject] = reinterpret_cast<quintptr>(&countRemove);
    }
    ~ObjectCounter()
    {
        qtHookData[AddQObject] = reinterpret_cast<quintptr>(previousAdd);
        qtHookData[RemoveQObject] = reinterpret_cast<quintptr>(previousRemove);
    }
    int added() const { return objectsAdded; }
    int live() const { return objectsAdded - objectsRemoved; }
};

void processDeferredDeletes()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

} // namespace

class tst_Threads : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void predicatesOnGuiThread();
    void predicatesOnWorker();
    void dispatchFromGuiThreadIsDeferred();
    void eachDispatchMakesAndDeletesOneTimer();
    void dispatchFromWorkerRunsOnGuiThread();
    void dispatchUnderLoad();
};

void tst_Threads::predicatesOnGuiThread()
{
    QVERIFY(Orvane::isMainThread());
    QVERIFY(!Orvane::isWorkThread());
}

void tst_Threads::predicatesOnWorker()
{
    // Atomics: QThread::wait() synchronises through futexes that
    // ThreadSanitizer cannot see.
    std::atomic<bool> main{true};
    std::atomic<bool> work{false};
    QThread *worker = QThread::create([&] {
        main = Orvane::isMainThread();
        work = Orvane::isWorkThread();
    });
    worker->start();
    QVERIFY(worker->wait(10000));
    delete worker;
    QVERIFY(!main.load());
    QVERIFY(work.load());
}

void tst_Threads::dispatchFromGuiThreadIsDeferred()
{
    int runs = 0;
    Orvane::DispatchToMainThread([&runs] { ++runs; });
    QCOMPARE(runs, 0); // returned before the callable ran
    QTRY_COMPARE(runs, 1);
    QCoreApplication::processEvents();
    QCOMPARE(runs, 1);
}

void tst_Threads::eachDispatchMakesAndDeletesOneTimer()
{
    processDeferredDeletes();
    ObjectCounter counter;
    bool ran = false;
    Orvane::DispatchToMainThread([&ran] { ran = true; });
    QCOMPARE(counter.added(), 1);
    QCOMPARE(counter.live(), 1);
    QTRY_VERIFY(ran);
    QTRY_COMPARE(counter.live(), 0);
    QCOMPARE(counter.added(), 1);
}

void tst_Threads::dispatchFromWorkerRunsOnGuiThread()
{
    QThread *guiThread = QThread::currentThread();
    QThread *ranOn = nullptr;
    QThread *worker = QThread::create([&ranOn] {
        Orvane::DispatchToMainThread([&ranOn] { ranOn = QThread::currentThread(); });
    });
    worker->start();
    QVERIFY(worker->wait(10000));
    delete worker;
    QTRY_COMPARE(ranOn, guiThread);
}

void tst_Threads::dispatchUnderLoad()
{
    constexpr int threadCount = 8;
    constexpr int perThread = 10000;
    constexpr int total = threadCount * perThread;

    std::vector<QThread *> workers;
    std::vector<int> runsPerCallable(total, 0); // touched only on the GUI thread
    std::atomic<int> offGuiThread{0};
    QThread *guiThread = QThread::currentThread();

    for (int t = 0; t < threadCount; ++t) {
        workers.push_back(QThread::create([t, &runsPerCallable, &offGuiThread, guiThread] {
            for (int i = 0; i < perThread; ++i) {
                const int id = t * perThread + i;
                Orvane::DispatchToMainThread([id, &runsPerCallable, &offGuiThread, guiThread] {
                    if (QThread::currentThread() != guiThread)
                        ++offGuiThread;
                    else
                        ++runsPerCallable[id];
                });
            }
        }));
    }

    processDeferredDeletes();
    {
        ObjectCounter counter;
        for (QThread *w : workers)
            w->start();
        for (QThread *w : workers)
            QVERIFY(w->wait(60000));

        int ran = 0;
        QTRY_VERIFY_WITH_TIMEOUT(
            (ran = int(std::count(runsPerCallable.begin(), runsPerCallable.end(), 1))) == total, 60000);
        QTRY_COMPARE_WITH_TIMEOUT(counter.live(), 0, 60000);
        // Starting a thread makes its event dispatcher, so count at least one
        // object per dispatch; the live count proves that all are gone.
        QVERIFY(counter.added() >= total);
        Q_UNUSED(ran);
    }
    QCOMPARE(offGuiThread.load(), 0);
    QVERIFY(std::all_of(runsPerCallable.begin(), runsPerCallable.end(), [](int n) { return n == 1; }));
    qDeleteAll(workers);
}

QTEST_GUILESS_MAIN(tst_Threads)
#include "tst_threads.moc"
