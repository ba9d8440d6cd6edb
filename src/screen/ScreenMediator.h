#pragma once
// The base of a screen's mediator: on registration it becomes the screen's
// delegate (the small interface through which the screen asks the rest of
// the program for things) and on removal it lets go again. The screen class
// provides setDelegate(Delegate*) and delegate().
//
//   class MetronomeMediator : public ScreenMediator<Metronome, MetronomeDelegate> { ... };
//
// A subclass does its own start-up work in registered(), when it already is
// the delegate.

#include <QPointer>

#include "framework/Mediator.h"

namespace zt {

template <class ScreenT, class DelegateT>
class ScreenMediator : public Mediator, public DelegateT {
public:
    using ScreenType = ScreenT;

    ScreenMediator(const char* name, ScreenT* screen) : Mediator(name, screen), screen_(screen) {}

    void onRegister() final {
        if (screen_)
            screen_->setDelegate(static_cast<DelegateT*>(this));
        registered();
        // Last: the shell may now tell the screen it appears.
        if (screen_)
            screen_->setHasMediator(true);
    }

    void onRemove() final {
        if (screen_ && screen_->delegate() == static_cast<DelegateT*>(this)) {
            screen_->setDelegate(nullptr);
            screen_->setHasMediator(false);
        }
    }

protected:
    // Runs once on registration, after the mediator became the delegate.
    virtual void registered() {}

    // Null once the screen is gone.
    ScreenT* screen() const { return screen_.data(); }

private:
    QPointer<ScreenT> screen_;
};

}  // namespace zt
