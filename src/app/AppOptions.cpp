#include "app/AppOptions.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryFile>
#include <cmath>
#include <cstdio>

namespace zt {

namespace {

constexpr int kTabCount = 4;
constexpr int kMaxProbeMs = 60'000;

// Whether a file can be made in `dir`, making the folder when asked. Asking
// the file system itself also catches read-only mounts and a file standing
// where a folder should be.
bool canWriteInto(const QString& dir, bool create) {
    if (create && !QDir().mkpath(dir))
        return false;
    if (!QFileInfo(dir).isDir())
        return false;
    QTemporaryFile probe(QDir(dir).filePath(QStringLiteral(".zebtools-XXXXXX")));
    return probe.open();
}

std::optional<QSize> windowSize(const QString& text) {
    static const QRegularExpression form(QStringLiteral("^(\\d{1,6})x(\\d{1,6})$"));
    const auto match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    if (size.width() < kMinWindowSize.width() || size.height() < kMinWindowSize.height() ||
        size.width() > kMaxWindowSide || size.height() > kMaxWindowSide)
        return std::nullopt;
    return size;
}

std::optional<int> whole(const QString& text, int lowest, int highest) {
    bool ok = false;
    const int value = text.toInt(&ok);
    if (!ok || value < lowest || value > highest)
        return std::nullopt;
    return value;
}

}  // namespace

AppOptionsResult readAppOptions(const QStringList& arguments, bool toolkitOptionsLeft) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "ZebTools: metronome, chromatic tuner, by-ear tuner and chords.");
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption screenshot("screenshot",
                                        "Render each tool to a PNG in <dir> and quit.", "dir");
    const QCommandLineOption quitWhenLoaded("quit-when-loaded",
                                            "Quit as soon as the sounds have loaded (for tests).");
    const QCommandLineOption selectTab(
        "select-tab", "Once loaded, choose tab <index> (0 to 3) as a touch would (for tests).",
        "index");
    const QCommandLineOption size(
        "size",
        QStringLiteral("Open the window at <width>x<height>, %1x%2 to %3x%3 pixels.")
            .arg(kMinWindowSize.width())
            .arg(kMinWindowSize.height())
            .arg(kMaxWindowSide),
        "size");
    const QCommandLineOption verbose("verbose", "Print the debug log to standard error.");
    const QCommandLineOption probe(
        "probe", "Once loaded, print what is on show as a JSON line every <ms> (for tests).", "ms");
    const QCommandLineOption quitAfter(
        "quit-after", "Quit <seconds> after loading, saving a picture first with --grab.",
        "seconds");
    const QCommandLineOption grab("grab", "The PNG written before --quit-after quits.", "file");
    parser.addOptions(
        {screenshot, quitWhenLoaded, selectTab, size, verbose, probe, quitAfter, grab});

    AppOptionsResult result;
    const auto refuse = [&result](const QString& message) {
        result.exitCode = 2;
        result.text = QStringLiteral("zebtools: %1\n").arg(message);
        return result;
    };
    const bool parsed = parser.parse(arguments);
    if (parser.isSet(help)) {
        result.exitCode = 0;
        // Without an application object Qt cannot name the program itself.
        result.text = parser.helpText().replace(QStringLiteral("<executable_name>"),
                                                QFileInfo(arguments.value(0)).fileName());
        return result;
    }
    if (parser.isSet(version)) {
        result.exitCode = 0;
        result.text = QStringLiteral("%1 %2\n").arg(QCoreApplication::applicationName(),
                                                    QCoreApplication::applicationVersion());
        return result;
    }
    if (!parsed && !(toolkitOptionsLeft && !parser.unknownOptionNames().isEmpty()))
        return refuse(parser.errorText());

    AppOptions& o = result.options;
    o.quitWhenLoaded = parser.isSet(quitWhenLoaded);
    o.verbose = parser.isSet(verbose);
    if (parser.isSet(screenshot)) {
        o.screenshotDir = parser.value(screenshot);
        if (o.screenshotDir.isEmpty() || !canWriteInto(o.screenshotDir, true))
            return refuse(QStringLiteral("cannot write pictures into the folder \"%1\"")
                              .arg(o.screenshotDir));
    }
    if (parser.isSet(selectTab)) {
        o.selectTab = whole(parser.value(selectTab), 0, kTabCount - 1);
        if (!o.selectTab)
            return refuse(QStringLiteral("--select-tab takes a tab from 0 to %1, not \"%2\"")
                              .arg(kTabCount - 1)
                              .arg(parser.value(selectTab)));
    }
    if (parser.isSet(size)) {
        const auto wanted = windowSize(parser.value(size));
        if (!wanted)
            return refuse(QStringLiteral("--size takes WIDTHxHEIGHT from %1x%2 to %3x%3 pixels, "
                                         "not \"%4\"")
                              .arg(kMinWindowSize.width())
                              .arg(kMinWindowSize.height())
                              .arg(kMaxWindowSide)
                              .arg(parser.value(size)));
        o.size = *wanted;
    }
    if (parser.isSet(probe)) {
        o.probeMs = whole(parser.value(probe), 1, kMaxProbeMs);
        if (!o.probeMs)
            return refuse(QStringLiteral("--probe takes a period from 1 to %1 ms, not \"%2\"")
                              .arg(kMaxProbeMs)
                              .arg(parser.value(probe)));
    }
    if (parser.isSet(quitAfter)) {
        bool ok = false;
        const double seconds = parser.value(quitAfter).toDouble(&ok);
        if (!ok || !std::isfinite(seconds) || seconds <= 0.0 || seconds > kMaxQuitAfterSeconds)
            return refuse(QStringLiteral("--quit-after takes a number of seconds above 0 and up "
                                         "to %1, not \"%2\"")
                              .arg(kMaxQuitAfterSeconds, 0, 'f', 0)
                              .arg(parser.value(quitAfter)));
        o.quitAfterMs = std::max(1, static_cast<int>(std::lround(seconds * 1000.0)));
    }
    if (parser.isSet(grab)) {
        o.grab = parser.value(grab);
        const QString folder = QFileInfo(o.grab).absolutePath();
        if (o.grab.isEmpty() || !canWriteInto(folder, false))
            return refuse(QStringLiteral("cannot write the picture \"%1\"").arg(o.grab));
    }
    return result;
}

int endRun(const AppOptionsResult& result) {
    const QByteArray text = result.text.toLocal8Bit();
    std::fputs(text.constData(), result.exitCode == 0 ? stdout : stderr);
    return result.exitCode.value_or(0);
}

}  // namespace zt
