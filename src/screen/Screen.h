#pragma once
// What the shell knows of every screen: its title, and the moments it is
// shown and hidden. A screen class holds its tool's behaviour and state as
// properties and invokables; its QML view only draws it. The shell calls
// these through the base class, so a screen overrides only the moments it
// cares about.
//
// Subclasses name the base in full, `class X : public zt::Screen`, so that
// the QML tools see the inheritance.

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>

namespace zt {

class Screen : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Screens are made by the shell")
    Q_PROPERTY(QString title READ title NOTIFY titleChanged)
    // What the navigation bar reads while the screen is on top.
    Q_PROPERTY(QString navigationTitle READ navigationTitle NOTIFY titleChanged)
    // Whether the navigation bar shows a "Settings" button (a gear) while the
    // screen is its tab's root; the button calls openSettings().
    Q_PROPERTY(bool offersSettings READ offersSettings CONSTANT)

public:
    explicit Screen(QObject* parent = nullptr) : QObject(parent) {}

    QString title() const { return title_; }
    // The shell gives each screen the title of its row in the screen table.
    void setTitle(const QString& title);
    // The title, unless a screen reads otherwise in its navigation bar.
    virtual QString navigationTitle() const { return title_; }

    // The screen is about to be shown: on top of its navigation stack, on
    // the tab being shown.
    virtual void viewWillAppear() {}
    // The screen is about to be covered, popped or its tab left; then, once
    // it is gone, viewDidDisappear.
    virtual void viewWillDisappear() {}
    virtual void viewDidDisappear() {}
    // Whether the tab bar shows along with this screen (told to the root
    // screen of each tab when the tab changes).
    virtual void setTabBarIsVisible(bool) {}
    virtual bool offersSettings() const { return false; }
    Q_INVOKABLE virtual void openSettings() {}
    // A key (a Qt::Key) pressed while the screen is on show; true when the
    // screen used it. Only the screen on show hears keys.
    virtual bool keyPressed(int key) {
        (void)key;
        return false;
    }

    // Whether the screen's mediator is registered (set by the mediator). The
    // shell holds back the appear call of a screen that has a mediator until
    // it is there, so that the screen can already ask for what it shows.
    bool hasMediator() const { return hasMediator_; }
    void setHasMediator(bool has);

signals:
    void titleChanged();
    void hasMediatorChanged();
    // The screen asks to be taken off the top of its navigation stack (its
    // own OK or Cancel, as the back button would).
    void backRequested();

private:
    QString title_;
    bool hasMediator_ = false;
};

}  // namespace zt
