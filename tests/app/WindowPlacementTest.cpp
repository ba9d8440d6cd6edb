// Where the window reopens: the place saved at quit, fitted to the screens
// there are now.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QTemporaryDir>
#include <QWindow>
#include <QtTest/QTest>

#include "app/WindowPlacement.h"

using zt::WindowPlacement;

namespace {

// Lets the window system report what the window was just told.
void settle() {
    QTest::qWait(20);
}

class WindowPlacementTest : public ::testing::Test {
protected:
    QString path() const { return dir_.filePath("window.ini"); }
    // A window as the application makes it, followed by a placement.
    std::unique_ptr<QWindow> makeWindow() {
        auto window = std::make_unique<QWindow>();
        window->resize(320, 480);
        window->setMinimumSize({240, 360});
        return window;
    }

    QTemporaryDir dir_;
};

}  // namespace

TEST(WindowPlacementFit, TheSavedPlaceIsFittedToTheScreensThereAreNow) {
    const QRect left(0, 0, 1920, 1050);  // the primary screen, a panel at its bottom
    const QRect right(1920, 0, 1280, 1024);
    const QRect centredOnLeft(760, 225, 400, 600);
    struct Case {
        const char* what;
        QRect saved;
        QList<QRect> screens;
        QMargins frame;
        QRect expected;
    };
    const Case cases[] = {
        {"inside a screen", {100, 80, 400, 600}, {left, right}, {}, {100, 80, 400, 600}},
        {"on the second screen", {2000, 100, 400, 600}, {left, right}, {}, {2000, 100, 400, 600}},
        {"across two: onto the one it overlaps most",
         {1800, 100, 400, 600},
         {left, right},
         {},
         {1920, 100, 400, 600}},
        {"its screen unplugged", {2000, 100, 400, 600}, {left}, {}, centredOnLeft},
        {"off every screen", {-5000, -5000, 400, 600}, {left, right}, {}, centredOnLeft},
        {"hanging off the corner", {1700, 900, 400, 600}, {left}, {}, {1520, 450, 400, 600}},
        {"larger than its screen", {100, 80, 3000, 2000}, {left, right}, {}, left},
        {"below the minimum", {100, 80, 100, 100}, {left}, {}, {100, 80, 240, 360}},
        {"title bar kept on screen", {0, 0, 400, 600}, {left}, {1, 30, 1, 1}, {1, 30, 400, 600}},
        {"nothing saved", {}, {left}, {}, {}},
        {"no screen", {100, 80, 400, 600}, {}, {}, {}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(WindowPlacement::fit(c.saved, c.screens, {240, 360}, c.frame), c.expected)
            << c.what;
}

// What the window system reports, in either order it may report it, leaves
// the user's own size to be saved.
TEST_F(WindowPlacementTest, SavesTheUsersSizeNotTheMaximizedOne) {
    const QRect user(50, 40, 300, 450);
    const QRect full(0, 0, 800, 600);
    const Qt::WindowStates normal = Qt::WindowNoState;
    const Qt::WindowStates maximized = Qt::WindowMaximized;
    const Qt::WindowStates minimized = Qt::WindowMinimized | Qt::WindowMaximized;
    struct Report {
        QRect client;
        Qt::WindowStates states;
    };
    struct Case {
        const char* what;
        std::vector<Report> reports;  // after the user's size has settled
        bool maximized;
    };
    const Case cases[] = {
        {"left as it is", {}, false},
        {"maximized, the size reported first", {{full, normal}, {full, maximized}}, true},
        {"maximized, the state reported first", {{user, maximized}, {full, maximized}}, true},
        {"maximized, then minimized", {{full, maximized}, {full, minimized}}, true},
        {"maximized and back", {{full, maximized}, {full, normal}, {user, normal}}, false},
    };
    for (const Case& c : cases) {
        QWindow window;
        WindowPlacement placement(&window, path());
        placement.follow(user, user, normal);
        QTest::qWait(300);
        for (const Report& report : c.reports)
            placement.follow(report.client, report.client, report.states);
        placement.save();
        const QSettings saved(path(), QSettings::IniFormat);
        EXPECT_EQ(saved.value("Window/geometry").toRect(), user) << c.what;
        EXPECT_EQ(saved.value("Window/maximized").toBool(), c.maximized) << c.what;
    }
}

TEST_F(WindowPlacementTest, ReopensWhereItWasLeftAndMaximizedIfItWas) {
    const QRect left(50, 40, 300, 450);
    {
        auto window = makeWindow();
        WindowPlacement placement(window.get(), path());
        placement.restoreAndShow();
        ASSERT_TRUE(window->isVisible());
        window->setGeometry(left);
        settle();
        placement.save();
    }
    {
        auto window = makeWindow();
        WindowPlacement placement(window.get(), path());
        placement.restoreAndShow();
        settle();
        EXPECT_EQ(window->geometry(), left);
        EXPECT_FALSE(window->windowStates() & Qt::WindowMaximized);
        // Reported, as X11 window managers do, as a new size and then a
        // new state.
        window->showMaximized();
        settle();
        ASSERT_NE(window->geometry(), left);
        placement.save();
    }
    EXPECT_EQ(QSettings(path(), QSettings::IniFormat).value("Window/geometry").toRect(), left)
        << "a maximized window keeps its normal size for later";
    {
        auto window = makeWindow();
        WindowPlacement placement(window.get(), path());
        placement.restoreAndShow();
        settle();
        EXPECT_TRUE(window->windowStates() & Qt::WindowMaximized);
        placement.save();
    }
    const QSettings saved(path(), QSettings::IniFormat);
    EXPECT_EQ(saved.value("Window/geometry").toRect(), left);
    EXPECT_EQ(saved.value("Window/maximized").toString(), "true");
}

TEST_F(WindowPlacementTest, WhatCannotBeUsedLeavesTheWindowOnScreen) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    struct Case {
        const char* what;
        QByteArray file;
        QSize size;
    };
    const Case cases[] = {
        {"off every screen", "[Window]\ngeometry=@Rect(9000 -9000 300 450)\n", {300, 450}},
        {"larger than the screen, in a frame 2 pixels wide",
         "[Window]\ngeometry=@Rect(0 0 9000 9000)\nframe=@Rect(-2 -2 9004 9004)\n",
         screen.size() - QSize(4, 4)},
        {"not a rectangle", "[Window]\ngeometry=junk\nmaximized=junk\n", {320, 480}},
        {"not an INI file", QByteArray("\x00\xff[[", 4), {320, 480}},
    };
    for (const Case& c : cases) {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(c.file);
        file.close();
        auto window = makeWindow();
        WindowPlacement placement(window.get(), path());
        placement.restoreAndShow();
        settle();
        EXPECT_TRUE(window->isVisible()) << c.what;
        EXPECT_EQ(window->size(), c.size) << c.what;
        EXPECT_TRUE(screen.contains(window->frameGeometry())) << c.what;
    }
}
