#pragma once
// The application's own command line, read and checked before any window
// exists: --help and --version need no display, and a value that makes no
// sense stops the run at once with a message instead of a hang, a huge
// window or pictures that are never written.

#include <QSize>
#include <QString>
#include <QStringList>
#include <optional>

namespace zt {

struct AppOptions {
    QString screenshotDir;  // empty: a normal run
    bool quitWhenLoaded = false;
    std::optional<int> selectTab;
    QSize size;  // invalid: the window's own or remembered size
    bool verbose = false;
    std::optional<int> probeMs;
    std::optional<int> quitAfterMs;
    QString grab;
};

// What to do with the arguments: run with `options`, or end at once with
// `exitCode` after printing `text` (standard output for 0, else standard
// error). Exit code 2 means arguments that make no sense.
struct AppOptionsResult {
    AppOptions options;
    std::optional<int> exitCode;
    QString text;
};

// Window sides accepted by --size, in pixels: from the window's minimum to
// a size any screen and the software renderer can still hold.
inline constexpr QSize kMinWindowSize{240, 360};
inline constexpr int kMaxWindowSide = 8192;
// --quit-after is counted in milliseconds by a timer that holds an int.
inline constexpr double kMaxQuitAfterSeconds = 2'000'000.0;

// `arguments` starts with the program's name. Until the toolkit has taken
// out its own options (-platform, -style, ...), `toolkitOptionsLeft` lets
// options unknown here pass; every other fault already ends the run.
AppOptionsResult readAppOptions(const QStringList& arguments, bool toolkitOptionsLeft = false);
// Prints the text of a run that ends here and gives its exit code.
int endRun(const AppOptionsResult& result);

}  // namespace zt
