#include "app/QtMainLoop.h"

#include <QMetaObject>
#include <QTimer>

namespace zt {

MainLoop::TimerId QtMainLoop::startTimer(std::chrono::milliseconds interval, bool repeat,
                                         Callback callback) {
    const TimerId id = nextId_++;
    auto* timer = new QTimer(this);
    timer->setTimerType(Qt::PreciseTimer);
    timer->setInterval(interval);
    timer->setSingleShot(!repeat);
    connect(timer, &QTimer::timeout, this, [this, id, repeat, callback = std::move(callback)] {
        if (!repeat)
            stopTimer(id);
        callback();
    });
    timers_.insert(id, timer);
    timer->start();
    return id;
}

void QtMainLoop::stopTimer(TimerId id) {
    if (QTimer* timer = timers_.take(id)) {
        timer->stop();
        timer->deleteLater();
    }
}

void QtMainLoop::post(Callback callback) {
    QMetaObject::invokeMethod(this, std::move(callback), Qt::QueuedConnection);
}

}  // namespace zt
