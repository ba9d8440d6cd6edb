#pragma once
// One window per desktop session, the desktop's usual rule: the first launch
// owns the app's name on the session bus and serves the standard
// org.freedesktop.Application interface there; a later launch asks it to
// raise its window and ends instead of opening a second one, whose saves
// would otherwise race the first's.

#include <QObject>
#include <QVariantMap>

class QWindow;

namespace zt {

class SingleInstance : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    static constexpr const char* kService = "org.zebtools.ZebTools";
    static constexpr const char* kPath = "/org/zebtools/ZebTools";

    using QObject::QObject;

    // True when this launch is the one to run: it now owns the name, or
    // there is no session bus to ask, or the owner did not answer. False
    // when a running instance was asked to raise its window.
    bool claim();

    // The window raised when another launch asks.
    void setWindow(QWindow* window) { window_ = window; }

public slots:
    // What a later launch (or the desktop) calls.
    void Activate(const QVariantMap& platformData);

private:
    QWindow* window_ = nullptr;
};

}  // namespace zt
