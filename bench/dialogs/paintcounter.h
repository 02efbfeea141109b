#ifndef ORVANE_BENCH_PAINTCOUNTER_H
#define ORVANE_BENCH_PAINTCOUNTER_H

// The dialog benchmarks' check that a box was really painted: an event
// filter, installed on the box, that counts the paint events of windows.

#include <QEvent>
#include <QObject>
#include <QWidget>

namespace OrvaneBench {

class PaintCounter : public QObject
{
public:
    int paints = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType() && static_cast<QWidget *>(watched)->isWindow())
            ++paints;
        return false;
    }
};

} // namespace OrvaneBench

#endif // ORVANE_BENCH_PAINTCOUNTER_H
