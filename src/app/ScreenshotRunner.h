#pragma once
// Renders each tool (and the tunings list) to a PNG, one after the other,
// then quits. Used with --screenshot, e.g. on a machine without a display.

#include <QDir>
#include <QObject>
#include <QStringList>

class QQuickWindow;

namespace zt {

class Tools;

class ScreenshotRunner : public QObject {
    Q_OBJECT

public:
    ScreenshotRunner(QQuickWindow* window, Tools* tools, const QString& dir,
                     QObject* parent = nullptr);
    void start();

private:
    void step();
    void grab(const QString& name);

    QQuickWindow* window_;
    Tools* tools_;
    QDir dir_;
    QStringList toolFiles_;
    int step_ = 0;
    QStringList written_;
};

}  // namespace zt
