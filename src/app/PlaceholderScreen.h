#pragma once
// A screen whose behaviour has not been built yet: the shell shows its title
// on an otherwise empty page.

#include <QtQml/qqmlregistration.h>

#include "screen/Screen.h"

namespace zt {

class PlaceholderScreen : public zt::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")

public:
    using Screen::Screen;
};

}  // namespace zt
