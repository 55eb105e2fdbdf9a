// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/Properties.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "core/AnsiText.h"
#include "core/NumberFormat.h"
#include "core/Rounding.h"
#include "core/RuntimeError.h"
#include "editor/EditorState.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"

namespace paginox {

namespace {

enum class ValueKind { None, String, Int16, Single, Boolean, Byte };

ValueKind KindOf(int32_t id) {
    switch (id) {
        case kPropDescription:
        case kPropListAbbreviation:
        case kPropChartPlacementDesc:
        case kPropUserCaption:
        case kPropWheelFile:
        case kPropGenericFile:
        case kPropAspectsFile:
        case kPropPointsFile:
            return ValueKind::String;
        case kPropFormatYRatio:
        case kPropNoTextYRatio:
        case kPropNewMargin:
        case kPropOrigin:
        case kPropLength:
        case kPropObjectYRatio:
        case kPropModulus:
        case kPropOrb:
        case kPropFontSize:
            return ValueKind::Single;
        case kPropForPrinter:
        case kPropWeighted:
        case kPropTitleOn:
        case kPropAnchorBottom:
            return ValueKind::Boolean;
        case kPropPLColumns:
            return ValueKind::Byte;
        default:
            return id >= 0 && id <= kPropPointsFile ? ValueKind::Int16 : ValueKind::None;
    }
}

double ParseNumber(const std::string& text) {
    std::string t = Trim(text);
    double v = 0;
    const char* begin = t.data();
    if (!t.empty() && *begin == '+') ++begin;
    auto [end, ec] = std::from_chars(begin, t.data() + t.size(), v);
    if (t.empty() || ec != std::errc() || end != t.data() + t.size()) Raise(kTypeMismatch);
    return v;
}

double AsNumber(const PropertyValue& value) {
    return std::visit(
        [](const auto& v) -> double {
            using T = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<T, std::monostate>) {
                return 0;
            } else if constexpr (std::is_same_v<T, bool>) {
                return v ? -1 : 0;
            } else if constexpr (std::is_same_v<T, std::string>) {
                return ParseNumber(v);
            } else {
                return static_cast<double>(v);
            }
        },
        value);
}

bool AsBoolean(const PropertyValue& value) {
    if (const bool* b = std::get_if<bool>(&value)) return *b;
    if (const std::string* s = std::get_if<std::string>(&value)) {
        std::string t = Trim(*s);
        if (EqualsIgnoreCase(t, "True")) return true;
        if (EqualsIgnoreCase(t, "False")) return false;
    }
    return AsNumber(value) != 0;
}

PageFormat& FormatAt(const EditorState& state, int16_t index) {
    if (!state.Page) Raise(kObjectNotSet);
    std::shared_ptr<PageFormat> format = state.Page->GetFormat(index);
    if (!format) Raise(kObjectNotSet);
    return *format;
}

PageObject& ObjectAt(const PageFormat& format, int16_t index) {
    std::shared_ptr<PageObject> obj = format.Object(index);
    if (!obj) Raise(kObjectNotSet);
    return *obj;
}

void FillDefaults(const EditorState& state, int32_t id, int16_t& formatIndex,
                  int16_t& objectIndex) {
    if (id > kPropChartPlacementDesc && formatIndex == 0) formatIndex = state.CurrentFormatIndex;
    if (id > kPropForPrinter && objectIndex == 0) objectIndex = state.SelectedObject;
}

}  // namespace

std::string NumberText(double v) {
    char buffer[64];
    auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, v);
    return ec == std::errc() ? std::string(buffer, end) : std::string();
}

