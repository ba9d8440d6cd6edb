// The screen table: every screen the shell shows has a row, the whole shell
// is built from it without a sound card, every mediator registers, and every
// view loads with its screen.
#include <gtest/gtest.h>

#include <QQmlComponent>
#include <QQmlEngine>
#include <memory>
#include <set>

#include "AppTestEnvironment.h"
#include "app/ApplicationFacade.h"
#include "app/Screens.h"
#include "app/Tools.h"
#include "state/StateKeys.h"

using namespace zt;

namespace {

class ScreensTest : public AppTestEnvironment {};

QString keyOf(const ScreenRow& row) {
    return QString::fromUtf8(row.key);
}

}  // namespace

TEST_F(ScreensTest, KeysAreUniqueAndEachTabsRootIsARowOfThatTab) {
    // The saved tab is one of them.
    EXPECT_EQ(toolTabs().size(), size_t(state::kSelectedViewController.max + 1));
    std::set<std::string_view> keys;
    for (const ScreenRow& row : screenTable())
        EXPECT_TRUE(keys.insert(row.key).second) << row.key;
    for (size_t tab = 0; tab < toolTabs().size(); ++tab) {
        const ScreenRow* root = screenRow(toolTabs()[tab].root);
        ASSERT_NE(root, nullptr) << toolTabs()[tab].root;
        EXPECT_EQ(root->tab, static_cast<int>(tab)) << root->key;
    }
}

TEST_F(ScreensTest, WholeShellStartsFromTheTableWithoutASoundCard) {
    Tools tools(engines_);
    for (const ScreenRow& row : screenTable()) {
        Screen* screen = tools.screen(keyOf(row));
        ASSERT_NE(screen, nullptr) << row.key;
        EXPECT_EQ(screen->title(), QString::fromUtf8(row.title)) << row.key;
    }
    // Opening the sound card would have said where its output goes.
    for (const std::string& line : logLines_)
        EXPECT_EQ(line.find("SoundEngine"), std::string::npos) << line;

    ApplicationFacade::getInstance().startup(&tools);
    size_t mediators = 0;
    for (const ScreenRow& row : screenTable())
        mediators += row.makeMediator != nullptr;
    EXPECT_GT(mediators, 0u);
    for (const ScreenRow& row : screenTable()) {
        if (!row.makeMediator)
            continue;
        const std::string name = row.makeMediator(tools.screen(keyOf(row)))->mediatorName();
        EXPECT_TRUE(Facade::getInstance().hasMediator(name)) << row.key;
    }
}

TEST_F(ScreensTest, EveryViewLoadsWithItsScreen) {
    Tools tools(engines_);
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral("qrc:/"));
    for (const ScreenRow& row : screenTable()) {
        QQmlComponent component(&engine, tools.viewUrl(keyOf(row)));
        std::unique_ptr<QObject> view(component.createWithInitialProperties(
            {{QStringLiteral("screen"), QVariant::fromValue(tools.screen(keyOf(row)))}}));
        EXPECT_NE(view, nullptr) << row.key << ": " << component.errorString().toStdString();
    }
}
