#pragma once
// The table of screens and the list of tabs. The shell builds its screens
// and stacks from them, start-up registers the mediators from them, the shell's
// mediator routes the notifications that open screens from them, and the QML
// page loads each screen's view from them; nothing else makes, opens or routes
// to a screen. A new screen is its own files (screen, delegate, mediator and
// view in its tool's ui/ folder) plus one row here.

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

// A notification that pushes a screen. tab is the stack it goes onto when
// the screen's row is of kAnyTab; a screen of one tab always goes onto that
// tab's stack, so its routes leave tab as kAnyTab.
struct ScreenRoute {
    const char* notification;
    int tab = kAnyTab;
};

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
    // The notifications that open it; none for a tab's root (or a screen
    // nothing opens yet).
    std::vector<ScreenRoute> routes = {};
};

// In the order the mediators register, which decides who hears a
// notification first. Screens are made in the same order.
const std::vector<ScreenRow>& screenTable();
// The row of key; nullptr when there is none.
const ScreenRow* screenRow(std::string_view key);

// Where a notification opens a screen: the row and the route naming it.
struct RouteTarget {
    const ScreenRow* row = nullptr;  // nullptr when no route names it
    const ScreenRoute* route = nullptr;
};
RouteTarget routeOf(std::string_view notification);

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
