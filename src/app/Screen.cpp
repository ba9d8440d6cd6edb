#include "app/Screen.h"

namespace zt {

void Screen::setTitle(const QString& title) {
    if (title == title_)
        return;
    title_ = title;
    emit titleChanged();
}

}  // namespace zt
