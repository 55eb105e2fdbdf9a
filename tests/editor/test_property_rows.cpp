#include <gtest/gtest.h>

#include <algorithm>

#include "editor/AngleParser.h"
#include "editor/EditorFixture.h"
#include "editor/PropertyRows.h"

namespace paginox {
namespace {

std::vector<std::string> Labels(const std::vector<PropertyRow>& rows) {
    std::vector<std::string> labels;
    for (const auto& r : rows) labels.push_back(r.Label);
    return labels;
}

const PropertyRow& Find(const std::vector<PropertyRow>& rows, const std::string& label) {
    auto it = std::find_if(rows.begin(), rows.end(), [&](auto& r) { return r.Label == label; });
    EXPECT_NE(it, rows.end()) << label;
    return *it;
}

TEST(PropertyRows, WhatThePageAndEachClassOffer) {
    test::EditorFixture fx;
    fx.state.Page->SetNumCharts(2);
    EXPECT_EQ(Labels(BuildPropertyRows(fx.state)),
              (std::vector<std::string>{"List Abbrev", "Chart 1 Desc", "Chart 2 Desc", "MarginLeft",
                                        "MarginTop", "MarginRight", "MarginBottom"}));

    fx.state.SelectedObject = 1;  // text lines, angles, points file, title line
    EXPECT_EQ(
        Labels(BuildPropertyRows(fx.state)),
        (std::vector<std::string>{"Anchor X", "Anchor Y", "Width", "Height", "Data Lines",
                                  "Data Blocks", "Justification", "Reverse", "Title Line",
                                  "Font Size", "Anchor Bottom", "Frame Type", "Chart 1", "Zodiac",
                                  "Force Color", "Modulus", "Max Orb", "Points File 1"}));

    fx.state.SelectedObject = 2;  // a two-chart wheel with points and aspects files
    auto wheel = BuildPropertyRows(fx.state);
    for (const char* label : {"Chart 2", "Wheel File", "Points File 2", "Aspects File"}) {
        Find(wheel, label);
    }
    EXPECT_EQ(Find(wheel, "Points File 2").Help,
              "Name of displayed points file (with no file extension) to be used by chart 2 in "
              "this object. If left blank, then this chart will use the default displayed points "
              "file. Limited to 80 characters. (Click on the > button to browse available points "
              "files.)");

    auto picture = fx.model.AddClass(512 + 65536);
    fx.state.CurrentFormat->AddObject(picture->CreateInstance(nullptr));
    fx.state.SelectedObject = 4;
    auto rows = BuildPropertyRows(fx.state);
    EXPECT_TRUE(Find(rows, "Graphic File").Required);
    EXPECT_EQ(Find(rows, "Body Elements File").Help,
              "Name of body elements file (with no file extension) to be used by this object.  "
              "If left blank, then this object will use the default asteroid file. Limited to 80 "
              "characters. (Click on the > button to browse available files.)");
}

TEST(PropertyRows, HelpTextsEndWithTheRangesTheRowsEnforce) {
    test::EditorFixture fx;
    fx.state.SelectedObject = 1;
    auto rows = BuildPropertyRows(fx.state);
    EXPECT_TRUE(Find(rows, "Data Lines").Help.ends_with("Must be between 1 and 100"));
    EXPECT_TRUE(Find(rows, "Modulus")
                    .Help.ends_with("This is ignored of the modulus column is not selected. Must "
                                    "be in the range 1 to 360"));
    EXPECT_TRUE(Find(rows, "Max Orb").Help.ends_with("Must be in the range 0 to 30"));
    EXPECT_EQ(Find(rows, "Font Size").Help,
              "Font size to be used for text in this object. Must be between 4 and 72");

    // Values are checked before anything is stored.
    EXPECT_TRUE(ParseRowInput(Find(rows, "Anchor X"), "1").Value);
    auto bad = ParseRowInput(Find(rows, "Anchor X"), "1.01");
    EXPECT_FALSE(bad.Value);
    EXPECT_EQ(bad.Message, "Anchor X must be a number in the range 0 to 1.");
    EXPECT_EQ(bad.Title, kInvalidValueTitle);
    EXPECT_FALSE(ParseRowInput(Find(rows, "Anchor X"), "0.5cm").Value);
    EXPECT_FALSE(ParseRowInput(Find(rows, "Data Lines"), "2.5").Value);
    // Blocks cannot outnumber the object's lines (10).
    EXPECT_TRUE(ParseRowInput(Find(rows, "Data Blocks"), "10").Value);
    EXPECT_FALSE(ParseRowInput(Find(rows, "Data Blocks"), "11").Value);
    EXPECT_EQ(*ParseRowInput(Find(rows, "Reverse"), "false").Value, PropertyValue(false));
    EXPECT_EQ(*ParseRowInput(Find(rows, "Justification"), "2 = Centred").Value,
              PropertyValue(int16_t(2)));

    auto angle = ParseRowInput(Find(rows, "Modulus"), "16Ar25");
    EXPECT_DOUBLE_EQ(std::get<double>(*angle.Value), 16 + 25 / 60.0);
    auto notAngle = ParseRowInput(Find(rows, "Modulus"), "ninety");
    EXPECT_EQ(notAngle.Title, kAngleErrorTitle);
    EXPECT_EQ(notAngle.Message, AngleErrorText());
    EXPECT_FALSE(ParseRowInput(Find(rows, "Max Orb"), "31").Value);

    fx.state.SelectedObject = 0;
    auto pageRows = BuildPropertyRows(fx.state);
    EXPECT_FALSE(ParseRowInput(Find(pageRows, "MarginTop"), "0.41").Value);
    EXPECT_FALSE(ParseRowInput(Find(pageRows, "List Abbrev"), "ABCDEF").Value);
    EXPECT_TRUE(ParseRowInput(Find(pageRows, "List Abbrev"), "ABCDE").Value);
}

TEST(PropertyRows, ValuesAsTheListShowsThem) {
    test::EditorFixture fx;
    fx.state.SelectedObject = 1;
    fx.Object(1).SetTextBottomUp(-1);
    fx.Object(1).SetTextJustify(2);
    fx.Object(1).SetZodiac(7);  // not one of the choices: shown as it is
    fx.Object(1).SetOrigin(1, 0.3f);
    auto rows = BuildPropertyRows(fx.state);
    EXPECT_EQ(RowValueText(fx.state, Find(rows, "Reverse")), "True");
    EXPECT_EQ(RowValueText(fx.state, Find(rows, "Title Line")), "True");
    EXPECT_EQ(RowValueText(fx.state, Find(rows, "Justification")), "2 = Centred");
    EXPECT_EQ(RowValueText(fx.state, Find(rows, "Zodiac")), "7");
    EXPECT_EQ(RowValueText(fx.state, Find(rows, "Anchor X")), "0.3");

    EXPECT_EQ(PickedFileValue(FilePicker::Wheel, "/data/Wheels/Round.wh"), "Round");
    EXPECT_EQ(PickedFileValue(FilePicker::Graphic, "/data/Pictures/Logo.bmp"),
              "/data/Pictures/Logo.bmp");
}

}  // namespace
}  // namespace paginox
