// Where the window reopens: the place saved at quit, fitted to the screens
// there are now.
#include <gtest/gtest.h>

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QWindow>
#include <QtTest/QTest>

#include "app/WindowPlacement.h"

using zt::WindowPlacement;

TEST(WindowPlacementTest, TheSavedPlaceIsFittedToTheScreensThereAreNow) {
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
    };
    for (const Case& c : cases)
        EXPECT_EQ(WindowPlacement::fit(c.saved, c.screens, {240, 360}, c.frame), c.expected)
            << c.what;
}

// Whichever order the window system reports a maximize in, the user's own
// size is the one kept for later.
TEST(WindowPlacementTest, SavesTheUsersSizeNotTheMaximizedOne) {
    const QRect user(50, 40, 300, 450);
    const QRect full(0, 0, 800, 600);
    const Qt::WindowStates normal = Qt::WindowNoState, maximized = Qt::WindowMaximized;
    struct Case {
        const char* what;
        std::vector<std::pair<QRect, Qt::WindowStates>> reports;  // once `user` has settled
        bool maximized;
    };
    const Case cases[] = {
        {"size reported first", {{full, normal}, {full, maximized}}, true},
        {"state reported first", {{user, maximized}, {full, maximized}}, true},
        {"then minimized", {{full, maximized}, {full, maximized | Qt::WindowMinimized}}, true},
        {"maximized and back", {{full, maximized}, {full, normal}, {user, normal}}, false},
    };
    for (const Case& c : cases) {
        QTemporaryDir dir;
        QWindow window;
        WindowPlacement placement(&window, dir.filePath("window.ini"));
        placement.follow(user, user, normal);
        QTest::qWait(300);
        for (const auto& [client, states] : c.reports)
            placement.follow(client, client, states);
        placement.save();
        const QSettings saved(dir.filePath("window.ini"), QSettings::IniFormat);
        EXPECT_EQ(saved.value("Window/geometry").toRect(), user) << c.what;
        EXPECT_EQ(saved.value("Window/maximized").toBool(), c.maximized) << c.what;
    }
}

// Sessions one after another on the same file, each opening a window as
// the application does.
TEST(WindowPlacementTest, TheWindowReopensAsItWasLeft) {
    QTemporaryDir dir;
    const QString path = dir.filePath("window.ini");
    const QRect left(50, 40, 300, 450);
    const QRect designed(0, 0, 320, 480);  // at the platform's own place
    struct Session {
        QByteArray file;  // written before the session when not empty
        QRect opensAt;
        bool opensMaximized;
        QRect leftAt;  // invalid: left maximized
        QSize asked;   // a size from the command line
    };
    const QRect moved(60, 50, 310, 460);
    const Session sessions[] = {
        {"", designed, false, left, {}},
        {"", left, false, {}, {}},
        {"", left, true, {}, {}},
        // A size asked for opens normal at the remembered place; where the
        // window is then left is remembered all the same.
        {"", QRect(left.topLeft(), QSize(360, 500)), false, moved, QSize(360, 500)},
        {"", moved, false, left, {}},
        {"[Window]\ngeometry=junk\nmaximized=junk\n", designed, false, left, {}},
    };
    for (const Session& s : sessions) {
        if (!s.file.isEmpty()) {
            QFile file(path);
            ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(s.file) > 0);
        }
        QWindow window;
        window.resize(320, 480);
        WindowPlacement placement(&window, path);
        placement.restoreAndShow(s.asked);
        QTest::qWait(20);
        EXPECT_EQ(bool(window.windowStates() & Qt::WindowMaximized), s.opensMaximized);
        if (s.opensAt == designed) {
            EXPECT_EQ(window.size(), designed.size());
        } else if (!s.opensMaximized) {
            EXPECT_EQ(window.geometry(), s.opensAt);
        }
        if (s.leftAt.isValid())
            window.setGeometry(s.leftAt);
        else
            window.showMaximized();
        QTest::qWait(20);
        placement.save();
    }
}
