// The neck as drawn: what each string shows (x, o, a dot with a finger or
// a note), the barres, and the fret the neck starts at.
#include <gtest/gtest.h>

#include <QStringList>

#include "ChordTesting.h"
#include "chords/ui/NeckPicture.h"
#include "chords/ui/TouchView.h"

namespace zt::test {
namespace {

ChordShape shapeFor(const char* root, const char* type, const std::string& frets) {
    ChordLibrary library;
    useTuning(library, "Standard");
    const VariationSet set = library.getVariations(root, type);
    const int at = find(set, frets);
    if (at < 0) {
        ADD_FAILURE() << "no " << frets << " among the shapes of " << root << type;
        return {};
    }
    return shapeOf(set.records[static_cast<std::size_t>(at)]);
}

// What the strings show from the 6th to the 1st: x, o, the dot's text,
// "-" for a fretted string drawn under its barre, "" for an open string's
// note in note mode shown as its text.
std::string picture(const NeckPicture& neck) {
    std::string out;
    for (const QVariant& s : neck.strings) {
        const QVariantMap string = s.toMap();
        std::string cell;
        if (string["muted"].toBool())
            cell = "x";
        else if (string["open"].toBool())
            cell = string["text"].toString().isEmpty()
                       ? "o"
                       : "o" + string["text"].toString().toStdString();
        else if (string["fret"].toInt() > 0)
            cell = string["dot"].toBool() ? string["text"].toString().toStdString() : "-";
        else
            cell = ".";
        out += (out.empty() ? "" : " ") + cell;
    }
    return out;
}

TEST(NeckPicture, OpenCShowsFingersMutedAndOpenStrings) {
    const NeckPicture neck = NeckPicture::of(shapeFor("C", "", "x 3 2 0 1 0"), false);
    EXPECT_EQ(picture(neck), "x 3 2 o 1 o");
    EXPECT_TRUE(neck.barres.isEmpty());
    EXPECT_EQ(neck.firstFret, 1);
    for (int i = 0; i < 6; ++i) {
        const QVariantMap string = neck.strings[i].toMap();
        EXPECT_EQ(string["string"].toInt(), 6 - i);
        EXPECT_DOUBLE_EQ(string["x"].toDouble(), TouchView::stringX(6 - i));
    }
}

TEST(NeckPicture, NoteModeNamesEverySoundingString) {
    const NeckPicture neck = NeckPicture::of(shapeFor("C", "", "x 3 2 0 1 0"), true);
    EXPECT_EQ(picture(neck), "x C E oG C oE");
}

TEST(NeckPicture, ABarreSaysItsFingerOnceAndCoversItsStrings) {
    const NeckPicture fingers = NeckPicture::of(shapeFor("F", "", "1 3 3 2 1 1"), false);
    EXPECT_EQ(picture(fingers), "- 3 4 2 - -");
    ASSERT_EQ(fingers.barres.size(), 1);
    const QVariantMap barre = fingers.barres[0].toMap();
    EXPECT_EQ(barre["fret"].toInt(), 1);
    EXPECT_EQ(barre["text"].toString(), "1");
    EXPECT_DOUBLE_EQ(barre["fromX"].toDouble(), TouchView::stringX(6));
    EXPECT_DOUBLE_EQ(barre["toX"].toDouble(), TouchView::stringX(1));

    const NeckPicture notes = NeckPicture::of(shapeFor("F", "", "1 3 3 2 1 1"), true);
    EXPECT_EQ(picture(notes), "F C F A C F") << "in note mode every string names its note";
    EXPECT_EQ(notes.barres[0].toMap()["text"].toString(), "");
}

TEST(NeckPicture, TheNeckStartsAtTheShapesFretWhenItDoesNotFitBelowTheNut) {
    EXPECT_EQ(NeckPicture::of(shapeFor("A", "m", "5 7 7 5 5 5"), false).firstFret, 5);
    EXPECT_EQ(NeckPicture::of(shapeFor("F", "", "1 3 3 2 1 1"), false).firstFret, 1);
    EXPECT_EQ(NeckPicture::of(shapeFor("D", "", "x x 0 2 3 2"), false).firstFret, 1);
}

TEST(NeckPicture, TheEmptyNeckHasSixBareStrings) {
    const NeckPicture neck = NeckPicture::empty();
    EXPECT_EQ(picture(neck), ". . . . . .");
    EXPECT_TRUE(neck.barres.isEmpty());
}

TEST(NeckPicture, LeftHandedMirrorsWhereTheStringsAndBarresAreDrawnNotWhatTheySay) {
    const ChordShape f = shapeFor("F", "", "1 3 3 2 1 1");
    const NeckPicture right = NeckPicture::of(f, false);
    const NeckPicture left = NeckPicture::of(f, false, true);
    EXPECT_EQ(picture(left), picture(right));
    for (int i = 0; i < 6; ++i) {
        const QVariantMap string = left.strings[i].toMap();
        EXPECT_EQ(string["string"].toInt(), 6 - i);
        EXPECT_DOUBLE_EQ(string["x"].toDouble(),
                         TouchView::kWidth - right.strings[i].toMap()["x"].toDouble());
    }
    EXPECT_DOUBLE_EQ(left.strings[0].toMap()["x"].toDouble(), 213.5) << "the 6th on the right";
    const QVariantMap barre = left.barres[0].toMap();
    EXPECT_DOUBLE_EQ(barre["fromX"].toDouble(), TouchView::stringX(6, true));
    EXPECT_DOUBLE_EQ(barre["toX"].toDouble(), TouchView::stringX(1, true));
    const NeckPicture bare = NeckPicture::empty(true);
    EXPECT_DOUBLE_EQ(bare.strings[5].toMap()["x"].toDouble(), 43.5) << "the 1st on the left";
}

struct DiagramCase {
    const char* name;
    const char *root, *type, *frets;
    bool leftHanded;
    QVariantList drawn;  // frets from the left column to the right
    int barreFrom, barreTo, barreLeft, barreRight;
};
void PrintTo(const DiagramCase& c, std::ostream* os) {
    *os << c.name;
}

class Diagrams : public ::testing::TestWithParam<DiagramCase> {};

TEST_P(Diagrams, DrawTheStringsInColumnsForEitherHand) {
    const auto& c = GetParam();
    const QVariantMap diagram = smallDiagram(shapeFor(c.root, c.type, c.frets), "", c.leftHanded);
    EXPECT_EQ(diagram["frets"].toList(), c.drawn);
    ASSERT_EQ(diagram["barres"].toList().size(), 1);
    const QVariantMap barre = diagram["barres"].toList()[0].toMap();
    EXPECT_EQ(barre["from"].toInt(), c.barreFrom);
    EXPECT_EQ(barre["to"].toInt(), c.barreTo);
    EXPECT_EQ(barre["left"].toInt(), c.barreLeft);
    EXPECT_EQ(barre["right"].toInt(), c.barreRight);
}

INSTANTIATE_TEST_SUITE_P(BothHands, Diagrams,
                         ::testing::Values(DiagramCase{"RightBm", "B", "m", "x 2 4 4 3 2", false,
                                                       QVariantList{-1, 2, 4, 4, 3, 2}, 5, 1, 1, 5},
                                           DiagramCase{"LeftBm", "B", "m", "x 2 4 4 3 2", true,
                                                       QVariantList{2, 3, 4, 4, 2, -1}, 5, 1, 0, 4},
                                           DiagramCase{"LeftFullBarre", "A", "m", "5 7 7 5 5 5",
                                                       true, QVariantList{5, 5, 5, 7, 7, 5}, 6, 1,
                                                       0, 5}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(SmallDiagram, ListsFretsFromTheSixthStringWithItsBarresAndCaption) {
    const QVariantMap diagram = smallDiagram(shapeFor("A", "m", "5 7 7 5 5 5"), "/E");
    EXPECT_EQ(diagram["frets"].toList(), (QVariantList{5, 7, 7, 5, 5, 5}));
    EXPECT_EQ(diagram["firstFret"].toInt(), 5);
    EXPECT_EQ(diagram["caption"].toString(), "/E");
    ASSERT_EQ(diagram["barres"].toList().size(), 1);
    const QVariantMap barre = diagram["barres"].toList()[0].toMap();
    EXPECT_EQ(barre["from"].toInt(), 6);
    EXPECT_EQ(barre["to"].toInt(), 1);
}

}  // namespace
}  // namespace zt::test
