// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "persist/FileIO_Page.h"
#include "support/Golden.h"
#include "support/RecordingMessages.h"
#include "support/ScopedAppFolders.h"
#include "support/TempDir.h"
#include "support/ToolRun.h"

using namespace paginox;
namespace fs = std::filesystem;

namespace {
using test::Tool;
using test::ToolRun;

// A page of one format holding objects of sample catalogue classes (1 the single wheel, 8 the
// asteroid list, whose generic file is ".ast"), each given as class, wheel, aspects, generic.
std::string SavedPage(const test::TempDir& dir, const std::string& name,
                      const std::vector<std::vector<std::string>>& objects) {
    PageClass page;
    page.InitNewPage();
    page.SetDescription("Caf\xE9 page"), page.SetListAbbreviation("Nat");  // Windows-1252 é
    for (const auto& fields : objects) {
        auto o = std::make_shared<PageObject>();
        o->SetObjectClassID(int16_t(std::stoi(fields[0])));
        o->SetWheelFile(fields[1]), o->SetAspectsFile(fields[2]), o->SetGenericFile(fields[3]);
        page.GetFormat(1)->AddObject(o);
    }
    EXPECT_TRUE(SavePage(dir / name, page));
    return dir / name;
}

struct ToolPages : ::testing::Test {
    test::TempDir dir;
    test::RecordingMessages messages;
    std::string natal = SavedPage(dir, "Natal.pag", {{"1", "Natal", "", ""}});
};
}  // namespace

TEST_F(ToolPages, InfoPrintsTheSummaryWithItsCrLfAndOneLf) {
    std::string page = SavedPage(dir, "Two.pag", {{"1", "Natal", "", ""}, {"1", "Natal", "", ""}});
    ToolRun r = Tool("info " + page, true);
    ASSERT_EQ(r.status, kExitOk) << r.err;
    EXPECT_EQ(r.out, "File   : " + page +
                         "\r\nVers   : 4\r\nAbbr   : Nat - Desc : Caf\xC3\xA9 page\r\n"
                         "Charts : 1 -  Chart 1\r\n"
                         "  Pixels : 800x600  LogPixs=96  Printer=False\r\n"
                         "    Objects : 2 -   Nat, Nat\r\n\r\nFile: Natal.wh1\n");
}

TEST_F(ToolPages, RefsCollectsOverThePagesInOrderEachNameOnce) {
    std::string a = SavedPage(dir, "a.pag", {{"1", "Natal", "Major", ""}});
    std::string b = SavedPage(dir, "b.pag", {{"8", "", "Major", "Main"}, {"1", "Natal", "", ""}});
    ToolRun r = Tool("refs " + a + " " + b, true);
    EXPECT_EQ(std::tuple(r.status, r.out), std::tuple(kExitOk, "Natal.wh1\nMajor.asp\nMain.ast\n"));
    // A page that cannot be read is said; the others are listed all the same.
    r = Tool("refs " + dir / "missing.pag " + a, true);
    EXPECT_EQ(std::tuple(r.status, r.out), std::tuple(kExitFailure, "Natal.wh1\nMajor.asp\n"));
    EXPECT_EQ(messages.Last().substr(0, 11), "Open Error:");
    // A class the catalogue does not hold gives its generic file no extension.
    r = Tool("refs " + SavedPage(dir, "odd.pag", {{"999", "", "", "Gen"}}), true);
    EXPECT_EQ(std::tuple(r.status, r.out), std::tuple(kExitOk, "Gen\n"));
}

