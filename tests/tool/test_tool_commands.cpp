#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "persist/FileIO_Page.h"
#include "support/MiniJson.h"
#include "support/RecordingMessages.h"
#include "support/TempDir.h"
#include "tool/Tool.h"

using namespace paginox;
using test::Json;

namespace {
struct ToolRun {
    int status;
    std::string out, err;
};

const std::string kSampleSystem = std::string(PAGINOX_SAMPLE_DIR) + "/System";

ToolRun Tool(std::vector<std::string> args) {
    std::ostringstream out, err;
    int status = RunTool(args, out, err);
    return {status, out.str(), err.str()};
}

// The same command with every definition file from the sample data.
ToolRun WithSample(std::vector<std::string> args) {
    args.insert(args.begin(), {"--data", kSampleSystem});
    return Tool(args);
}

// Sample catalogue classes: 1 the single wheel, 8 the asteroid list (generic file ".ast").
std::shared_ptr<PageObject> Obj(int16_t classID, const std::string& wheel,
                                const std::string& aspects, const std::string& generic = "") {
    auto o = std::make_shared<PageObject>();
    o->SetObjectClassID(classID);
    o->SetWheelFile(wheel);
    o->SetAspectsFile(aspects);
    o->SetGenericFile(generic);
    return o;
}

std::string SavedPage(const test::TempDir& dir, const std::string& name,
                      std::vector<std::shared_ptr<PageObject>> objects, int formats = 1) {
    PageClass page;
    page.InitNewPage();
    page.SetDescription("Caf\xE9 page");  // Windows-1252 e acute
    page.SetListAbbreviation("Nat");
    for (int k = 2; k <= formats; ++k) page.AddFormat(std::make_shared<PageFormat>());
    for (auto& o : objects) page.GetFormat(1)->AddObject(o);
    std::string path = dir / name;
    EXPECT_TRUE(SavePage(path, page));
    return path;
}
}  // namespace

TEST(ToolPages, InfoPrintsTheSummaryWithItsCrLfAndOneLf) {
    test::TempDir dir;
    std::string page = SavedPage(dir, "Natal.pag", {Obj(1, "Natal", ""), Obj(1, "Natal", "")});
    ToolRun r = WithSample({"info", page});
    ASSERT_EQ(r.status, kExitOk) << r.err;
    EXPECT_EQ(r.out, "File   : " + page +
                         "\r\nVers   : 4\r\nAbbr   : Nat - Desc : Caf\xC3\xA9 page\r\n"
                         "Charts : 1 -  Chart 1\r\n"
                         "  Pixels : 800x600  LogPixs=96  Printer=False\r\n"
                         "    Objects : 2 -   Nat, Nat\r\n\r\nFile: Natal.wh1\n");
}

TEST(ToolPages, RefsCollectsOverThePagesInOrderEachNameOnce) {
    test::TempDir dir;
    std::string a = SavedPage(dir, "a.pag", {Obj(1, "Natal", "Major")});
    std::string b = SavedPage(dir, "b.pag", {Obj(8, "", "Major", "Main"), Obj(1, "Natal", "")});
    ToolRun r = WithSample({"refs", a, b});
    ASSERT_EQ(r.status, kExitOk) << r.err;
    EXPECT_EQ(r.out, "Natal.wh1\nMajor.asp\nMain.ast\n");

    test::RecordingMessages messages;
    r = WithSample({"refs", a, dir / "missing.pag"});
    EXPECT_EQ(r.status, kExitFailure);
    EXPECT_EQ(r.out, "");
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].title, "Open Error");

    // A class the catalogue does not hold gives its generic file no extension.
    std::string odd = SavedPage(dir, "odd.pag", {Obj(999, "", "", "Gen")});
    r = WithSample({"refs", odd});
    EXPECT_EQ(r.status, kExitOk);
    EXPECT_EQ(r.out, "Gen\n");
}

TEST(ToolPages, XmlWritesBesideThePageOrToOut) {
    test::TempDir dir;
    std::string page = SavedPage(dir, "Natal.pag", {Obj(1, "Natal", "")});
    ToolRun r = WithSample({"xml", page});
    ASSERT_EQ(r.status, kExitOk) << r.err;
    EXPECT_EQ(r.out, dir / "Natal.xml\n");
    std::string xml = test::ReadAll(dir / "Natal.xml");
    EXPECT_TRUE(xml.starts_with("<VeltranePageDesign>\r\n  <NumFormats>1</NumFormats>\r\n"));
    EXPECT_NE(xml.find("      <ObjectName>Single Chart Wheel</ObjectName>\r\n"), std::string::npos);

    r = WithSample({"xml", page, "-o", dir / "out.txt"});
    ASSERT_EQ(r.status, kExitOk);
    EXPECT_EQ(r.out, dir / "out.txt\n");
    EXPECT_EQ(test::ReadAll(dir / "out.txt"), xml);

    test::RecordingMessages messages;
    EXPECT_EQ(WithSample({"xml", page, "-o", dir / "no/such/out.xml"}).status, kExitFailure);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].title, "File Write Error");
    // Written as pages are saved: a file that cannot be replaced keeps every byte.
    std::filesystem::permissions(dir / "out.txt", std::filesystem::perms::owner_read);
    EXPECT_EQ(WithSample({"xml", page, "-o", dir / "out.txt"}).status, kExitFailure);
    EXPECT_EQ(test::ReadAll(dir / "out.txt"), xml);
}

