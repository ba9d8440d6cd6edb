// The application's own command line: values that make no sense end the
// run with exit code 2 and a message naming the option; good ones come
// through as asked.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "app/AppOptions.h"

namespace zt::test {
namespace {

AppOptionsResult readWith(const QStringList& arguments, bool toolkitOptionsLeft = false) {
    return readAppOptions(QStringList{"zebtools"} + arguments, toolkitOptionsLeft);
}

TEST(AppOptions, NonsenseEndsTheRunWithAMessage) {
    QTemporaryDir dir;
    QFile file(dir.filePath("a-file"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const QString underAFile = dir.filePath("a-file/shots");
    const std::vector<std::pair<QStringList, const char*>> rows = {
        {{"--quit-after", "nan"}, "--quit-after"},
        {{"--quit-after", "inf"}, "--quit-after"},
        {{"--quit-after", "-inf"}, "--quit-after"},
        {{"--quit-after", "0"}, "--quit-after"},
        {{"--quit-after", "-1"}, "--quit-after"},
        {{"--quit-after", "1e300"}, "--quit-after"},
        {{"--quit-after", "soon"}, "--quit-after"},
        {{"--size", "20000x20000"}, "--size"},
        {{"--size", "8193x600"}, "--size"},
        {{"--size", "100x100"}, "--size"},
        {{"--size", "0x0"}, "--size"},
        {{"--size", "320x"}, "--size"},
        {{"--size", "-320x480"}, "--size"},
        {{"--select-tab", "4"}, "--select-tab"},
        {{"--probe", "0"}, "--probe"},
        {{"--screenshot", underAFile}, "a-file/shots"},
        {{"--screenshot", ""}, "folder"},
        {{"--quit-after", "1", "--grab", underAFile + "/x.png"}, "x.png"},
        {{"--no-such-option"}, "no-such-option"},
    };
    for (const auto& [arguments, named] : rows) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const AppOptionsResult result = readWith(arguments);
        ASSERT_TRUE(result.exitCode.has_value());
        EXPECT_EQ(*result.exitCode, 2);
        EXPECT_TRUE(result.text.contains(QLatin1String(named))) << result.text.toStdString();
    }
}

TEST(AppOptions, SensibleValuesComeThrough) {
    QTemporaryDir dir;
    const QString shots = dir.filePath("new/shots");
    const AppOptions o = readWith({"--size", "8192x360", "--quit-after", "0.25", "--select-tab",
                                   "3", "--probe", "100", "--screenshot", shots, "--verbose"})
                             .options;
    EXPECT_EQ(o.size, QSize(8192, 360));
    EXPECT_EQ(o.quitAfterMs, 250);
    EXPECT_EQ(o.selectTab, 3);
    EXPECT_EQ(o.probeMs, 100);
    EXPECT_EQ(o.screenshotDir, shots);
    EXPECT_TRUE(QDir(shots).exists()) << "the folder is made";
    EXPECT_TRUE(o.verbose);
    EXPECT_FALSE(readWith({}).exitCode.has_value());
}

TEST(AppOptions, HelpAndVersionNeedNoApplication) {
    for (const char* option : {"--help", "-h", "--version"}) {
        const AppOptionsResult result = readWith({option, "--size", "junk"});
        EXPECT_EQ(result.exitCode, 0) << option;
        EXPECT_FALSE(result.text.isEmpty()) << option;
    }
    EXPECT_TRUE(readWith({"--help"}).text.contains("--quit-after"));
    // Before the toolkit has taken out its own options they are let through.
    EXPECT_FALSE(readWith({"-platform", "offscreen"}, true).exitCode.has_value());
    EXPECT_EQ(readWith({"-platform", "offscreen", "--size", "1x1"}, true).exitCode, 2);
}

}  // namespace
}  // namespace zt::test
