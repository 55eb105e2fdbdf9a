#include <gtest/gtest.h>

#include <algorithm>

#include "model/ModelState.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "persist/XMLOutPage.h"
#include "support/Golden.h"
#include "support/RecordingMessages.h"
#include "support/TempDir.h"

using namespace paginox;

namespace {
std::shared_ptr<PageObject> ListObject() {
    auto o = std::make_shared<PageObject>();
    o->SetObjectClassID(1);
    o->SetNumCharts(2);
    o->SetOrigin(1, 0.5f), o->SetOrigin(2, 0.0f), o->SetLength(1, 1.0f), o->SetLength(2, 12.345f);
    o->SetTextJustify(-2), o->SetTextBottomUp(-1), o->SetTextLines(14), o->SetHorzBlocks(2);
    o->SetYRatio(0.756f), o->SetFrameType(2), o->SetRulerships(3);
    o->SetModulus(22.5f), o->SetOrb(0.004f), o->SetFontSize(9);
    o->SetWeighted(true), o->SetTitleOn(false);
    o->SetUserCaption("Sun & <Moon>");
    o->SetZodiac(1), o->SetForceLineColor(12), o->SetAspectsFile("Major");
    o->SetAnchorBottom(true);
    o->SetPL_Columns(1, 5), o->SetPL_Columns(17, 200), o->SetPL_Columns(64, 9);
    o->SetChartNum(1, 3), o->SetChartNum(2, 1), o->SetPointsFile(2, "Main");
    return o;
}

// The page's XML translation, written to a file and read back.
std::string Translation(const PageClass& page) {
    test::TempDir dir;
    EXPECT_TRUE(XMLOutPage().WriteToXML(dir / "a.xml", page));
    return test::ReadAll(dir / "a.xml");
}
}  // namespace

TEST(XMLOutPage, WritesTheElementTreeInOrderWithCrLf) {
    test::ScopedModelState state;
    state.AddClass()->SetFullName("Point List");
    test::RecordingMessages messages;
    PageClass page;
    EXPECT_EQ(Translation(page), test::GoldenText("xml/pages.xml", "no formats", "\r\n"));
    auto format = std::make_shared<PageFormat>();
    format->SetXPixels(1024), format->SetYPixels(-768), format->SetLogPixels(120);
    format->SetForPrinter(true);
    format->AddObject(ListObject());
    auto bare = std::make_shared<PageObject>();
    bare->SetObjectClassID(40);  // not in the catalogue: no name to give
    bare->SetNumCharts(0);
    format->AddObject(bare);
    page.AddFormat(format);
    std::string translation = Translation(page);
    EXPECT_EQ(translation, test::GoldenText("xml/pages.xml", "two objects", "\r\n"));
    EXPECT_TRUE(messages.shown.empty());

    // A "," locale changes the singles and nothing else (no other text here holds a ".").
    test::TempDir dir;
    ASSERT_TRUE(XMLOutPage(',').WriteToXML(dir / "comma.xml", page));
    std::replace(translation.begin(), translation.end(), '.', ',');
    EXPECT_EQ(test::ReadAll(dir / "comma.xml"), translation);
}

TEST(XMLOutPage, OutputNameReplacesOnlyAnExactPagEnding) {
    std::string names;
    for (const char* page :
         {"/p/Natal.pag", "/p/Natal.Pag", "/p/Natal.PAG", "/p/N", "a.pag.b", ".pag"})
        names += XmlNameFor(page) + " ";
    EXPECT_EQ(names, "/p/Natal.xml /p/Natal.Pag.xml /p/Natal.PAG.xml /p/N.xml a.pag.b.xml .xml ");
}

TEST(XMLOutPage, TranslateShowsTheThreeMessages) {
    test::ScopedModelState state;
    test::TempDir dir;
    test::RecordingMessages messages;
    PageClass page;
    EXPECT_EQ(TranslateToXML(dir / "a.pag", nullptr), std::nullopt);
    EXPECT_EQ(TranslateToXML("", &page), std::nullopt);
    EXPECT_EQ(TranslateToXML(dir / "no/such/Natal.pag", &page), std::nullopt);
    // An existing translation is overwritten without asking.
    dir.Write("Natal.Pag.xml", std::string(5000, 'x'));
    EXPECT_EQ(TranslateToXML(dir / "Natal.Pag", &page), dir / "Natal.Pag.xml");
    EXPECT_EQ(test::ReadAll(dir / "Natal.Pag.xml").size(), 75u);
    EXPECT_EQ(messages.Transcript({{dir.Folder(), "$DIR/"}}),
              test::GoldenText("persist/messages.txt", "translations"));
}
