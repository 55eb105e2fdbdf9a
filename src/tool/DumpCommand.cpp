// dump: a page as it was read, as one JSON object.

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <charconv>
#include <cmath>
#include <ostream>

#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "tool/JsonValues.h"
#include "tool/Tool.h"
#include "tool/ToolCommands.h"

namespace paginox {

namespace {
// JSON has no NaN or infinity, which a damaged file can hold: those become null.
QJsonValue Single(float v) {
    return std::isfinite(v) ? JsonSingle(v) : QJsonValue();
}

template <typename Get>
QJsonArray Array(int count, Get get) {
    QJsonArray a;
    for (int16_t i = 1; i <= count; ++i) a.append(get(i));
    return a;
}

QJsonObject ObjectJson(const PageObject& o) {
    QJsonObject j;
    j["ObjectClassID"] = o.ObjectClassID();
    j["NumCharts"] = o.NumCharts();
    j["Origin"] = Array(2, [&](int16_t k) { return Single(o.Origin(k)); });
    j["Length"] = Array(2, [&](int16_t k) { return Single(o.Length(k)); });
    j["TextJustify"] = o.TextJustify();
    j["TextBottomUp"] = o.TextBottomUp();
    j["TextLines"] = o.TextLines();
    j["HorzBlocks"] = o.HorzBlocks();
    j["YRatio"] = Single(o.YRatio());
    j["FrameType"] = o.FrameType();
    j["PL_Columns"] = Array(PageObject::kMaxColumns, [&](int16_t k) { return o.PL_Columns(k); });
    j["Rulerships"] = o.Rulerships();
    j["Modulus"] = Single(o.Modulus());
    j["Orb"] = Single(o.Orb());
    j["FontSize"] = Single(o.FontSize());
    j["Weighted"] = o.Weighted();
    j["TitleOn"] = o.TitleOn();
    j["UserCaption"] = JsonText(o.UserCaption());
    j["AnchorBottom"] = o.AnchorBottom();
    j["Zodiac"] = o.Zodiac();
    j["ForceLineColor"] = o.ForceLineColor();
    j["WheelFile"] = JsonText(o.WheelFile());
    j["GenericFile"] = JsonText(o.GenericFile());
    j["AspectsFile"] = JsonText(o.AspectsFile());
    j["ChartNum"] = Array(PageObject::kMaxCharts, [&](int16_t k) { return o.ChartNum(k); });
    j["PointsFile"] =
        Array(PageObject::kMaxCharts, [&](int16_t k) { return JsonText(o.PointsFile(k)); });
    return j;
}

QJsonObject FormatJson(const PageFormat& f) {
    QJsonObject j;
    j["YRatio"] = Single(f.YRatio());
    j["NoTextYRatio"] = Single(f.NoTextYRatio());
    j["NewMargin"] = Array(4, [&](int16_t k) { return Single(f.NewMargin(k)); });
    j["XPixels"] = f.XPixels();
    j["YPixels"] = f.YPixels();
    j["LogPixels"] = f.LogPixels();
    j["ForPrinter"] = f.ForPrinter();
    j["NumObjects"] = f.NumObjects();
    // A format read for its frame only has empty slots.
    j["Objects"] = Array(f.NumObjects(), [&](int16_t i) -> QJsonValue {
        auto obj = f.Object(i);
        return obj ? QJsonValue(ObjectJson(*obj)) : QJsonValue();
    });
    return j;
}

QJsonObject PageJson(const PageClass& p) {
    QJsonObject j;
    j["ReadVersion"] = p.ReadVersion();
    j["Description"] = JsonText(p.Description());
    j["Title"] = JsonText(p.Title());
    j["ListAbbreviation"] = JsonText(p.ListAbbreviation());
    j["NumCharts"] = p.NumCharts();
    j["ChartPlacementDesc"] =
        Array(PageClass::kMaxCharts, [&](int16_t c) { return JsonText(p.ChartPlacementDesc(c)); });
    j["NumFormats"] = p.NumFormats();
    // A file's formats are always all present, selected or not.
    j["Formats"] = Array(p.NumFormats(), [&](int16_t k) { return FormatJson(*p.GetFormat(k)); });
    return j;
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
    const auto& args = options.args;
    int16_t formatIndex = -1;
    if (args.size() == 3 && args[1] == "--format") {
        formatIndex = FormatIndexArg(args[2]);
    } else if (args.size() != 1) {
        throw UsageError{"dump takes a page file and optionally --format K"};
    }
    auto page = ReadToolPage(args[0], formatIndex);
    if (!page) return kExitFailure;
    out << QJsonDocument(PageJson(*page)).toJson(QJsonDocument::Indented).toStdString();
    return kExitOk;
}

}  // namespace paginox
