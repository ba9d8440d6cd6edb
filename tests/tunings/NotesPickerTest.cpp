// The editor's six notes, typed and picked: each way keeps the other in
// step, and the wheels hear of a change only when what they show changed.
#include <gtest/gtest.h>

#include <QStringList>

#include "tunings/ui/NotesPicker.h"

using namespace zt;

namespace {

// One step of an edit: typed text (when `typed`), else a pick.
struct Step {
    const char* typed;
    int string;
    int row;
    // What follows.
    const char* text;
    QList<int> rows;
    QList<bool> known;
    const char* sixthSpelled;  // the sixth string's row 11
    int picksSignals;          // picksChanged so far
    int choicesSignals;        // choicesChanged so far
};

TEST(NotesPickerTest, TypingAndPickingFollowEachOther) {
    const QList<bool> all(6, true);
    const QList<int> standard(6, 12);
    const Step steps[] = {
        {"E2 A2 D3 G3 B3 E4", 0, 0, "E2 A2 D3 G3 B3 E4", standard, all, "D#2", 1, 0},
        {nullptr, 0, 10, "D2 A2 D3 G3 B3 E4", {10, 12, 12, 12, 12, 12}, all, "D#2", 2, 0},
        {nullptr, 0, 10, "D2 A2 D3 G3 B3 E4", {10, 12, 12, 12, 12, 12}, all, "D#2", 2, 0},
        {"D2 A2 D3 G3 B3 Eb4",
         0,
         0,
         "D2 A2 D3 G3 B3 Eb4",
         {10, 12, 12, 12, 12, 11},
         all,
         "Eb2",
         3,
         1},
        {nullptr, 4, 11, "D2 A2 D3 G3 Bb3 Eb4", {10, 12, 12, 12, 11, 11}, all, "Eb2", 4, 1},
        {"H2 A2 D3 G3 Bb3 Eb4",
         0,
         0,
         "H2 A2 D3 G3 Bb3 Eb4",
         {10, 12, 12, 12, 11, 11},
         {false, true, true, true, true, true},
         "Eb2",
         5,
         1},
        {nullptr, 0, 9, "Db2 A2 D3 G3 Bb3 Eb4", {9, 12, 12, 12, 11, 11}, all, "Eb2", 6, 1},
        {"C#2 A2",
         0,
         0,
         "C#2 A2",
         {9, 12, 12, 12, 11, 11},
         {true, true, false, false, false, false},
         "D#2",
         7,
         2},
        {nullptr, 5, 24, "C#2 A2 D3 G3 A#3 E5", {9, 12, 12, 12, 11, 24}, all, "D#2", 8, 2},
    };
    NotesPicker picker;
    ASSERT_EQ(picker.choices().size(), 6);
    int picks = 0;
    int choices = 0;
    QObject::connect(&picker, &NotesPicker::picksChanged, [&] { ++picks; });
    QObject::connect(&picker, &NotesPicker::choicesChanged, [&] { ++choices; });
    for (const Step& step : steps) {
        const std::string what = step.typed ? std::string("typed ") + step.typed
                                            : "picked " + std::to_string(step.row) + " of " +
                                                  std::to_string(step.string);
        if (step.typed)
            picker.setText(QString::fromUtf8(step.typed));
        else
            picker.pick(step.string, step.row);
        EXPECT_EQ(picker.text(), QString::fromUtf8(step.text)) << what;
        EXPECT_EQ(picker.rows(), step.rows) << what;
        EXPECT_EQ(picker.known(), step.known) << what;
        EXPECT_EQ(picker.choices()[0].toStringList().value(11), step.sixthSpelled) << what;
        EXPECT_EQ(picks, step.picksSignals) << what;
        EXPECT_EQ(choices, step.choicesSignals) << what;
    }
}

}  // namespace
