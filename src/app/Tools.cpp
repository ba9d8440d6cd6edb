#include "app/Tools.h"

#include <QVariantMap>

#include "app/ToolsDelegate.h"
#include "framework/Log.h"

namespace zt {

Tools::Tools(const ScreenEngines& engines, QObject* parent)
    : QObject(parent), stacks_(static_cast<qsizetype>(toolTabs().size())) {
    for (const ScreenRow& row : screenTable()) {
        Screen* made = row.makeScreen(*this, engines);
        made->setParent(this);
        made->setTitle(QString::fromUtf8(row.title));
        const QString key = QString::fromUtf8(row.key);
        screens_.insert(key, made);
        connect(made, &Screen::backRequested, this, [this, key] {
            for (int tab = 0; tab < stacks_.size(); ++tab) {
                if (!stacks_[tab].isEmpty() && stacks_[tab].last() == key)
                    goBack(tab);
            }
        });
        connect(made, &Screen::hasMediatorChanged, this, [this, key] {
            if (key == waitingToAppear_)
                appear(key);
        });
    }
    noticeTimer_.setSingleShot(true);
    connect(&noticeTimer_, &QTimer::timeout, this, &Tools::dismissNotice);
}

Tools::~Tools() = default;

Screen* Tools::screen(const QString& key) const {
    return screens_.value(key);
}

QUrl Tools::viewUrl(const QString& key) const {
    const ScreenRow* row = screenRow(key.toStdString());
    return row ? QUrl(QStringLiteral("qrc:/ZebTools/") + QString::fromUtf8(row->view)) : QUrl();
}

QVariantList Tools::tabs() const {
    QVariantList out;
    for (const ToolTab& tab : toolTabs()) {
        out.append(QVariantMap{{QStringLiteral("title"), QString::fromUtf8(tab.title)},
                               {QStringLiteral("glyph"), QString::fromUtf8(tab.glyph)}});
    }
    return out;
}

QStringList Tools::stack(int tab) const {
    return (tab >= 0 && tab < stacks_.size()) ? stacks_[tab] : QStringList();
}

QString Tools::visibleScreen() const {
    const QStringList& s = stacks_.value(currentTab_);
    return s.isEmpty() ? QString() : s.last();
}

void Tools::willLeave(const QString& key) {
    if (key != appeared_)
        return;
    if (Screen* leaving = screen(key))
        leaving->viewWillDisappear();
}

void Tools::didLeave(const QString& leaving, const QString& showing) {
    if (leaving == appeared_) {
        appeared_.clear();
        if (Screen* left = screen(leaving))
            left->viewDidDisappear();
    }
    appear(showing);
}

void Tools::appear(const QString& key) {
    waitingToAppear_.clear();
    Screen* shown = screen(key);
    if (!shown)
        return;
    const ScreenRow* row = screenRow(key.toStdString());
    if (row && row->makeMediator && !shown->hasMediator()) {
        waitingToAppear_ = key;
        return;
    }
    appeared_ = key;
    shown->viewWillAppear();
}

bool Tools::keyPressed(int key) {
    if (!tabBarReady_ || loading_ || closed_ || appeared_ != visibleScreen())
        return false;
    Screen* shown = screen(appeared_);
    if (shown && shown->keyPressed(key))
        return true;
    // Escape leaves a screen the screen itself has no use for it on, as its
    // Back button does; a tab's root has nowhere to go back to.
    if (key == Qt::Key_Escape && stacks_[currentTab_].size() > 1) {
        goBack(currentTab_);
        return true;
    }
    return false;
}

// Each tab's root screen hears whether its tab is the one on show.
void Tools::tellTabBarVisible(int index) {
    for (int tab = 0; tab < stacks_.size(); ++tab) {
        if (Screen* root = screen(QString::fromUtf8(toolTabs()[tab].root)))
            root->setTabBarIsVisible(tab == index);
    }
}

void Tools::createTabBar(int index) {
    if (tabBarReady_)
        return;
    if (index < 0 || index >= stacks_.size())
        index = MetronomeTab;
    for (int tab = 0; tab < stacks_.size(); ++tab)
        stacks_[tab] = {QString::fromUtf8(toolTabs()[tab].root)};
    selectedIndex_ = index;
    currentTab_ = index;
    tellTabBarVisible(index);
    tabBarReady_ = true;
    emit currentTabChanged();
    emit tabBarReadyChanged();
    appear(visibleScreen());
}

void Tools::buffersLoaded() {
    if (!loading_)
        return;
    log("Buffers was loaded");
    loading_ = false;
    emit loadingChanged();
}

void Tools::setCurrentTab(int index) {
    if (index == currentTab_)
        return;
    const QString leaving = visibleScreen();
    willLeave(leaving);
    currentTab_ = index;
    emit currentTabChanged();
    didLeave(leaving, visibleScreen());
}

void Tools::selectTab(int index) {
    if (!tabBarReady_ || index < 0 || index >= stacks_.size())
        return;
    selectedIndex_ = index;
    tellTabBarVisible(index);
    if (delegate_)
        delegate_->tabSelected(index);
    setCurrentTab(index);
}

void Tools::openTunings(int tab) {
    if (delegate_)
        delegate_->showTunings(tab);
}

void Tools::showTunerBrain() {
    if (!tabBarReady_)
        return;
    selectedIndex_ = BrainTab;
    tellTabBarVisible(BrainTab);
    setCurrentTab(BrainTab);
}

void Tools::show(const QString& key, int tab) {
    const ScreenRow* row = screenRow(key.toStdString());
    if (row && row->tab != kAnyTab)
        tab = row->tab;
    if (!tabBarReady_ || !row || tab < 0 || tab >= stacks_.size())
        return;
    QStringList& s = stacks_[tab];
    if (!s.isEmpty() && s.last() == key)
        return;
    const bool visible = tab == currentTab_;
    const QString leaving = s.isEmpty() ? QString() : s.last();
    if (visible)
        willLeave(leaving);
    s.append(key);
    emit pushed(tab, key);
    if (visible)
        didLeave(leaving, key);
}

void Tools::goBack(int tab) {
    if (tab < 0 || tab >= stacks_.size() || stacks_[tab].size() < 2)
        return;
    QStringList& s = stacks_[tab];
    const QString leaving = s.last();
    const bool visible = tab == currentTab_;
    if (visible)
        willLeave(leaving);
    s.removeLast();
    emit popped(tab);
    if (visible)
        didLeave(leaving, s.last());
}

void Tools::close() {
    if (closed_ || !tabBarReady_)
        return;
    closed_ = true;
    const QString leaving = visibleScreen();
    willLeave(leaving);
    didLeave(leaving, QString());
}

void Tools::showHowToEnter(const QString& address) {
    log("How to enter: " + address.toStdString());
}

void Tools::showNotice(const QString& text) {
    notice_ = text;
    emit noticeChanged();
    noticeTimer_.start(kNoticeMilliseconds);
}

void Tools::dismissNotice() {
    noticeTimer_.stop();
    if (notice_.isEmpty())
        return;
    notice_.clear();
    emit noticeChanged();
}

}  // namespace zt
