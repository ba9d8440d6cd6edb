#include "app/Tools.h"

#include <QMetaObject>

#include "app/PlaceholderScreen.h"
#include "app/ToolsDelegate.h"
#include "framework/Log.h"
#include "metronome/Metronome.h"
#include "metronome/MetronomeSettings.h"
#include "tuners/CommonSettings.h"

namespace zt {

namespace {
// Tab order and the root screen of each tab.
const QStringList kToolItems = {"METRONOME", "CHROMATIC", "BRAIN", "CHORDS"};
const QStringList kRootScreens = {"metronome", "tunerChromatic", "tunerBrain", "chordsLibrary"};
const QStringList kTabTitles = {"Metronome", "Chromatic Tuner", "Brain Tuner", "Chords"};

enum Tab { MetronomeTab = 0, ChromaticTab = 1, BrainTab = 2, ChordsTab = 3 };

// Title shown by a screen until its tool provides the real one.
const QHash<QString, QString> kPlaceholderTitles = {
    {"chordsLibrary", "Chords Library"},
    {"chordsLibrarySettings", "Settings"},
    {"tunerChromatic", "Chromatic Tuner"},
    {"tunerBrain", "Brain Tuner"},
    {"tunerChromaticSettings", "Settings"},
    {"tunerBrainSettings", "Settings"},
    {"tunerChromaticTaper", "Tapering functions"},
    {"orchestraControl", "Orchestra Tuning"},
    {"microphoneCalibrating", "Microphone sensitivity"},
    {"howToEnter", "How to enter"},
};
}  // namespace

const QStringList& Tools::screenKeys() {
    static const QStringList keys = {
        "metronome",      "metronomeSettings",   "chordsLibrary",          "chordsLibrarySettings",
        "tunerChromatic", "tunerBrain",          "tunerChromaticSettings", "tunerBrainSettings",
        "commonSettings", "tunerChromaticTaper", "orchestraControl",       "microphoneCalibrating",
        "howToEnter"};
    return keys;
}

Tools::Tools(QObject* parent) : QObject(parent), stacks_(kRootScreens.size()) {
    for (const QString& key : screenKeys()) {
        screens_.insert(key, new PlaceholderScreen(kPlaceholderTitles.value(key), this));
    }
    auto* metronome = new Metronome();
    setScreen("metronome", metronome);
    setScreen("metronomeSettings", new MetronomeSettings(metronome));
    setScreen("commonSettings", new CommonSettings());
}

Tools::~Tools() = default;

QObject* Tools::screen(const QString& key) const {
    return screens_.value(key).data();
}

void Tools::setScreen(const QString& key, QObject* screen) {
    if (QObject* old = screens_.value(key).data(); old && old != screen && old->parent() == this) {
        old->deleteLater();
    }
    if (screen)
        screen->setParent(this);
    screens_.insert(key, screen);
}

QStringList Tools::tabTitles() const {
    return kTabTitles;
}
QStringList Tools::toolItems() const {
    return kToolItems;
}

QStringList Tools::stack(int tab) const {
    return (tab >= 0 && tab < stacks_.size()) ? stacks_[tab] : QStringList();
}

QString Tools::visibleScreen() const {
    const QStringList& s = stacks_.value(currentTab_);
    return s.isEmpty() ? QString() : s.last();
}

void Tools::callScreen(const QString& key, const char* method) {
    QObject* target = screen(key);
    if (!target)
        return;
    const QByteArray signature = QByteArray(method) + "()";
    if (target->metaObject()->indexOfMethod(signature.constData()) >= 0) {
        QMetaObject::invokeMethod(target, method);
    }
}

void Tools::setMetronomeTabBarVisible(bool visible) {
    QObject* metronome = screen("metronome");
    if (metronome && metronome->metaObject()->indexOfMethod("setTabBarIsVisible(bool)") >= 0) {
        QMetaObject::invokeMethod(metronome, "setTabBarIsVisible", Q_ARG(bool, visible));
    }
}

void Tools::createTabBar(int index) {
    if (tabBarReady_)
        return;
    if (index < 0 || index >= kRootScreens.size())
        index = 0;
    for (int tab = 0; tab < kRootScreens.size(); ++tab)
        stacks_[tab] = {kRootScreens[tab]};
    selectedIndex_ = index;
    currentTab_ = index;
    if (index == MetronomeTab)
        setMetronomeTabBarVisible(true);
    tabBarReady_ = true;
    emit currentTabChanged();
    emit tabBarReadyChanged();
    callScreen(visibleScreen(), "viewWillAppear");
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
    callScreen(leaving, "viewWillDisappear");
    currentTab_ = index;
    emit currentTabChanged();
    callScreen(leaving, "viewDidDisappear");
    callScreen(visibleScreen(), "viewWillAppear");
}

void Tools::selectTab(int index) {
    if (!tabBarReady_ || index < 0 || index >= kRootScreens.size())
        return;
    selectedIndex_ = index;
    setMetronomeTabBarVisible(index == MetronomeTab);
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
    setMetronomeTabBarVisible(false);
    setCurrentTab(BrainTab);
}

void Tools::push(int tab, const QString& key) {
    if (!tabBarReady_ || tab < 0 || tab >= stacks_.size() || !screens_.contains(key))
        return;
    QStringList& s = stacks_[tab];
    if (!s.isEmpty() && s.last() == key)
        return;
    const bool visible = tab == currentTab_;
    const QString leaving = s.isEmpty() ? QString() : s.last();
    if (visible)
        callScreen(leaving, "viewWillDisappear");
    s.append(key);
    emit pushed(tab, key);
    if (visible) {
        callScreen(leaving, "viewDidDisappear");
        callScreen(key, "viewWillAppear");
    }
}

void Tools::goBack(int tab) {
    if (tab < 0 || tab >= stacks_.size() || stacks_[tab].size() < 2)
        return;
    QStringList& s = stacks_[tab];
    const QString leaving = s.last();
    const bool visible = tab == currentTab_;
    if (visible)
        callScreen(leaving, "viewWillDisappear");
    s.removeLast();
    emit popped(tab);
    if (visible) {
        callScreen(leaving, "viewDidDisappear");
        callScreen(s.last(), "viewWillAppear");
    }
}

// Each route pushes onto the navigation stack that holds the named screen:
// the settings screens live on their tool's tab, and the side screens of the
// chromatic tuner on the stack of its settings screen.
void Tools::showMetronomeSettings() {
    push(MetronomeTab, "metronomeSettings");
}
void Tools::showTCSettings() {
    push(ChromaticTab, "tunerChromaticSettings");
}
void Tools::showTBSettings() {
    push(BrainTab, "tunerBrainSettings");
}
void Tools::showCLSettings() {
    push(ChordsTab, "chordsLibrarySettings");
}
void Tools::showTCTaper() {
    push(ChromaticTab, "tunerChromaticTaper");
}
void Tools::showOrchestra() {
    push(ChromaticTab, "orchestraControl");
}
void Tools::showMicrophoneCalibrating() {
    push(ChromaticTab, "microphoneCalibrating");
}
void Tools::showTCTunings() {
    push(ChromaticTab, "commonSettings");
}
void Tools::showTBTunings() {
    push(BrainTab, "commonSettings");
}
void Tools::showCLTunings() {
    push(ChordsTab, "commonSettings");
}

void Tools::showHowToEnter(const QString& address) {
    log("How to enter: " + address.toStdString());
}

}  // namespace zt
