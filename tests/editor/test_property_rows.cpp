#include <gtest/gtest.h>

#include <sstream>

#include "editor/AngleParser.h"
#include "editor/EditorFixture.h"
#include "editor/PropertyRows.h"
#include "support/Golden.h"

using namespace paginox;

namespace {

// The rows as the list offers them: label, the value shown, what the row accepts, its help.
std::string RowsText(const EditorState& state) {
    const char* kinds[] = {"text", "number", "angle", "boolean", "choice", "file"};
    std::ostringstream s;
    for (const PropertyRow& r : BuildPropertyRows(state)) {
        s << r.Label << " = '" << RowValueText(state, r) << "': " << kinds[int(r.Kind)];
        if (r.Kind == RowKind::Number || r.Kind == RowKind::Angle) {
            s << " " << r.Min << " to " << r.Max << (r.Whole ? " whole" : "");
        }
        if (r.MaxLength) s << " of " << r.MaxLength << " characters";
        for (const auto& [code, text] : r.Choices)
            s << (code == r.Choices[0].first ? " " : ", ") << text;
        s << (r.Required ? ", required" : "") << "\n  " << r.Help << "\n";
    }
    return s.str();
}

const PropertyRow& Row(const std::vector<PropertyRow>& rows, const std::string& label) {
    auto it = std::find_if(rows.begin(), rows.end(), [&](auto& r) { return r.Label == label; });
    EXPECT_NE(it, rows.end()) << label;
    return *it;
}

TEST(PropertyRows, WhatThePageAndEachClassOfferAndShow) {
    test::EditorFixture fx;
    fx.state.Page->SetNumCharts(2);
    EXPECT_EQ(RowsText(fx.state), test::GoldenText("editor/property_rows.txt", "page"));
    fx.state.SelectedObject = 1;  // text lines, angles, points file, title line
    fx.Object(1).SetTextBottomUp(-1);
    fx.Object(1).SetTextJustify(2);
    fx.Object(1).SetZodiac(7);  // not one of the choices: shown as it is
    fx.Object(1).SetOrigin(1, 0.3f);
    EXPECT_EQ(RowsText(fx.state), test::GoldenText("editor/property_rows.txt", "point list"));
    fx.state.SelectedObject = 2;  // a two-chart wheel with points and aspects files
    EXPECT_EQ(RowsText(fx.state), test::GoldenText("editor/property_rows.txt", "bi-wheel"));
    auto picture = fx.model.AddClass(512 + 65536);
    fx.state.CurrentFormat->AddObject(picture->CreateInstance(nullptr));
    fx.state.SelectedObject = 4;
    EXPECT_EQ(RowsText(fx.state), test::GoldenText("editor/property_rows.txt", "picture"));
}

TEST(PropertyRows, ValuesAreCheckedBeforeAnythingIsStored) {
    test::EditorFixture fx;
    fx.state.SelectedObject = 1;
    auto rows = BuildPropertyRows(fx.state);
    auto parse = [&](const std::string& label, const std::string& text) {
        return ParseRowInput(Row(rows, label), text);
    };
    EXPECT_TRUE(parse("Anchor X", "1").Value);
    auto bad = parse("Anchor X", "1.01");
    EXPECT_FALSE(bad.Value);
    EXPECT_EQ(bad.Title + ": " + bad.Message,
              "Invalid Value: Anchor X must be a number in the range 0 to 1.");
    for (auto [label, text] : {std::pair{"Anchor X", "0.5cm"},
                               {"Data Lines", "2.5"},
                               {"Data Blocks", "11"},
                               {"Max Orb", "31"}}) {
        EXPECT_FALSE(parse(label, text).Value) << label << " " << text;
    }
    // Blocks cannot outnumber the object's lines (10).
    EXPECT_TRUE(parse("Data Blocks", "10").Value);
    EXPECT_EQ(*parse("Reverse", "false").Value, PropertyValue(false));
    EXPECT_EQ(*parse("Justification", "2 = Centred").Value, PropertyValue(int16_t(2)));
    EXPECT_DOUBLE_EQ(std::get<double>(*parse("Modulus", "16Ar25").Value), 16 + 25 / 60.0);
    auto notAngle = parse("Modulus", "ninety");
    EXPECT_EQ(notAngle.Title, kAngleErrorTitle);
    EXPECT_EQ(notAngle.Message, AngleErrorText());

    fx.state.SelectedObject = 0;
    rows = BuildPropertyRows(fx.state);
    EXPECT_FALSE(parse("MarginTop", "0.41").Value);
    EXPECT_FALSE(parse("List Abbrev", "ABCDEF").Value);
    EXPECT_TRUE(parse("List Abbrev", "ABCDE").Value);

    EXPECT_EQ(PickedFileValue(FilePicker::Wheel, "/data/Wheels/Round.wh"), "Round");
    EXPECT_EQ(PickedFileValue(FilePicker::Graphic, "/data/Pictures/Logo.bmp"),
              "/data/Pictures/Logo.bmp");
}

}  // namespace
