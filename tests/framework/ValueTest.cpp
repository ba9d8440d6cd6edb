// Lenient conversions used when saved dictionaries are read back.
#include <gtest/gtest.h>

#include "framework/Value.h"

using zt::Dictionary;
using zt::Value;

TEST(ValueTest, ConversionsBetweenKinds) {
    struct Row {
        Value value;
        std::int64_t asInt;
        bool asBool;
        std::string asString;
    };
    const std::vector<Row> rows = {
        {Value(true), 1, true, "1"},      {Value(0), 0, false, "0"},
        {Value(12), 12, true, "12"},      {Value(2.9), 2, true, "2.9"},
        {Value("7"), 7, true, "7"},       {Value("0"), 0, false, "0"},
        {Value("true"), 1, true, "true"}, {Value("abc"), -5, false, "abc"},
        {Value(), -5, false, ""},         {Value(Dictionary{}), -5, false, ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.value.toInt(-5), row.asInt) << row.value.describe();
        EXPECT_EQ(row.value.toBool(false), row.asBool) << row.value.describe();
        EXPECT_EQ(row.value.toString(), row.asString) << row.value.describe();
    }
}

TEST(ValueTest, NestedValuesCompareAndDescribe) {
    Dictionary inner{{"BPM", 60}, {"isTempoX2", false}};
    Value a(Dictionary{{"MetronomeSettings", inner}});
    Value b(Dictionary{{"MetronomeSettings", inner}});
    EXPECT_EQ(a, b);
    b.dictionary()["MetronomeSettings"].dictionary()["BPM"] = 61;
    EXPECT_NE(a, b);
    EXPECT_EQ(zt::valueFor(a.dictionary(), "missing"), Value());
    EXPECT_NE(a.describe().find("BPM = 60;"), std::string::npos);
}