TEST_F(ToolPages, XmlWritesBesideThePageOrToOut) {
    ToolRun r = Tool("xml " + natal, true);
    EXPECT_EQ(std::tuple(r.status, r.out), std::tuple(kExitOk, dir / "Natal.xml\n"));
    std::string xml = test::ReadAll(dir / "Natal.xml");
    EXPECT_NE(xml.find("\r\n      <ObjectName>Single Chart Wheel</ObjectName>\r\n"),
              std::string::npos);
    EXPECT_EQ(Tool("xml " + natal + " -o " + dir / "out.txt", true).out, dir / "out.txt\n");
    EXPECT_EQ(test::ReadAll(dir / "out.txt"), xml);
    EXPECT_EQ(Tool("xml " + natal + " -o " + dir / "no/such/out.xml", true).status, kExitFailure);
    EXPECT_EQ(messages.Last().substr(0, 17), "File Write Error:");
    // Written as pages are saved: a file that cannot be replaced keeps every byte.
    fs::permissions(dir / "out.txt", fs::perms::owner_read);
    EXPECT_EQ(Tool("xml " + natal + " -o " + dir / "out.txt", true).status, kExitFailure);
    EXPECT_EQ(test::ReadAll(dir / "out.txt"), xml);
}

TEST_F(ToolPages, StandardOutputThatCannotBeWrittenIsAFailure) {
    for (const std::string& line :
         {std::string("--version"), std::string("classes"), "dump " + natal}) {
        std::ofstream full("/dev/full");
        ToolRun r = Tool(line, true, &full);
        EXPECT_EQ(r.status, kExitFailure) << line;
        EXPECT_EQ(r.err,
                  "paginox-tool: cannot write to standard output: No space left on device\n");
    }
}

TEST_F(ToolPages, ConvertSavesAnyVersionAsFour) {
    // A version-2 page with one format of no objects, and one stray byte at the end.
    std::string header(349, ' '), format(34, '\0');
    header[0] = 2, header[1] = 0, header[107] = 1, header[108] = 0;
    format[26] = 0x20, format[27] = 3;  // 800 pixels across
    std::string in = dir.Write("old.pag", header + format + "!");
    ToolRun r = Tool("convert " + in + " " + dir / "new.pag");
    ASSERT_EQ(r.status, kExitOk) << r.err;
    header[0] = 4;
    EXPECT_EQ(test::ReadAll(dir / "new.pag"), header + format);

    std::string bad = dir.Write("bad.pag", header.substr(0, 100));
    EXPECT_EQ(Tool("convert " + bad + " " + dir / "none.pag").status, kExitFailure);
    EXPECT_FALSE(fs::exists(dir / "none.pag"));
    EXPECT_EQ(messages.Last().substr(0, 11), "Open Error:");
}

// Texts in UTF-8, singles as their shortest decimal, Booleans as true and false.
TEST_F(ToolPages, DumpGivesThePageAsJson) {
    std::string page = dir.Write("a.pag", test::GoldenBytes("pages/sample_v4.hex"));
    ToolRun r = Tool("dump " + page);
    ASSERT_EQ(r.status, kExitOk) << r.err;
    EXPECT_EQ(r.out, test::ReadAll(test::GoldenPath("tool/dump_sample_v4.json")));
    // Read with format 2 alone, format 1 keeps its count and empty slots.
    r = Tool("dump " + page + " --format 2");
    QJsonObject first =
        QJsonDocument::fromJson(QByteArray::fromStdString(r.out))["Formats"][0].toObject();
    EXPECT_EQ(first["NumObjects"].toInt(), 2);
    EXPECT_EQ(first["Objects"].toArray(), QJsonArray({QJsonValue(), QJsonValue()}));
    // Options anywhere, as --name=value too, and after -- a name that starts with "-".
    EXPECT_EQ(Tool("dump --format=2 " + page).out, r.out);
    dir.Write("-a.pag", test::GoldenBytes("pages/sample_v4.hex"));
    const std::filesystem::path here = std::filesystem::current_path();
    std::filesystem::current_path(dir.Folder());
    EXPECT_EQ(Tool("dump --format 2 -- -a.pag").out, r.out);
    std::filesystem::current_path(here);
    // Standard output as the target of convert and xml.
    EXPECT_EQ(Tool("convert " + page + " -").out, test::ReadAll(page));
    EXPECT_EQ(Tool("xml " + page + " -o -").out.rfind("<VeltranePageDesign>", 0), 0u);
    // A format the page does not have is an error, as for render.
    r = Tool("dump " + page + " --format 9");
    EXPECT_EQ(r.status, kExitUsage);
    EXPECT_EQ(r.out, "");
}