TEST(ToolOutput, StandardOutputThatCannotBeWrittenIsAFailure) {
    test::TempDir dir;
    std::string page = SavedPage(dir, "Natal.pag", {Obj(1, "Natal", "")});
    for (auto args :
         std::vector<std::vector<std::string>>{{"--version"}, {"classes"}, {"dump", page}}) {
        args.insert(args.begin(), {"--data", kSampleSystem});
        std::ofstream full("/dev/full");
        std::ostringstream err;
        EXPECT_EQ(RunTool(args, full, err), kExitFailure) << args.back();
        EXPECT_EQ(err.str(),
                  "paginox-tool: cannot write to standard output: No space left on device\n");
    }
}

TEST(ToolPages, ConvertSavesAnyVersionAsFour) {
    test::TempDir dir;
    test::RecordingMessages messages;
    // A version-2 page with one format of no objects, and one stray byte at the end.
    std::string header(349, ' '), format(34, '\0');
    header[0] = 2, header[1] = 0, header[107] = 1, header[108] = 0;
    format[26] = 0x20, format[27] = 3;  // 800 pixels across
    std::string in = dir.Write("old.pag", header + format + "!");
    ToolRun r = Tool({"convert", in, dir / "new.pag"});
    ASSERT_EQ(r.status, kExitOk) << r.err;
    std::string expected = header + format;
    expected[0] = 4;
    EXPECT_EQ(test::ReadAll(dir / "new.pag"), expected);

    std::string bad = dir.Write("bad.pag", header.substr(0, 100));
    EXPECT_EQ(Tool({"convert", bad, dir / "none.pag"}).status, kExitFailure);
    EXPECT_FALSE(std::filesystem::exists(dir / "none.pag"));
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].title, "Open Error");
}

TEST(ToolPages, DumpGivesThePageAsJson) {
    test::TempDir dir;
    auto wheel = Obj(1, "Natal", "Major");
    wheel->SetOrigin(1, 0.1f);
    wheel->SetTextBottomUp(-1);
    wheel->SetWeighted(true);
    wheel->SetPL_Columns(3, 200);
    wheel->SetPointsFile(1, "Main");
    wheel->SetUserCaption("\"A\\B\"\x01");
    wheel->SetModulus(131984208.0f);
    wheel->SetOrb(-2792131072.0f);
    wheel->SetFontSize(-579141566464.0f);
    std::string page = SavedPage(dir, "a.pag", {wheel}, 2);
    ToolRun r = Tool({"dump", page});
    ASSERT_EQ(r.status, kExitOk) << r.err;
    // Singles as their shortest decimal at every magnitude: not 0.10000000149011612 for 0.1,
    // nor every integer digit of a large one.
    for (const char* line : {" 0.1,\n", "\"Modulus\": 1.3198421e+08,\n",
                             "\"Orb\": -2.792131e+09,\n", "\"FontSize\": -5.7914157e+11,\n"}) {
        EXPECT_NE(r.out.find(line), std::string::npos) << line;
    }
    Json j = test::JsonParser::Parse(r.out);
    auto keys = [](const Json& o) {
        std::set<std::string> k;
        for (const auto& [name, v] : o.members) k.insert(name);
        return k;
    };
    EXPECT_EQ(keys(j),
              (std::set<std::string>{"ReadVersion", "Description", "Title", "ListAbbreviation",
                                     "NumCharts", "ChartPlacementDesc", "NumFormats", "Formats"}));
    EXPECT_EQ(j["Description"].text, "Caf\xC3\xA9 page");  // UTF-8
    ASSERT_EQ(j["Formats"].items.size(), 2u);
    const Json& f = j["Formats"].items[0];
    EXPECT_EQ(keys(f),
              (std::set<std::string>{"YRatio", "NoTextYRatio", "NewMargin", "XPixels", "YPixels",
                                     "LogPixels", "ForPrinter", "NumObjects", "Objects"}));
    const Json& o = f["Objects"].items.at(0);
    EXPECT_EQ(keys(o),
              (std::set<std::string>{
                  "ObjectClassID",  "NumCharts",  "Origin",      "Length",       "TextJustify",
                  "TextBottomUp",   "TextLines",  "HorzBlocks",  "YRatio",       "FrameType",
                  "PL_Columns",     "Rulerships", "Modulus",     "Orb",          "FontSize",
                  "Weighted",       "TitleOn",    "UserCaption", "AnchorBottom", "Zodiac",
                  "ForceLineColor", "WheelFile",  "GenericFile", "AspectsFile",  "ChartNum",
                  "PointsFile"}));
    for (const Json* b : {&f["ForPrinter"], &o["Weighted"], &o["TitleOn"], &o["AnchorBottom"]}) {
        EXPECT_EQ(b->kind, Json::Kind::Bool);
    }
    EXPECT_TRUE(o["Weighted"].boolean);
    EXPECT_EQ(o["TextBottomUp"].number, -1);
    EXPECT_EQ(o["Origin"].items[0].number, 0.1);
    EXPECT_EQ(o["PL_Columns"].items[2].number, 200);
    EXPECT_EQ(o["PointsFile"].items[0].text, "Main");
    EXPECT_EQ(o["UserCaption"].text, "\"A\\B\"\x01");
    for (auto [name, size] : {std::pair{"PL_Columns", 64u},
                              {"ChartNum", 5u},
                              {"PointsFile", 5u},
                              {"Origin", 2u},
                              {"Length", 2u}}) {
        EXPECT_EQ(o[name].items.size(), size) << name;
    }
    EXPECT_EQ(f["NewMargin"].items.size(), 4u);
    EXPECT_EQ(j["ChartPlacementDesc"].items.size(), 12u);

    // Read with format 2 alone, format 1 keeps its count and empty slots.
    r = Tool({"dump", page, "--format", "2"});
    ASSERT_EQ(r.status, kExitOk);
    Json two = test::JsonParser::Parse(r.out);
    EXPECT_EQ(two["Formats"].items[0]["NumObjects"].number, 1);
    EXPECT_TRUE(two["Formats"].items[0]["Objects"].items.at(0).IsNull());
}