PropertyValue ConvertForProperty(int32_t id, const PropertyValue& value) {
    switch (KindOf(id)) {
        case ValueKind::None:
            return {};
        case ValueKind::String:
            return PropertyText(value);
        case ValueKind::Boolean:
            return AsBoolean(value);
        case ValueKind::Int16:
            return ToInt16(AsNumber(value));
        case ValueKind::Byte: {
            double r = RoundHalfEven(AsNumber(value));
            if (!(r >= 0 && r <= 255)) Raise(kOverflow);
            return static_cast<uint8_t>(r);
        }
        case ValueKind::Single: {
            double v = AsNumber(value);
            if (!(std::fabs(v) <= std::numeric_limits<float>::max())) Raise(kOverflow);
            return static_cast<float>(v);
        }
    }
    return {};
}

std::string PropertyText(const PropertyValue& value) {
    return std::visit(
        [](const auto& v) -> std::string {
            using T = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<T, std::monostate>) {
                return "";
            } else if constexpr (std::is_same_v<T, bool>) {
                return v ? "True" : "False";
            } else if constexpr (std::is_same_v<T, std::string>) {
                return v;
            } else if constexpr (std::is_same_v<T, float>) {
                return ShortestDecimal(v);
            } else if constexpr (std::is_same_v<T, double>) {
                return NumberText(v);
            } else {
                return FormatZero(v);
            }
        },
        value);
}

PropertyValue GetProperty(const EditorState& state, int32_t id, int16_t& formatIndex,
                          int16_t& objectIndex, int16_t subIndex) {
    FillDefaults(state, id, formatIndex, objectIndex);
    if (id < 0 || id > kPropPointsFile) return {};
    if (id <= kPropChartPlacementDesc) {
        if (!state.Page) Raise(kObjectNotSet);
        const PageClass& page = *state.Page;
        switch (id) {
            case kPropDescription:
                return page.Description();
            case kPropListAbbreviation:
                return page.ListAbbreviation();
            case kPropPageNumCharts:
                return page.NumCharts();
            default:
                return page.ChartPlacementDesc(subIndex);
        }
    }
    const PageFormat& format = FormatAt(state, formatIndex);
    switch (id) {
        case kPropFormatYRatio:
            return format.YRatio();
        case kPropNoTextYRatio:
            return format.NoTextYRatio();
        case kPropNewMargin:
            return format.NewMargin(subIndex);
        case kPropXPixels:
            return format.XPixels();
        case kPropYPixels:
            return format.YPixels();
        case kPropLogPixels:
            return format.LogPixels();
        case kPropForPrinter:
            return format.ForPrinter();
        default:
            break;
    }
    const PageObject& obj = ObjectAt(format, objectIndex);
    switch (id) {
        case kPropObjectClassID:
            return obj.ObjectClassID();
        case kPropObjectNumCharts:
            return obj.NumCharts();
        case kPropOrigin:
            return obj.Origin(subIndex);
        case kPropLength:
            return obj.Length(subIndex);
        case kPropTextJustify:
            return obj.TextJustify();
        case kPropTextBottomUp:
            return obj.TextBottomUp();
        case kPropTextLines:
            return obj.TextLines();
        case kPropHorzBlocks:
            return obj.HorzBlocks();
        case kPropObjectYRatio:
            return obj.YRatio();
        case kPropFrameType:
            return obj.FrameType();
        case kPropPLColumns:
            return obj.PL_Columns(subIndex);
        case kPropRulerships:
            return obj.Rulerships();
        case kPropModulus:
            return obj.Modulus();
        case kPropOrb:
            return obj.Orb();
        case kPropFontSize:
            return obj.FontSize();
        case kPropWeighted:
            return obj.Weighted();
        case kPropTitleOn:
            return obj.TitleOn();
        case kPropUserCaption:
            return obj.UserCaption();
        case kPropAnchorBottom:
            return obj.AnchorBottom();
        case kPropZodiac:
            return obj.Zodiac();
        case kPropForceLineColor:
            return obj.ForceLineColor();
        case kPropWheelFile:
            return obj.WheelFile();
        case kPropGenericFile:
            return obj.GenericFile();
        case kPropAspectsFile:
            return obj.AspectsFile();
        case kPropChartNum:
            return obj.ChartNum(subIndex);
        default:
            return obj.PointsFile(subIndex);
    }
}