TEST(ToolClasses, PrintsEveryClassOfTheSampleCatalogueWithExactKeysAndShortSingles) {
    ToolRun r = Tool("classes", true);
    ASSERT_EQ(r.status, kExitOk) << r.err;
    EXPECT_EQ(r.err, "");
    QJsonArray all = QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).array();
    ASSERT_GE(all.size(), 24);
    EXPECT_EQ(all[0].toObject().keys().join(" "),
              "Abbreviation ClassID DefaultFixedLines DefaultFrameType DefaultHorizontalBlocks "
              "DefaultTextLines DefaultYRatio Description FullName Group NumCharts OCUFlags "
              "ObjectType Order Shape");
    for (int i = 0; i < all.size(); ++i) EXPECT_EQ(all[i].toObject()["ClassID"].toInt(), i + 1);
    // 1.2f widened to double would print as 1.2000000476837158.
    EXPECT_NE(r.out.find("\"DefaultYRatio\": 1.2,"), std::string::npos);
    EXPECT_EQ(r.out.find("1.20000"), std::string::npos);
}

TEST(ToolUsage, BadCommandLinesExitWithTwoHelpAndVersionWithZero) {
    for (const char* line :
         {"", "frobnicate", "--colour classes", "classes extra", "--data /no/such/folder classes",
          "info", "info a b", "refs", "xml", "xml a -x b", "xml a -o", "convert a", "dump",
          "dump a --format", "dump a --format two", "dump a --format 99999"}) {
        EXPECT_EQ(Tool(line).status, kExitUsage) << line;
    }
    // One line says what is wrong, one where to learn more.
    EXPECT_EQ(Tool("info a b").err,
              "paginox-tool: info takes one page file\nTry 'paginox-tool --help' for more "
              "information.\n");
    for (const char* line : {"--help", "-h", "info --help", "classes --data=/x -h"}) {
        ToolRun help = Tool(line);
        EXPECT_EQ(help.status, kExitOk) << line;
        EXPECT_EQ(help.out.rfind("Usage: paginox-tool", 0), 0u) << line;
    }
    EXPECT_EQ(Tool("--version").out.rfind("paginox-tool ", 0), 0u);
}

TEST(ToolLibrary, CatalogueAsJsonAndThumbnailsMadeOnce) {
    test::ScopedAppFolders folders;
    const std::string pages = AppFolders().Path(kPagesFolder);
    std::filesystem::create_directories(pages);
    std::filesystem::copy_file(std::string(PAGINOX_SAMPLE_DIR) + "/User Files/Pages/Poster.pag",
                               pages + "Poster.pag");
    std::ofstream(pages + "Broken.pag") << "not a page";
    ToolRun r = Tool("library", true);
    ASSERT_EQ(r.status, kExitOk) << r.err;
    // Pages by name, the unreadable one with no formats; its folder written as $PAGES/.
    for (size_t at; (at = r.out.find(pages)) != std::string::npos;)
        r.out.replace(at, pages.size(), "$PAGES/");
    EXPECT_EQ(r.out, test::ReadAll(test::GoldenPath("tool/library.json")));

    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    r = Tool("thumbnails --size 80x60", true);
    EXPECT_EQ(r.status, kExitFailure);  // the broken page
    EXPECT_EQ(r.out, "1 made, 0 already fresh, 1 could not be drawn\n");
    EXPECT_EQ(Tool("thumbnails --size 80", true).status, kExitUsage);
}
