// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Every setting of the page, of a format and of an object, reached by one numbered property
// identifier. The property list, the preview's moves and the undo history all read and
// write through GetProperty and SetProperty.

#include <cstdint>
#include <string>
#include <variant>

namespace paginox {

class EditorState;

// A property's value: the member's own type when read; any of these when written, converted
// to the member's type first (a Boolean as a number is -1 or 0, as the page file keeps it).
using PropertyValue =
    std::variant<std::monostate, bool, uint8_t, int16_t, int32_t, float, double, std::string>;

enum PropertyId : int32_t {
    kPropDescription = 0,
    kPropListAbbreviation = 1,
    kPropPageNumCharts = 2,
    kPropChartPlacementDesc = 3,
    kPropFormatYRatio = 4,
    kPropNoTextYRatio = 5,
    kPropNewMargin = 6,
    kPropXPixels = 7,
    kPropYPixels = 8,
    kPropLogPixels = 9,
    kPropForPrinter = 10,
    kPropObjectClassID = 11,
    kPropObjectNumCharts = 12,
    kPropOrigin = 13,
    kPropLength = 14,
    kPropTextJustify = 15,
    kPropTextBottomUp = 16,
    kPropTextLines = 17,
    kPropHorzBlocks = 18,
    kPropObjectYRatio = 19,
    kPropFrameType = 20,
    kPropPLColumns = 21,
    kPropRulerships = 22,
    kPropModulus = 23,
    kPropOrb = 24,
    kPropFontSize = 25,
    kPropWeighted = 26,
    kPropTitleOn = 27,
    kPropUserCaption = 28,
    kPropAnchorBottom = 29,
    kPropZodiac = 30,
    kPropForceLineColor = 31,
    kPropWheelFile = 32,
    kPropGenericFile = 33,
    kPropAspectsFile = 34,
    kPropChartNum = 35,
    kPropPointsFile = 36,
};

// The current value. For ids above 3 a formatIndex of 0 becomes CurrentFormatIndex, for ids
// above 10 an objectIndex of 0 becomes SelectedObject; the caller sees both afterwards.
// Ids outside 0..36 give an empty value.
PropertyValue GetProperty(const EditorState& state, int32_t id, int16_t& formatIndex,
                          int16_t& objectIndex, int16_t subIndex);

// Stores newValue, converted to the member's type, unless it equals the current value.
// Indices are filled in as by GetProperty. Ids outside 0..36 change nothing. Reports nothing
// to the user: a value that cannot be converted raises Overflow or Type mismatch.
void SetProperty(EditorState& state, int32_t id, const PropertyValue& newValue,
                 int16_t& formatIndex, int16_t& objectIndex, int16_t subIndex);

// The value converted as SetProperty would store it into property id (empty for an unknown
// id); raises Overflow or Type mismatch.
PropertyValue ConvertForProperty(int32_t id, const PropertyValue& value);

// The shortest decimal that reads back as the same double.
std::string NumberText(double v);

// A value as text for the property list: "True"/"False", numbers in their shortest form.
std::string PropertyText(const PropertyValue& value);

}  // namespace paginox
