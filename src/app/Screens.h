#pragma once
// The table of screens and the list of tabs. The shell builds its screens
// and stacks from them, start-up registers the mediators from them, and the
// QML page loads each screen's view from them; nothing else makes a screen
// or its mediator. A new screen is its own files (screen, delegate, mediator
// and view in its tool's ui/ folder) plus one row here.

#include <memory>
#include <string_view>
#include <vector>

namespace zt {

class Mediator;
class Screen;
class Tools;
struct ScreenEngines;

// Tab indices, in tab-bar order.
enum ToolTabIndex { MetronomeTab = 0, ChromaticTab = 1, BrainTab = 2, ChordsTab = 3 };
// The tab of a screen shown on the stack of whichever tab asks for it.
inline constexpr int kAnyTab = -1;

// Builds a screen. shell already holds the screens of the rows above.
using MakeScreen = Screen* (*)(const Tools& shell, const ScreenEngines& engines);
// Builds the mediator of a screen made by its row.
using MakeMediator = std::shared_ptr<Mediator> (*)(Screen* screen);

struct ScreenRow {
    const char* key;
    const char* title;
    // The tab whose navigation stack shows the screen, or kAnyTab.
    int tab;
    MakeScreen makeScreen;
    // nullptr for a screen without a mediator.
    MakeMediator makeMediator;
    // Its QML view, inside the module ("metronome/ui/MetronomeView.qml");
    // the view takes the screen as `required property <ScreenClass> screen`.
    const char* view;
};

// In the order the mediators register, which decides who hears a
// notification first. Screens are made in the same order.
const std::vector<ScreenRow>& screenTable();
// The row of key; nullptr when there is none.
const ScreenRow* screenRow(std::string_view key);

struct ToolTab {
    const char* item;   // "METRONOME"
    const char* title;  // shown on the tab bar
    const char* glyph;  // the tab bar's symbol
    const char* root;   // the screen at the bottom of its stack
    // The usage event recorded when the user picks the tab, and what is
    // logged when it cannot be recorded.
    const char* event;
    const char* eventFailure;
};

const std::vector<ToolTab>& toolTabs();

}  // namespace zt
