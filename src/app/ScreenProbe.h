#pragma once
// What the app shows, as data, for tests and measurements without a
// display: every `intervalMs` it prints one JSON line to standard output
// with the time, the key of the screen on show, that screen's properties,
// and a few values as the view draws them at that moment ("drawn": the
// needle's angle in degrees, the frequency text, whether the microphone
// alert is open). --probe turns it on.

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class QQuickWindow;

namespace zt {

class Tools;

class ScreenProbe : public QObject {
    Q_OBJECT

public:
    ScreenProbe(QQuickWindow* window, Tools* tools, int intervalMs, QObject* parent = nullptr);
    void start();

private:
    void print();

    QQuickWindow* window_;
    Tools* tools_;
    QTimer timer_;
    QElapsedTimer clock_;
};

}  // namespace zt
