// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/PageJson.h"

#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "persist/JsonWriter.h"

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

}  // namespace

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

std::string ObjectsJson(const std::vector<std::shared_ptr<PageObject>>& objects) {
    JsonWriter w;
    w.BeginObject();
    w.Key("NumObjects").Int(static_cast<int64_t>(objects.size()));
    w.Key("Objects").BeginArray();
    for (const std::shared_ptr<PageObject>& obj : objects) WriteObject(w, *obj);
    w.EndArray();
    w.EndObject();
    return w.Text();
}

}  // namespace paginox
