// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/PropertyRows.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>

#include "core/AnsiText.h"
#include "core/NumberFormat.h"
#include "editor/AngleParser.h"
#include "editor/EditorState.h"
#include "model/DefinitionTables.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"
#include "persist/Folders.h"
#include "persist/SpecialFolders.h"

namespace paginox {

namespace {

// OCUFlags bits that decide which rows an object offers.
constexpr int32_t kOCUTextLines = 1;  // Data Lines, Data Blocks, Justification, Reverse...
constexpr int32_t kOCUAngles = 4;     // Modulus, Max Orb
constexpr int32_t kOCUScoring = 256;  // Rulerships, Weighted Scores

constexpr size_t kFileNameLength = 80;
constexpr size_t kGraphicNameLength = 255;

std::string Num(double v, char separator = UserDecimalSeparator()) {
    if (v == std::floor(v)) return FormatZero(static_cast<long long>(v));
    std::string text = ShortestDecimal(float(v));
    std::replace(text.begin(), text.end(), '.', separator);
    return text;
}

PropertyRow Row(std::string label, std::string help, int32_t id, int16_t sub, RowKind kind) {
    PropertyRow r;
    r.Label = std::move(label);
    r.Help = std::move(help);
    r.Id = id;
    r.SubIndex = sub;
    r.Kind = kind;
    return r;
}

PropertyRow NumberRow(std::string label, std::string help, int32_t id, int16_t sub, double min,
                      double max, bool whole, RowKind kind = RowKind::Number) {
    PropertyRow r = Row(std::move(label), std::move(help), id, sub, kind);
    r.Min = min;
    r.Max = max;
    r.Whole = whole;
    return r;
}

PropertyRow TextRow(std::string label, std::string help, int32_t id, int16_t sub, size_t length) {
    PropertyRow r = Row(std::move(label), std::move(help), id, sub, RowKind::Text);
    r.MaxLength = length;
    return r;
}

PropertyRow FileRow(std::string label, std::string help, int32_t id, int16_t sub, FilePicker picker,
                    size_t length = kFileNameLength) {
    PropertyRow r = Row(std::move(label), std::move(help), id, sub, RowKind::File);
    r.MaxLength = length;
    r.Picker = picker;
    return r;
}

PropertyRow ChoiceRow(std::string label, std::string help, int32_t id,
                      std::vector<std::pair<int16_t, std::string>> choices) {
    PropertyRow r = Row(std::move(label), std::move(help), id, 0, RowKind::Choice);
    r.Choices = std::move(choices);
    return r;
}

// The help texts of the generic-file rows differ only in their subject and default.
std::string GenericFileHelp(const std::string& what, const std::string& defaultName,
                            const std::string& browse) {
    return "Name of " + what +
           " (with no file extension) to be used by this object.  If left blank, then this "
           "object will use the default " +
           defaultName + ". Limited to 80 characters. (Click on the > button to browse available " +
           browse + ".)";
}

void AddPageRows(const EditorState& state, std::vector<PropertyRow>& rows) {
    rows.push_back(TextRow("List Abbrev",
                           "Abbreviation to be used when the page appears listed in Veltrane's "
                           "chart viewing screen listbox. Limited to 5 characters.",
                           kPropListAbbreviation, 0, 5));
    int16_t charts = std::min<int16_t>(state.Page->NumCharts(), PageClass::kMaxCharts);
    for (int16_t c = 1; c <= charts; ++c) {
        rows.push_back(TextRow("Chart " + FormatZero(c) + " Desc",
                               "Description of placement of chart on the page (e.g. 'Top Left' "
                               "or 'Bottom Right'). Limited to 20 characters.",
                               kPropChartPlacementDesc, c, 20));
    }
    const char* kMargins[4][3] = {
        {"MarginLeft", "Left", "width"},
        {"MarginTop", "Top", "height"},
        {"MarginRight", "Right", "width"},
        {"MarginBottom", "Bottom", "height"},
    };
    for (int16_t k = 1; k <= 4; ++k) {
        const auto& m = kMargins[k - 1];
        rows.push_back(NumberRow(m[0],
                                 std::string(m[1]) + " page margin, expressed as a ratio of page " +
                                     m[2] + ". Limited to range 0 to 0.4",
                                 kPropNewMargin, k, 0, 0.4, false));
    }
}

void AddObjectRows(const PageObject& obj, const PageObjectClass& cls,
                   std::vector<PropertyRow>& rows) {
    const bool text = cls.OCUFlag(kOCUTextLines);
    rows.push_back(NumberRow("Anchor X",
                             "Anchor position from left of page relative to page width. Must be "
                             "in range 0 to 1.",
                             kPropOrigin, 1, 0, 1, false));
    rows.push_back(NumberRow("Anchor Y",
                             "Anchor position from top of page relative to page height. Must be "
                             "in range 0 to 1.",
                             kPropOrigin, 2, 0, 1, false));
    rows.push_back(NumberRow("Width",
                             "Object width relative to page width. Must be in range 0 to 1.",
                             kPropLength, 1, 0, 1, false));
    rows.push_back(NumberRow("Height",
                             "Object height relative to page height. Must be in range 0 to 1.",
                             kPropLength, 2, 0, 1, false));
    if (text) {
        rows.push_back(NumberRow(
            "Data Lines",
            "Maximum lines of data (excluding headers and footers) likely to be displayed in "
            "this object (eg. number of chart points or aspects). This is used to determine the "
            "default shape of the object. Must be between 1 and " +
                Num(kMaxDataLines),
            kPropTextLines, 0, 1, kMaxDataLines, true));
        rows.push_back(NumberRow(
            "Data Blocks",
            "You can reduce the height of the object by splitting the data lines into blocks "
            "which sit side by side. This is used to determine the default shape of the object. "
            "Must be between 1 and the number of TextLines.",
            kPropHorzBlocks, 0, 1, std::max<int16_t>(obj.TextLines(), 1), true));
        rows.push_back(
            ChoiceRow("Justification", "Text justification flag. 0=Left 1=Right 2=Centred.",
                      kPropTextJustify, {{0, "0 = Left"}, {1, "1 = Right"}, {2, "2 = Centred"}}));
        rows.push_back(Row("Reverse",
                           "Text reversal flag. If TRUE, then text lines are written from the "
                           "bottom up instead of top down.",
                           kPropTextBottomUp, 0, RowKind::Boolean));
    }
    if (cls.OCUFlag(kOCUTitleLine)) {
        rows.push_back(Row("Title Line",
                           "Display a title line for this object? This is used to label the "
                           "object, and may also contain a reference to which chart is being "
                           "used in the box. Must be either TRUE or FALSE.",
                           kPropTitleOn, 0, RowKind::Boolean));
    }
    if (text) {
        rows.push_back(NumberRow("Font Size",
                                 "Font size to be used for text in this object. Must be between " +
                                     Num(kMinFontSize) + " and " + Num(kMaxFontSize),
                                 kPropFontSize, 0, kMinFontSize, kMaxFontSize, false));
        rows.push_back(Row("Anchor Bottom",
                           "Anchor at bottom of object. If TRUE, then if this object shrinks, it "
                           "remains anchored at the bottom of the frame instead of the top.",
                           kPropAnchorBottom, 0, RowKind::Boolean));
    }
    if (cls.ObjectType() == kUserCaptionObjectType) {
        rows.push_back(TextRow("User Caption",
                               "A caption to appear anywhere on the page. Limited to 20 "
                               "characters.",
                               kPropUserCaption, 0, 20));
    }
    rows.push_back(ChoiceRow(
        "Frame Type",
        "Thickness of frame around this object. 0 for no frame, 1 for a "
        "single line frame, 2 for a double line frame",
        kPropFrameType, {{0, "0 = No frame"}, {1, "1 = Single line"}, {2, "2 = Double line"}}));
    int16_t charts = std::min<int16_t>(obj.NumCharts(), PageObject::kMaxCharts);
    for (int16_t c = 1; c <= charts; ++c) {
        rows.push_back(NumberRow("Chart " + FormatZero(c),
                                 "Pointer to which page chart used within this object. Must be in "
                                 "range 1 to 12",
                                 kPropChartNum, c, 1, PageClass::kMaxCharts, true));
    }
    if (charts >= 1) {
        rows.push_back(ChoiceRow("Zodiac",
                                 "Zodiac type to be used by this object. 0 = Default Zodiac of "
                                 "Chart; 1 = Always Tropical; 2 = Always Sidereal",
                                 kPropZodiac,
                                 {{0, "0 = Default Zodiac of Chart"},
                                  {1, "1 = Always Tropical"},
                                  {2, "2 = Always Sidereal"}}));
    }
    rows.push_back(
        ChoiceRow("Force Color",
                  "Flag to force line/text color. 0 = Automatic (depends on color "
                  "scheme backgound color); 1 = Always Black; 2 = Always White",
                  kPropForceLineColor,
                  {{0, "0 = Automatic"}, {1, "1 = Always Black"}, {2, "2 = Always White"}}));
    if (cls.OCUFlag(kOCUAngles)) {
        rows.push_back(NumberRow("Modulus",
                                 "Modulus angle to be used by the modulus longitude column this "
                                 "object. This is ignored of the modulus column is not selected. "
                                 "Must be in the range " +
                                     Num(kMinModulus) + " to " + Num(kMaxModulus),
                                 kPropModulus, 0, kMinModulus, kMaxModulus, false, RowKind::Angle));
        rows.push_back(NumberRow("Max Orb",
                                 "Maximum orb angle to be used by this object. Must be in the "
                                 "range " +
                                     Num(kMinOrb) + " to " + Num(kMaxOrb),
                                 kPropOrb, 0, kMinOrb, kMaxOrb, false, RowKind::Angle));
    }
    if (cls.OCUFlag(kOCUScoring)) {
        std::vector<std::pair<int16_t, std::string>> sets{{0, "(Default)"}};
        const auto& rulerships = Definitions().Rulerships;
        for (size_t r = 0; r < rulerships.size() && r < 32767; ++r) {
            sets.emplace_back(static_cast<int16_t>(r + 1), rulerships[r].Name);
        }
        rows.push_back(ChoiceRow("Rulerships", "Name of rulership set to be used by this object.",
                                 kPropRulerships, std::move(sets)));
        rows.push_back(Row("Weighted Scores", "Apply weightings to scores for this object?",
                           kPropWeighted, 0, RowKind::Boolean));
    }
    if (cls.Shape() == kShapeCircle) {
        rows.push_back(FileRow("Wheel File",
                               "Name of wheel file (with no file extension) to be used by this "
                               "wheel. If left blank, then this wheel will use the default wheel "
                               "file. Limited to 80 characters. (Click on the > button to browse "
                               "available wheel files.)",
                               kPropWheelFile, 0, FilePicker::Wheel));
    }
    if (cls.OCUFlag(kOCUPointsFile)) {
        for (int16_t c = 1; c <= charts; ++c) {
            rows.push_back(FileRow("Points File " + FormatZero(c),
                                   "Name of displayed points file (with no file extension) to be "
                                   "used by chart " +
                                       FormatZero(c) +
                                       " in this object. If left blank, then this chart will use "
                                       "the default displayed points file. Limited to 80 "
                                       "characters. (Click on the > button to browse available "
                                       "points files.)",
                                   kPropPointsFile, c, FilePicker::Points));
        }
    }
    if (cls.OCUFlag(kOCUAspectsFile)) {
        rows.push_back(FileRow("Aspects File",
                               "Name of aspects file (with no file extension) to be used by this "
                               "object. If left blank, then this object will use the default "
                               "aspects file. Limited to 80 characters. (Click on the > button to "
                               "browse available aspects files.)",
                               kPropAspectsFile, 0, FilePicker::Aspects));
    }
    if (cls.OCUFlag(kOCUGraphicFile)) {
        PropertyRow r = FileRow("Graphic File",
                                "Name of graphics file (with file extension WMF, BMP, JPG, ICO, "
                                "GIF, EMF) to be used by this object. Must not be left blank. "
                                "Limited to 255 characters. (Click on the > button to browse "
                                "available graphics files.)",
                                kPropGenericFile, 0, FilePicker::Graphic, kGraphicNameLength);
        r.Required = true;
        rows.push_back(r);
    }
    struct Generic {
        int32_t Bit;
        const char* Label;
        const char* What;
        const char* Default;
        FilePicker Picker;
    };
    const Generic kGeneric[] = {
        {kOCUDignityFile, "Dignity File", "dignity/ almuten definition file", "dignity file",
         FilePicker::Dignity},
        {kOCUStarFile, "Star File", "fixed star file", "star file", FilePicker::Star},
        {kOCUArabicPartFile, "Arabic Part File", "arabic part file", "arabic part file",
         FilePicker::ArabicPart},
        {kOCUAsteroidFile, "Asteroid File", "asteroid selection file", "asteroid file",
         FilePicker::Asteroid},
        {kOCUBodyElementFile, "Body Elements File", "body elements file", "asteroid file",
         FilePicker::BodyElements},
        {kOCUExtraRingFile, "Extra Points File", "extra points file", "asteroid file",
         FilePicker::ExtraPoints},
    };
    for (const Generic& g : kGeneric) {
        if (!cls.OCUFlag(g.Bit)) continue;
        rows.push_back(FileRow(g.Label, GenericFileHelp(g.What, g.Default, "files"),
                               kPropGenericFile, 0, g.Picker));
    }
}

std::string TrimNumber(const std::string& text) {
    return Trim(text);
}

RowInput Invalid(const std::string& message) {
    return {std::nullopt, message, kInvalidValueTitle};
}

std::string RangeMessage(const PropertyRow& row, char separator) {
    return row.Label + " must be " + (row.Whole ? "a whole number" : "a number") +
           " in the range " + Num(row.Min, separator) + " to " + Num(row.Max, separator) + ".";
}

}  // namespace

std::vector<PropertyRow> BuildPropertyRows(const EditorState& state) {
    std::vector<PropertyRow> rows;
    if (!state.Page) return rows;
    if (std::shared_ptr<PageObject> obj = state.Selected()) {
        AddObjectRows(*obj, obj->POClass(), rows);
    } else if (state.CurrentFormat) {
        AddPageRows(state, rows);
    }
    return rows;
}

std::string ShownNumber(double v, char separator) {
    double rounded = std::round(v * 1e4) / 1e4;
    if (rounded == 0) rounded = 0;  // no "-0"
    std::string text = NumberText(rounded);
    std::replace(text.begin(), text.end(), '.', separator);
    return text;
}

std::string RowValueText(const EditorState& state, const PropertyRow& row, RowPlace place,
                         char separator) {
    PropertyValue value =
        GetProperty(state, row.Id, place.FormatIndex, place.ObjectIndex, row.SubIndex);
    switch (row.Kind) {
        case RowKind::Boolean:
            return PropertyText(ConvertForProperty(kPropWeighted, value));
        case RowKind::Choice: {
            auto number = std::get_if<int16_t>(&value);
            for (const auto& [code, text] : row.Choices) {
                if (number && *number == code) return text;
            }
            return PropertyText(value);
        }
        case RowKind::Number:
        case RowKind::Angle:
            if (const float* f = std::get_if<float>(&value)) return ShownNumber(*f, separator);
            if (const double* d = std::get_if<double>(&value)) return ShownNumber(*d, separator);
            return PropertyText(value);
        default:
            return PropertyText(value);
    }
}

// The typed text with the user's decimal separator turned into ".".
std::string WithPoint(std::string text, char separator) {
    std::replace(text.begin(), text.end(), separator, '.');
    return text;
}

RowInput ParseRowInput(const PropertyRow& row, const std::string& text, char separator) {
    switch (row.Kind) {
        case RowKind::Text:
        case RowKind::File: {
            if (row.MaxLength > 0 && text.size() > row.MaxLength) {
                return Invalid(row.Label + " is limited to " + FormatZero(long(row.MaxLength)) +
                               " characters.");
            }
            if (row.Required && Trim(text).empty()) {
                return Invalid(row.Label + " must not be left blank.");
            }
            return {PropertyValue(text), "", ""};
        }
        case RowKind::Boolean: {
            std::string t = Trim(text);
            if (EqualsIgnoreCase(t, "True")) return {PropertyValue(true), "", ""};
            if (EqualsIgnoreCase(t, "False")) return {PropertyValue(false), "", ""};
            return Invalid(row.Label + " must be either True or False.");
        }
        case RowKind::Choice: {
            std::string t = Trim(text);
            for (const auto& [code, choice] : row.Choices) {
                if (t == choice || t == FormatZero(code)) return {PropertyValue(code), "", ""};
            }
            return Invalid(row.Label + " must be one of the values in its list.");
        }
        case RowKind::Angle: {
            std::optional<double> degrees = ParseAngle(WithPoint(text, separator));
            if (!degrees) return {std::nullopt, AngleErrorText(), kAngleErrorTitle};
            if (*degrees < row.Min || *degrees > row.Max)
                return Invalid(RangeMessage(row, separator));
            return {PropertyValue(*degrees + 0.0), "", ""};  // + 0.0: no negative zero
        }
        case RowKind::Number: {
            // Read the same whatever the program's locale: from_chars only knows ".".
            std::string t = WithPoint(TrimNumber(text), separator);
            double v = 0;
            auto [end, ec] = std::from_chars(t.data(), t.data() + t.size(), v);
            if (t.empty() || ec != std::errc() || end != t.data() + t.size() || !std::isfinite(v)) {
                return Invalid(RangeMessage(row, separator));
            }
            if (v < row.Min || v > row.Max || (row.Whole && v != std::floor(v))) {
                return Invalid(RangeMessage(row, separator));
            }
            if (row.Whole) return {PropertyValue(static_cast<int16_t>(v)), "", ""};
            return {PropertyValue(v + 0.0), "", ""};  // + 0.0: "-0" is stored as 0
        }
    }
    return Invalid(RangeMessage(row, separator));
}

// Each picker's own filter comes first, as the host's users know it (the body element and
// extra ring filters name "*.ast" though their files end otherwise; kept). Then every
// extension the row's files can have, and every file: the host keeps other files in the same
// folders, and a user may have named one differently.
#define ALL_FILES "|All Files (*.*)|*"

PickerSpec PickerFor(FilePicker picker) {
    switch (picker) {
        case FilePicker::Wheel:  // the extension names the chart count
            return {"Wheel File",
                    "Wheel Files (*.wh)|*.wh|Wheel Files (*.wh1 to *.wh5)|"
                    "*.wh1;*.wh2;*.wh3;*.wh4;*.wh5" ALL_FILES,
                    "wh", kWheelsFolder, false};
        case FilePicker::Points:
            return {"Points File", "Points Files (*.pts)|*.pts" ALL_FILES, "pts", kPointsFolder,
                    false};
        case FilePicker::Aspects:
            return {"Aspects File", "Aspect Files (*.asp)|*.asp" ALL_FILES, "asp", kAspectsFolder,
                    false};
        case FilePicker::Graphic:
            return {"Graphic File",
                    "All Graphics Files|*.bmp;*.rle;*.wmf;*.emf;*.jpg;*.jpeg;*.ico|Bitmaps "
                    "(*.bmp)|*.bmp|Metafiles (*.wmf)|*.wmf|JPEG (*.jpg;*.jpeg)|*.jpg;*.jpeg|"
                    "Other Pictures (*.png;*.gif;*.svg)|*.png;*.gif;*.svg" ALL_FILES,
                    "bmp", kUserFolder, true};
        case FilePicker::Dignity:
            return {"Dignity File", "Dignity/Almuten Files|*.alm" ALL_FILES, "alm", kAlmutensFolder,
                    false};
        case FilePicker::Star:
            return {"Star File", "Fixed Star Files|*.fst" ALL_FILES, "fst", kPointsFolder, false};
        case FilePicker::ArabicPart:
            return {"Arabic Part File", "Arabic Part Files|*.arp" ALL_FILES, "arp", kPointsFolder,
                    false};
        case FilePicker::Asteroid:
            return {"Asteroid File", "Asteroid Files|*.ast" ALL_FILES, "ast", kPointsFolder, false};
        case FilePicker::BodyElements:
            return {"Body Elements File",
                    "Body Element Files|*.ast|Body Element Files (*.dat)|*.dat" ALL_FILES, "dat",
                    kPointsFolder, false};
        case FilePicker::ExtraPoints:
            return {"Extra Points File",
                    "Extra Ring Files|*.ast|Extra Ring Files (*.pte)|*.pte" ALL_FILES, "pte",
                    kPointsFolder, false};
        case FilePicker::None:
            break;
    }
    return {"File", "All Files|*", "", kUserFolder, true};
}
#undef ALL_FILES

std::string PickedFileValue(FilePicker picker, const std::string& path) {
    // Stored as the host will see it: under Wine, its Windows path.
    if (PickerFor(picker).KeepFullPath) return Utf8ToCp1252(ProcessSpecialFolders().HostPath(path));
    return Utf8ToCp1252(std::filesystem::path(path).stem().string());
}

}  // namespace paginox
