#pragma once
// The plain C++ layers' timers and main-thread hand-over, run by Qt's event
// loop.

#include <QHash>
#include <QObject>

#include "framework/MainLoop.h"

class QTimer;

namespace zt {

class QtMainLoop : public QObject, public MainLoop {
public:
    explicit QtMainLoop(QObject* parent = nullptr) : QObject(parent) {}

    TimerId startTimer(std::chrono::milliseconds interval, bool repeat, Callback callback) override;
    void stopTimer(TimerId id) override;
    void post(Callback callback) override;

private:
    QHash<TimerId, QTimer*> timers_;
    TimerId nextId_ = 1;
};

}  // namespace zt
