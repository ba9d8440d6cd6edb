#include "app/WindowPlacement.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWindow>

#include "framework/Log.h"

namespace zt {

namespace {

const QString kGeometry = QStringLiteral("Window/geometry");
const QString kFrame = QStringLiteral("Window/frame");
const QString kMaximized = QStringLiteral("Window/maximized");
// Longer than a window manager takes between a maximized size and state.
constexpr int kSettleMs = 250;

qint64 area(const QRect& r) {
    return r.isValid() ? qint64(r.width()) * r.height() : 0;
}

}  // namespace

WindowPlacement::WindowPlacement(QWindow* window, const QString& path, QObject* parent)
    : QObject(parent), window_(window), path_(path) {
    for (auto changed :
         {&QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged, &QWindow::heightChanged})
        connect(window, changed, this, &WindowPlacement::track);
    connect(window, &QWindow::windowStateChanged, this, &WindowPlacement::track);
    connect(window, &QWindow::visibleChanged, this, &WindowPlacement::track);
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
            &WindowPlacement::save);
    settle_.setSingleShot(true);
    settle_.setInterval(kSettleMs);
    connect(&settle_, &QTimer::timeout, this, [this] { normal_ = pending_; });
}

QRect WindowPlacement::fit(const QRect& saved, const QList<QRect>& screens, const QSize& minimum,
                           const QMargins& frame) {
    if (!saved.isValid() || screens.isEmpty())
        return {};
    const QRect outer = saved.marginsAdded(frame);
    int best = -1;
    qint64 bestArea = 0;
    for (int i = 0; i < screens.size(); ++i) {
        if (area(outer & screens[i]) > bestArea) {
            best = i;
            bestArea = area(outer & screens[i]);
        }
    }
    const QRect screen = screens[best < 0 ? 0 : best];
    const QSize room = screen.marginsRemoved(frame).size();
    const QSize size = saved.size().expandedTo(minimum).boundedTo(room);
    QRect placed(saved.topLeft(), size);
    if (best < 0)
        placed.moveCenter(screen.marginsRemoved(frame).center());
    // Frame inside the screen; a screen smaller than the window keeps its top-left corner.
    QRect framed = placed.marginsAdded(frame);
    framed.moveLeft(qMax(screen.left(), qMin(framed.left(), screen.right() - framed.width() + 1)));
    framed.moveTop(qMax(screen.top(), qMin(framed.top(), screen.bottom() - framed.height() + 1)));
    return framed.marginsRemoved(frame);
}

void WindowPlacement::restoreAndShow(const QSize& size) {
    QSettings settings(path_, QSettings::IniFormat);
    QRect saved = settings.value(kGeometry).toRect();
    if (size.isValid()) {
        // Without a remembered place the window manager picks one.
        if (!saved.isValid()) {
            window_->resize(size);
            window_->show();
            return;
        }
        saved.setSize(size);
    }
    const QRect frame = settings.value(kFrame).toRect();
    QMargins margins;
    if (frame.contains(saved)) {
        margins = QMargins(saved.left() - frame.left(), saved.top() - frame.top(),
                           frame.right() - saved.right(), frame.bottom() - saved.bottom());
    }
    QList<QRect> screens;
    for (const QScreen* screen : QGuiApplication::screens())
        screens.append(screen->availableGeometry());
    const QRect placed = fit(saved, screens, window_->minimumSize(), margins);
    if (placed.isValid()) {
        window_->setGeometry(placed);
        normal_ = {placed, placed.marginsAdded(margins)};
    }
    // Written as "true" or "false"; any other text reads as a normal window.
    if (!size.isValid() && settings.value(kMaximized).toString() == QLatin1String("true"))
        window_->showMaximized();
    else
        window_->show();
}

void WindowPlacement::track() {
    if (window_->isVisible())
        follow(window_->geometry(), window_->frameGeometry(), window_->windowStates());
}

void WindowPlacement::follow(const QRect& client, const QRect& frame, Qt::WindowStates states) {
    if (states & Qt::WindowMinimized)
        return;
    maximized_ = states & Qt::WindowMaximized;
    if (states & (Qt::WindowMaximized | Qt::WindowFullScreen)) {
        settle_.stop();
        return;
    }
    if (client == normal_.client && !settle_.isActive())
        return;
    pending_ = {client, frame};
    settle_.start();
}

void WindowPlacement::save() {
    if (settle_.isActive()) {
        settle_.stop();
        normal_ = pending_;
    }
    if (!normal_.client.isValid())
        return;
    QSettings settings(path_, QSettings::IniFormat);
    settings.setValue(kGeometry, normal_.client);
    settings.setValue(kFrame, normal_.frame);
    settings.setValue(kMaximized, maximized_);
    settings.sync();
    if (settings.status() != QSettings::NoError)
        warn("The window's size and place could not be saved to " + path_.toStdString());
}

}  // namespace zt