TEST(ToolClasses, PrintsEveryClassOfTheSampleCatalogueWithExactKeysAndShortSingles) {
    ToolRun r = WithSample({"classes"});
    ASSERT_EQ(r.status, kExitOk) << r.err;
    EXPECT_EQ(r.err, "");
    QJsonArray all = QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).array();
    ASSERT_GE(all.size(), 24);
    QStringList keys = all[0].toObject().keys();
    keys.sort();
    QStringList expected = {"ClassID", "ObjectType", "Abbreviation", "FullName", "Description",
                            "Group", "Order", "Shape", "DefaultFixedLines", "DefaultTextLines",
                            "DefaultHorizontalBlocks", "DefaultYRatio", "NumCharts",
                            "DefaultFrameType", "OCUFlags"};
    expected.sort();
    EXPECT_EQ(keys, expected);
    for (int i = 0; i < all.size(); ++i) EXPECT_EQ(all[i].toObject()["ClassID"].toInt(), i + 1);
    // Singles print as their shortest decimal: 1.2f widened to double would print as
    // 1.2000000476837158.
    EXPECT_NE(r.out.find("\"DefaultYRatio\": 1.2,"), std::string::npos);
    EXPECT_EQ(r.out.find("1.20000"), std::string::npos);
}

TEST(ToolUsage, BadCommandLinesExitWithTwoHelpAndVersionWithZero) {
    for (auto args : std::vector<std::vector<std::string>>{{},
                                                           {"frobnicate"},
                                                           {"--colour", "classes"},
                                                           {"classes", "extra"},
                                                           {"--data", "/no/such/folder", "classes"},
                                                           {"info"},
                                                           {"info", "a", "b"},
                                                           {"refs"},
                                                           {"xml"},
                                                           {"xml", "a", "-x", "b"},
                                                           {"xml", "a", "-o"},
                                                           {"convert", "a"},
                                                           {"dump"},
                                                           {"dump", "a", "--format"},
                                                           {"dump", "a", "--format", "two"},
                                                           {"dump", "a", "--format", "99999"}}) {
        std::string line;
        for (const std::string& a : args) line += a + " ";
        EXPECT_EQ(Tool(args).status, kExitUsage) << line;
    }
    ToolRun help = Tool({"--help"});
    EXPECT_EQ(help.status, kExitOk);
    EXPECT_NE(help.out.find("Usage: paginox-tool"), std::string::npos);
    EXPECT_EQ(Tool({"--version"}).out.rfind("paginox-tool ", 0), 0u);
}
