#pragma once
// Keeps the screen from dimming while the program runs (the freedesktop
// screensaver interface on the session bus). Without a bus it does nothing.

#include <QtGlobal>

namespace zt {

class ScreenSaverInhibitor {
public:
    ~ScreenSaverInhibitor() { release(); }
    void inhibit();
    void release();
    bool active() const { return cookie_ != 0; }

private:
    quint32 cookie_ = 0;
};

}  // namespace zt