void SetProperty(EditorState& state, int32_t id, const PropertyValue& newValue,
                 int16_t& formatIndex, int16_t& objectIndex, int16_t subIndex) {
    PropertyValue current = GetProperty(state, id, formatIndex, objectIndex, subIndex);
    if (id < 0 || id > kPropPointsFile) return;
    PropertyValue value = ConvertForProperty(id, newValue);
    if (value == current) return;

    auto str = [&] { return std::get<std::string>(value); };
    auto i16 = [&] { return std::get<int16_t>(value); };
    auto single = [&] { return std::get<float>(value); };
    auto boolean = [&] { return std::get<bool>(value); };
    if (id <= kPropChartPlacementDesc) {
        PageClass& page = *state.Page;
        switch (id) {
            case kPropDescription:
                page.SetDescription(str());
                return;
            case kPropListAbbreviation:
                page.SetListAbbreviation(str());
                return;
            case kPropPageNumCharts:
                page.SetNumCharts(i16());
                return;
            default:
                page.SetChartPlacementDesc(subIndex, str());
                return;
        }
    }
    PageFormat& format = FormatAt(state, formatIndex);
    switch (id) {
        case kPropFormatYRatio:
            format.SetYRatio(single());
            return;
        case kPropNoTextYRatio:
            format.SetNoTextYRatio(single());
            return;
        case kPropNewMargin:
            format.SetNewMargin(subIndex, single());
            return;
        case kPropXPixels:
            format.SetXPixels(i16());
            return;
        case kPropYPixels:
            format.SetYPixels(i16());
            return;
        case kPropLogPixels:
            format.SetLogPixels(i16());
            return;
        case kPropForPrinter:
            format.SetForPrinter(boolean());
            return;
        default:
            break;
    }
    PageObject& obj = ObjectAt(format, objectIndex);
    switch (id) {
        case kPropObjectClassID:
            obj.SetObjectClassID(i16());
            return;
        case kPropObjectNumCharts:
            obj.SetNumCharts(i16());
            return;
        case kPropOrigin:
            obj.SetOrigin(subIndex, single());
            return;
        case kPropLength:
            obj.SetLength(subIndex, single());
            return;
        case kPropTextJustify:
            obj.SetTextJustify(i16());
            return;
        case kPropTextBottomUp:
            obj.SetTextBottomUp(i16());
            return;
        case kPropTextLines:
            obj.SetTextLines(i16());
            return;
        case kPropHorzBlocks:
            obj.SetHorzBlocks(i16());
            return;
        case kPropObjectYRatio:
            obj.SetYRatio(single());
            return;
        case kPropFrameType:
            obj.SetFrameType(i16());
            return;
        case kPropPLColumns:
            obj.SetPL_Columns(subIndex, std::get<uint8_t>(value));
            return;
        case kPropRulerships:
            obj.SetRulerships(i16());
            return;
        case kPropModulus:
            obj.SetModulus(single());
            return;
        case kPropOrb:
            obj.SetOrb(single());
            return;
        case kPropFontSize:
            obj.SetFontSize(single());
            return;
        case kPropWeighted:
            obj.SetWeighted(boolean());
            return;
        case kPropTitleOn:
            obj.SetTitleOn(boolean());
            return;
        case kPropUserCaption:
            obj.SetUserCaption(str());
            return;
        case kPropAnchorBottom:
            obj.SetAnchorBottom(boolean());
            return;
        case kPropZodiac:
            obj.SetZodiac(i16());
            return;
        case kPropForceLineColor:
            obj.SetForceLineColor(i16());
            return;
        case kPropWheelFile:
            obj.SetWheelFile(str());
            return;
        case kPropGenericFile:
            obj.SetGenericFile(str());
            return;
        case kPropAspectsFile:
            obj.SetAspectsFile(str());
            return;
        case kPropChartNum:
            obj.SetChartNum(subIndex, i16());
            return;
        default:
            obj.SetPointsFile(subIndex, str());
            return;
    }
}

}  // namespace paginox
