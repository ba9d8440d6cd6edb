// Every screen of the table drawn in the real window at the design size and
// at a desktop size: no text is drawn smaller than 11 px at 320 x 480, and a
// big window grows the type only up to a comfortable maximum while its
// design space grows, so that lists show more rows instead of bigger ones.
#include <gtest/gtest.h>

#include <QJSValue>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtTest/QTest>
#include <algorithm>
#include <memory>
#include <string>

#include "AppTestEnvironment.h"
#include "app/ApplicationFacade.h"
#include "app/Screens.h"
#include "app/Tools.h"
#include "app/ZebToolsAppDelegate.h"

using namespace zt;

namespace {

struct DrawnText {
    QString text;
    double pixels = 0;  // as drawn in the window, scales included
};

QQuickItem* findNamed(QQuickItem* root, const QString& name) {
    QList<QQuickItem*> items = {root};
    while (!items.isEmpty()) {
        QQuickItem* item = items.takeFirst();
        if (item->objectName() == name)
            return item;
        items += item->childItems();
    }
    return nullptr;
}

// Every visible text under root with something to read, at the size it is
// drawn: the font's resolved size (after any fitting) times the item's
// scale in the window.
std::vector<DrawnText> drawnTexts(QQuickItem* root) {
    std::vector<DrawnText> out;
    QList<QQuickItem*> items = {root};
    while (!items.isEmpty()) {
        QQuickItem* item = items.takeFirst();
        if (!item->isVisible() || item->opacity() == 0.0)
            continue;
        items += item->childItems();
        const QVariant info = item->property("fontInfo");
        const QString text = item->property("text").toString().trimmed();
        if (!info.isValid() || text.isEmpty() || item->width() <= 0)
            continue;
        const double scale = item->mapToScene({0, 1}).y() - item->mapToScene({0, 0}).y();
        const double size = info.value<QJSValue>().property("pixelSize").toNumber();
        out.push_back({text, size * scale});
    }
    return out;
}

class ReadableTextTest : public AppTestEnvironment {
protected:
    void SetUp() override {
        AppTestEnvironment::SetUp();
        ApplicationFacade::getInstance();
        delegate_.launch(engines_);
        ASSERT_TRUE(loop_.runUntil([&] { return !tools().loading(); }, std::chrono::seconds(20)));
        engine_ = std::make_unique<QQmlApplicationEngine>();
        window_ = loadMainWindow(*engine_, &tools());
        ASSERT_TRUE(window_);
        window_->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window_));
    }
    void TearDown() override {
        engine_.reset();
        delegate_.analytics().stop();
        AppTestEnvironment::TearDown();
    }

    Tools& tools() { return *delegate_.tools(); }

    void resize(int width, int height) {
        window_->resize(width, height);
        QTest::qWait(50);
    }

    // Shows the screen of key on its tab (pushed over the tab's root) and
    // returns its page once the stack has settled.
    QQuickItem* showScreen(const ScreenRow& row) {
        const int tab = row.tab == kAnyTab ? ChromaticTab : row.tab;
        tools().selectTab(tab);
        const QString key = QString::fromUtf8(row.key);
        if (tools().stack(tab).last() != key)
            tools().show(key, tab);
        QQuickItem* page = nullptr;
        const bool settled = QTest::qWaitFor([&] {
            auto* stack = qvariant_cast<QQuickItem*>(
                findNamed(window_->contentItem(), QStringLiteral("tabView%1").arg(tab))
                    ->property("item"));
            if (!stack || stack->property("busy").toBool())
                return false;
            page = qvariant_cast<QQuickItem*>(stack->property("currentItem"));
            return page && page->property("key").toString() == key;
        });
        return settled ? page : nullptr;
    }
    void leave(const ScreenRow& row) {
        const int tab = row.tab == kAnyTab ? ChromaticTab : row.tab;
        if (tools().stack(tab).size() > 1)
            tools().goBack(tab);
    }

    ZebToolsAppDelegate delegate_;
    std::unique_ptr<QQmlApplicationEngine> engine_;
    QQuickWindow* window_ = nullptr;
};

TEST_F(ReadableTextTest, NoTextUnderElevenPixelsOnAnyScreenAtTheDesignSize) {
    resize(320, 480);
    for (const ScreenRow& row : screenTable()) {
        QQuickItem* page = showScreen(row);
        ASSERT_TRUE(page) << row.key;
        const auto texts = drawnTexts(page);
        EXPECT_FALSE(texts.empty()) << row.key;
        for (const DrawnText& t : texts)
            EXPECT_GE(t.pixels, 10.95) << row.key << ": \"" << t.text.toStdString() << "\"";
        leave(row);
    }
    // The tab bar's titles, whole, on every screen.
    for (const DrawnText& t : drawnTexts(findNamed(window_->contentItem(), "tab1")))
        EXPECT_GE(t.pixels, 10.95) << t.text.toStdString();
}

TEST_F(ReadableTextTest, ABigWindowGrowsTheTypeUpToAMaximumAndShowsMoreRows) {
    const ScreenRow& settings = *screenRow("tunerChromaticSettings");
    const auto titleSize = [&] {
        QQuickItem* page = showScreen(settings);
        const auto texts = drawnTexts(page);
        const auto title = std::find_if(texts.begin(), texts.end(),
                                        [](const DrawnText& t) { return t.text == "Settings"; });
        return title == texts.end() ? 0.0 : title->pixels;
    };
    resize(320, 480);
    const double small = titleSize();
    ASSERT_GT(small, 0);
    const auto designHeight = [&] {
        // In design units, the units of a row's height.
        return showScreen(settings)->height();
    };
    const double smallHeight = designHeight();

    resize(800, 600);
    const double medium = titleSize();
    resize(1280, 800);
    const double large = titleSize();
    resize(3840, 2160);
    const double huge = titleSize();
    EXPECT_GT(medium, small);
    EXPECT_GT(large, medium);
    EXPECT_LE(huge, small * 1.5 + 0.01) << "type grows up to a maximum";
    resize(1280, 800);
    EXPECT_GT(designHeight(), smallHeight * 1.2) << "a taller window gives the lists more room";
}

}  // namespace
