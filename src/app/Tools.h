#pragma once
// The tool shell: the four tools behind a tab bar, each tab a navigation
// stack of screens, and the cover that keeps touches out while the sound
// bank loads. It owns every screen; the QML view mirrors its stacks.

#include <QtQml/qqmlregistration.h>

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QVector>

namespace zt {

class ToolsDelegate;
class AnalyticsLog;

class Tools : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the application")
    Q_PROPERTY(bool tabBarReady READ tabBarReady NOTIFY tabBarReadyChanged)
    Q_PROPERTY(bool loading READ loading NOTIFY loadingChanged)
    Q_PROPERTY(int currentTab READ currentTab NOTIFY currentTabChanged)
    Q_PROPERTY(QStringList tabTitles READ tabTitles CONSTANT)
    Q_PROPERTY(QStringList toolItems READ toolItems CONSTANT)

public:
    // Screen keys, in the order the shell creates them.
    static const QStringList& screenKeys();

    explicit Tools(QObject* parent = nullptr);
    ~Tools() override;

    void setDelegate(ToolsDelegate* delegate) { delegate_ = delegate; }
    ToolsDelegate* delegate() const { return delegate_; }
    // The usage-event log the application started (may be null in tests).
    void setAnalytics(AnalyticsLog* analytics) { analytics_ = analytics; }
    AnalyticsLog* analytics() const { return analytics_; }

    // The screen stored under key (see screenKeys()); nullptr if unknown.
    Q_INVOKABLE QObject* screen(const QString& key) const;
    // Replaces a screen, taking ownership (used as each tool's screen lands).
    void setScreen(const QString& key, QObject* screen);

    bool tabBarReady() const { return tabBarReady_; }
    bool loading() const { return loading_; }
    int currentTab() const { return currentTab_; }
    int selectedIndex() const { return selectedIndex_; }
    QStringList tabTitles() const;
    QStringList toolItems() const;

    // The keys on tab's navigation stack, root first.
    Q_INVOKABLE QStringList stack(int tab) const;
    // Key of the screen on top of the visible tab's stack.
    QString visibleScreen() const;

    // Calls a no-argument invokable of a screen, when the screen has it
    // (screens of tools not built yet have none).
    void callScreen(const QString& key, const char* method);

    // Shell actions, run by the mediator.
    void createTabBar(int index);
    void buffersLoaded();
    void showMetronome() {}
    void showChordsLibrary() {}
    void showTunerBrain();
    void showMetronomeSettings();
    void showTCSettings();
    void showTBSettings();
    void showCLSettings();
    void showTCTaper();
    void showOrchestra();
    void showMicrophoneCalibrating();
    void showTCTunings();
    void showTBTunings();
    void showCLTunings();
    void showHowToEnter(const QString& address);

    // Touches from the view.
    Q_INVOKABLE void selectTab(int index);
    Q_INVOKABLE void goBack(int tab);
    Q_INVOKABLE void openTunings(int tab);
    // Shows a tab without counting it as the user's choice (screenshots).
    void previewTab(int index) { setCurrentTab(index); }

signals:
    void tabBarReadyChanged();
    void loadingChanged();
    void currentTabChanged();
    void pushed(int tab, const QString& key);
    void popped(int tab);

private:
    void push(int tab, const QString& key);
    void setCurrentTab(int index);
    void setMetronomeTabBarVisible(bool visible);

    ToolsDelegate* delegate_ = nullptr;
    AnalyticsLog* analytics_ = nullptr;
    QHash<QString, QPointer<QObject>> screens_;
    QVector<QStringList> stacks_;
    bool tabBarReady_ = false;
    bool loading_ = true;
    int currentTab_ = 0;
    int selectedIndex_ = 0;
};

}  // namespace zt
