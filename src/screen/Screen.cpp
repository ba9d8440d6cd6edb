#include "screen/Screen.h"

namespace zt {

void Screen::setTitle(const QString& title) {
    if (title == title_)
        return;
    title_ = title;
    emit titleChanged();
}

void Screen::setHasMediator(bool has) {
    if (has == hasMediator_)
        return;
    hasMediator_ = has;
    emit hasMediatorChanged();
}

}  // namespace zt
