#pragma once
// What the shell asks of its mediator.

namespace zt {

class ToolsDelegate {
public:
    virtual ~ToolsDelegate() = default;
    virtual void registerRateAlert() = 0;
    virtual void stopMetronome() = 0;
    virtual void showMetronome() = 0;
    virtual void showChordsLibrary() = 0;
    virtual void showTuner() = 0;
    // A tab was chosen by the user: record the analytics event.
    virtual void tabSelected(int index) = 0;
    // The tunings list was asked for from the root page of tab.
    virtual void showTunings(int tab) = 0;
};

}  // namespace zt
