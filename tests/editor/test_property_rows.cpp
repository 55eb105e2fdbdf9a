// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <sstream>

#include "editor/EditorFixture.h"
#include "editor/Properties.h"
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

// The lines of that section of editor/row_inputs.txt, "label: input -> outcome", each with the
// outcome the row now gives: the value as the list shows it, or the message's title and text.
std::vector<std::string> Outcomes(const EditorState& state, const std::string& section,
                                  char separator = '.') {
    std::vector<std::string> lines;
    auto rows = BuildPropertyRows(state);
    for (const std::string& line : test::GoldenLines("editor/row_inputs.txt", section)) {
        size_t colon = line.find(": "), arrow = line.find(" -> ");
        auto row = std::find_if(rows.begin(), rows.end(),
                                [&](auto& r) { return r.Label == line.substr(0, colon); });
        if (row == rows.end()) {
            lines.push_back(line + " (no such row)");
            continue;
        }
        RowInput in = ParseRowInput(*row, line.substr(colon + 2, arrow - colon - 2), separator);
        std::string out = in.Value ? PropertyText(*in.Value) : in.Title + ": " + in.Message;
        for (size_t at; (at = out.find("\r\n")) != std::string::npos;) out.replace(at, 2, "\\r\\n");
        lines.push_back(line.substr(0, arrow) + " -> " + out);
    }
    return lines;
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
    fx.state.SelectedObject = 1;  // a point list of 10 lines
    EXPECT_EQ(Outcomes(fx.state, "point list"),
              test::GoldenLines("editor/row_inputs.txt", "point list"));
    EXPECT_EQ(Outcomes(fx.state, "point list, comma separator", ','),
              test::GoldenLines("editor/row_inputs.txt", "point list, comma separator"));
    fx.state.SelectedObject = 0;
    EXPECT_EQ(Outcomes(fx.state, "page"), test::GoldenLines("editor/row_inputs.txt", "page"));
    EXPECT_EQ(Outcomes(fx.state, "page, comma separator", ','),
              test::GoldenLines("editor/row_inputs.txt", "page, comma separator"));
    // Numbers show rounded to four decimals, with the user's separator, angles as well.
    fx.state.SelectedObject = 1;
    fx.Object(1).SetModulus(10.199722f);
    auto rows = BuildPropertyRows(fx.state);
    auto modulus =
        std::find_if(rows.begin(), rows.end(), [](auto& r) { return r.Label == "Modulus"; });
    ASSERT_NE(modulus, rows.end());
    EXPECT_EQ(RowValueText(fx.state, *modulus, {}, ','), "10,1997");
    EXPECT_EQ(ShownNumber(0.54456824f, '.') + " " + ShownNumber(0.5, ',') + " " +
                  ShownNumber(-0.00001, '.') + " " + ShownNumber(12.0, ','),
              "0.5446 0,5 0 12");
    EXPECT_EQ(PickedFileValue(FilePicker::Wheel, "/data/Wheels/Round.wh"), "Round");
    EXPECT_EQ(PickedFileValue(FilePicker::Graphic, "/data/Pictures/Logo.bmp"),
              "/data/Pictures/Logo.bmp");
}

}  // namespace
