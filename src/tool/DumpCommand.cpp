// SPDX-License-Identifier: GPL-3.0-or-later
// dump: a page as it was read, as one JSON object.

#include <charconv>
#include <ostream>

#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "tool/JsonWriter.h"
#include "tool/Tool.h"
#include "tool/ToolCommands.h"

namespace paginox {

namespace {
// Writes values 1..count of a 1-based member as a JSON array.
template <typename WriteOne>
void Array(JsonWriter& w, const std::string& key, int count, WriteOne writeOne) {
    w.Key(key).BeginArray();
    for (int16_t i = 1; i <= count; ++i) writeOne(i);
    w.EndArray();
}

void WriteObject(JsonWriter& w, const PageObject& o) {
    w.BeginObject();
    w.Key("ObjectClassID").Int(o.ObjectClassID());
    w.Key("NumCharts").Int(o.NumCharts());
    Array(w, "Origin", 2, [&](int16_t k) { w.Single(o.Origin(k)); });
    Array(w, "Length", 2, [&](int16_t k) { w.Single(o.Length(k)); });
    w.Key("TextJustify").Int(o.TextJustify());
    w.Key("TextBottomUp").Int(o.TextBottomUp());
    w.Key("TextLines").Int(o.TextLines());
    w.Key("HorzBlocks").Int(o.HorzBlocks());
    w.Key("YRatio").Single(o.YRatio());
    w.Key("FrameType").Int(o.FrameType());
    Array(w, "PL_Columns", PageObject::kMaxColumns, [&](int16_t k) { w.Int(o.PL_Columns(k)); });
    w.Key("Rulerships").Int(o.Rulerships());
    w.Key("Modulus").Single(o.Modulus());
    w.Key("Orb").Single(o.Orb());
    w.Key("FontSize").Single(o.FontSize());
    w.Key("Weighted").Bool(o.Weighted());
    w.Key("TitleOn").Bool(o.TitleOn());
    w.Key("UserCaption").Ansi(o.UserCaption());
    w.Key("AnchorBottom").Bool(o.AnchorBottom());
    w.Key("Zodiac").Int(o.Zodiac());
    w.Key("ForceLineColor").Int(o.ForceLineColor());
    w.Key("WheelFile").Ansi(o.WheelFile());
    w.Key("GenericFile").Ansi(o.GenericFile());
    w.Key("AspectsFile").Ansi(o.AspectsFile());
    Array(w, "ChartNum", PageObject::kMaxCharts, [&](int16_t k) { w.Int(o.ChartNum(k)); });
    Array(w, "PointsFile", PageObject::kMaxCharts, [&](int16_t k) { w.Ansi(o.PointsFile(k)); });
    w.EndObject();
}

void WriteFormat(JsonWriter& w, const PageFormat& f) {
    w.BeginObject();
    w.Key("YRatio").Single(f.YRatio());
    w.Key("NoTextYRatio").Single(f.NoTextYRatio());
    Array(w, "NewMargin", 4, [&](int16_t k) { w.Single(f.NewMargin(k)); });
    w.Key("XPixels").Int(f.XPixels());
    w.Key("YPixels").Int(f.YPixels());
    w.Key("LogPixels").Int(f.LogPixels());
    w.Key("ForPrinter").Bool(f.ForPrinter());
    w.Key("NumObjects").Int(f.NumObjects());
    // A format read for its frame only has empty slots.
    Array(w, "Objects", f.NumObjects(), [&](int16_t i) {
        if (auto obj = f.Object(i)) {
            WriteObject(w, *obj);
        } else {
            w.Null();
        }
    });
    w.EndObject();
}

std::string PageJson(const PageClass& p) {
    JsonWriter w;
    w.BeginObject();
    w.Key("ReadVersion").Int(p.ReadVersion());
    w.Key("Description").Ansi(p.Description());
    w.Key("Title").Ansi(p.Title());
    w.Key("ListAbbreviation").Ansi(p.ListAbbreviation());
    w.Key("NumCharts").Int(p.NumCharts());
    Array(w, "ChartPlacementDesc", PageClass::kMaxCharts,
          [&](int16_t c) { w.Ansi(p.ChartPlacementDesc(c)); });
    w.Key("NumFormats").Int(p.NumFormats());
    // A file's formats are always all present, selected or not.
    Array(w, "Formats", p.NumFormats(), [&](int16_t k) { WriteFormat(w, *p.GetFormat(k)); });
    w.EndObject();
    return w.Text();
}

int16_t FormatIndexArg(const std::string& text) {
    int16_t k = 0;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), k);
    if (ec != std::errc() || end != text.data() + text.size()) {
        throw UsageError{"--format takes a whole number, not " + text};
    }
    return k;
}
}  // namespace

int CommandDump(const ToolOptions& options, std::ostream& out) {
    std::vector<std::string> args = options.args;
    std::optional<std::string> format = TakeOption(args, "--format");
    if (args.size() != 1) throw UsageError{"dump takes a page file and optionally --format K"};
    int16_t formatIndex = format ? FormatIndexArg(*format) : int16_t(-1);
    auto page = ReadToolPage(args[0], formatIndex);
    if (!page) return kExitFailure;
    if (formatIndex > page->NumFormats()) {
        throw UsageError{"the page has " + std::to_string(page->NumFormats()) +
                         " formats; there is no format " + std::to_string(formatIndex)};
    }
    out << PageJson(*page);
    return kExitOk;
}

}  // namespace paginox
