#pragma once
// The tool shell: the four tools behind a tab bar, each tab a navigation
// stack of screens, and the cover that keeps touches out while the sound
// bank loads. It builds and owns every screen of the screen table, tells
// them when they appear and disappear, and the QML view mirrors its stacks.

#include <QtQml/qqmlregistration.h>

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QUrl>
#include <QVariantList>
#include <QVector>

#include "app/Screens.h"
#include "screen/Screen.h"

namespace zt {

class ToolsDelegate;
class AnalyticsLog;
struct ScreenEngines;

class Tools : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the application")
    Q_PROPERTY(bool tabBarReady READ tabBarReady NOTIFY tabBarReadyChanged)
    Q_PROPERTY(bool loading READ loading NOTIFY loadingChanged)
    Q_PROPERTY(int currentTab READ currentTab NOTIFY currentTabChanged)
    // One map per tab, in tab-bar order: its "title" and "glyph".
    Q_PROPERTY(QVariantList tabs READ tabs CONSTANT)
    // A short message over the tools that goes away by itself ("" for none):
    // what could not be saved and why. It never takes touches from the tools.
    Q_PROPERTY(QString notice READ notice NOTIFY noticeChanged)

public:
    // Makes every screen of the table, in table order, with these engines
    // (which must outlive the shell).
    explicit Tools(const ScreenEngines& engines, QObject* parent = nullptr);
    ~Tools() override;

    void setDelegate(ToolsDelegate* delegate) { delegate_ = delegate; }
    ToolsDelegate* delegate() const { return delegate_; }
    // The usage-event log the application started (may be null in tests).
    void setAnalytics(AnalyticsLog* analytics) { analytics_ = analytics; }
    AnalyticsLog* analytics() const { return analytics_; }

    // The screen of a row of the table; nullptr for an unknown key.
    Q_INVOKABLE zt::Screen* screen(const QString& key) const;
    template <class T>
    T* screenAs(const QString& key) const {
        return qobject_cast<T*>(screen(key));
    }
    // What the QML page of a screen needs from its row.
    Q_INVOKABLE QUrl viewUrl(const QString& key) const;

    bool tabBarReady() const { return tabBarReady_; }
    bool loading() const { return loading_; }
    int currentTab() const { return currentTab_; }
    int selectedIndex() const { return selectedIndex_; }
    QVariantList tabs() const;

    // The keys on tab's navigation stack, root first.
    Q_INVOKABLE QStringList stack(int tab) const;
    // Key of the screen on top of the visible tab's stack.
    QString visibleScreen() const;

    // Shell actions, run by the mediator.
    void createTabBar(int index);
    void buffersLoaded();
    void showTunerBrain();
    // Pushes a screen onto its tab's stack; a screen of any tab goes onto
    // the stack of `tab`.
    void show(const QString& key, int tab = kAnyTab);
    void showHowToEnter(const QString& address);

    // Shows a notice for kNoticeMilliseconds (a newer one takes its place).
    void showNotice(const QString& text);
    QString notice() const { return notice_; }
    static constexpr int kNoticeMilliseconds = 6000;

    // Touches from the view.
    Q_INVOKABLE void selectTab(int index);
    Q_INVOKABLE void goBack(int tab);
    Q_INVOKABLE void openTunings(int tab);
    Q_INVOKABLE void dismissNotice();
    // A key from the window, for the screen on show only; true when it was
    // used. Keys wait, as touches do, until the sounds have loaded.
    Q_INVOKABLE bool keyPressed(int key);
    // Shows a tab without counting it as the user's choice (screenshots).
    void previewTab(int index) { setCurrentTab(index); }

    // The application is closing: the screen on show disappears as if the
    // user had left it, so that what was set there is saved. Once only.
    void close();

signals:
    void tabBarReadyChanged();
    void loadingChanged();
    void currentTabChanged();
    void noticeChanged();
    void pushed(int tab, const QString& key);
    void popped(int tab);

private:
    void setCurrentTab(int index);
    void tellTabBarVisible(int index);
    // The appear and disappear calls around a change of the screen on show.
    // A screen hears that it disappears only if it was told it appeared.
    void willLeave(const QString& key);
    void didLeave(const QString& leaving, const QString& showing);
    // Tells the screen it appears, once its mediator (if its row has one)
    // is registered.
    void appear(const QString& key);

    ToolsDelegate* delegate_ = nullptr;
    AnalyticsLog* analytics_ = nullptr;
    QHash<QString, Screen*> screens_;
    QVector<QStringList> stacks_;
    bool tabBarReady_ = false;
    bool loading_ = true;
    bool closed_ = false;
    int currentTab_ = 0;
    int selectedIndex_ = 0;
    // The screen last told that it appears (and not yet that it is gone),
    // and the one on show that still waits for its mediator.
    QString appeared_;
    QString waitingToAppear_;
    QString notice_;
    QTimer noticeTimer_;
};

}  // namespace zt
