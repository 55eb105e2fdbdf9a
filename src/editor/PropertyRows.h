// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The rows of the property list: which settings are offered for the page and its current
// format or for the selected object, with their labels, help texts and the checks a typed
// value passes before it is stored.

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/NumberFormat.h"
#include "editor/Properties.h"

namespace paginox {

class EditorState;

enum class RowKind {
    Text,     // free text up to MaxLength characters
    Number,   // a number in Min..Max (whole when Whole)
    Angle,    // an angle in Min..Max degrees, typed in any form ParseAngle reads
    Boolean,  // "True" or "False"
    Choice,   // one of Choices
    File,     // a file name, typed or picked with the > button
};

// The kinds of file a File row picks, each with its dialog's filter and starting folder.
enum class FilePicker {
    None,
    Wheel,
    Points,
    Aspects,
    Graphic,
    Dignity,
    Star,
    ArabicPart,
    Asteroid,
    BodyElements,
    ExtraPoints,
};

struct PropertyRow {
    std::string Label;  // Windows-1252, like all model text
    std::string Help;
    int32_t Id = 0;
    int16_t SubIndex = 0;
    RowKind Kind = RowKind::Text;
    double Min = 0;
    double Max = 0;
    bool Whole = false;
    size_t MaxLength = 0;
    bool Required = false;  // must not be left blank
    std::vector<std::pair<int16_t, std::string>> Choices;
    FilePicker Picker = FilePicker::None;
};

// The ranges the rows enforce where the help texts leave the numbers to us.
inline constexpr int kMaxDataLines = 100;
inline constexpr double kMinModulus = 1;
inline constexpr double kMaxModulus = 360;
inline constexpr double kMinOrb = 0;
inline constexpr double kMaxOrb = 30;
inline constexpr double kMinFontSize = 4;
inline constexpr double kMaxFontSize = 72;

// The ObjectType of the caption object, the one kind that shows a User Caption row.
inline constexpr int16_t kUserCaptionObjectType = 40;

// The selected object's rows when there is one, else the page's and the current format's.
std::vector<PropertyRow> BuildPropertyRows(const EditorState& state);

// Whose value a row shows: format and object indices as GetProperty takes them (0: the
// current format, the selected object).
struct RowPlace {
    int16_t FormatIndex = 0;
    int16_t ObjectIndex = 0;
};

// The row's current value as the list shows it (Windows-1252).
std::string RowValueText(const EditorState& state, const PropertyRow& row, RowPlace place = {},
                         char separator = UserDecimalSeparator());

// The value typed (Windows-1252) checked against the row: the value to store, or the message
// that explains what is wrong (Title for the message box).
struct RowInput {
    std::optional<PropertyValue> Value;
    std::string Message;
    std::string Title;
};
// Numbers and angles may be typed with "." or with separator, the user's decimal separator.
RowInput ParseRowInput(const PropertyRow& row, const std::string& text,
                       char separator = UserDecimalSeparator());

// A number as the list shows it: rounded to at most four decimals, no trailing zeros, with
// the user's decimal separator (a dragged object's 0.54456824 shows as 0.5446).
std::string ShownNumber(double v, char separator = UserDecimalSeparator());

inline constexpr const char* kInvalidValueTitle = "Invalid Value";

// The file dialog of a picker: its title subject ("Select " + Subject), filter (classic
// "Text|pattern" form), the folder table entry it starts in, and whether the stored name
// keeps its folder and extension (graphics) or is the bare name (definition files).
struct PickerSpec {
    const char* Subject;
    const char* Filter;
    const char* DefaultExtension;
    int16_t Folder;
    bool KeepFullPath;
};
PickerSpec PickerFor(FilePicker picker);

// What a picked path (native, UTF-8) is stored as, in Windows-1252: the full path, or the bare
// file name without its folder and extension.
std::string PickedFileValue(FilePicker picker, const std::string& path);

}  // namespace paginox
