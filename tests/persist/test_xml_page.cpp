#include <gtest/gtest.h>

#include <algorithm>

#include "model/ModelState.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "persist/XMLOutPage.h"
#include "support/RecordingMessages.h"
#include "support/TempDir.h"

using namespace paginox;

namespace {
// Lines joined with CR LF, each indented by the number of spaces given.
std::string Lines(std::initializer_list<std::pair<int, const char*>> lines) {
    std::string text;
    for (const auto& [indent, line] : lines) text += std::string(indent, ' ') + line + "\r\n";
    return text;
}

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
}  // namespace

TEST(XMLOutPage, WritesTheElementTreeInOrder) {
    test::ScopedModelState state;
    state.AddClass()->SetFullName("Point List");
    test::TempDir dir;
    test::RecordingMessages messages;
    PageClass page;
    auto format = std::make_shared<PageFormat>();
    format->SetXPixels(1024), format->SetYPixels(-768), format->SetLogPixels(120);
    format->SetForPrinter(true);
    format->AddObject(ListObject());
    page.AddFormat(format);

    ASSERT_TRUE(XMLOutPage().WriteToXML(dir / "a.xml", page));
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(test::ReadAll(dir / "a.xml"),
              Lines({{0, "<VeltranePageDesign>"},
                     {2, "<NumFormats>1</NumFormats>"},
                     {2, "<PageFormat>"},
                     {4, "<Dimensions>1024,-768</Dimensions>"},
                     {4, "<LogPixels>120</LogPixels>"},
                     {4, "<ForPrinter>True</ForPrinter>"},
                     {4, "<NumObjects>1</NumObjects>"},
                     {4, "<Object>"},
                     {6, "<ObjectClass>1</ObjectClass>"},
                     {6, "<ObjectName>Point List</ObjectName>"},
                     {6, "<NumCharts>2</NumCharts>"},
                     {6, "<Origin1>.5</Origin1>"},
                     {6, "<Origin2>.</Origin2>"},
                     {6, "<Length1>1.</Length1>"},
                     {6, "<Length2>12.35</Length2>"},
                     {6, "<TextJustify>-2</TextJustify>"},
                     {6, "<TextBottomUp>-1</TextBottomUp>"},
                     {6, "<TextLines>14</TextLines>"},
                     {6, "<HorizontalBlocks>2</HorizontalBlocks>"},
                     {6, "<YRatio>.76</YRatio>"},
                     {6, "<FrameType>2</FrameType>"},
                     {6, "<Rulerships>3</Rulerships>"},
                     {6, "<Modulus>22.5</Modulus>"},
                     {6, "<Orb>.</Orb>"},
                     {6, "<FontSize>9.</FontSize>"},
                     {6, "<Weighted>True</Weighted>"},
                     {6, "<TitleOn>False</TitleOn>"},
                     {6, "<UserCaption>Sun & <Moon></UserCaption>"},  // raw, deliberately
                     {6, "<Zodiac>1</Zodiac>"},
                     {6, "<ForceLineColor>12</ForceLineColor>"},
                     {6, "<AspectsFile>Major</AspectsFile>"},  // empty wheel and generic: none
                     {6, "<AnchorBottom>True</AnchorBottom>"},
                     {6, "<Columns>"},
                     {8, "<Col1>5</Col1>"},
                     {8, "<Col17>200</Col17>"},
                     {8, "<Col64>9</Col64>"},
                     {6, "</Columns>"},
                     {6, "<Charts>"},
                     {8, "<Chart1>"},
                     {10, "<ChartNum>3</ChartNum>"},
                     {8, "</Chart1>"},
                     {8, "<Chart2>"},
                     {10, "<ChartNum>1</ChartNum>"},
                     {10, "<PointsFile>Main</PointsFile>"},
                     {8, "</Chart2>"},
                     {6, "</Charts>"},
                     {4, "</Object>"},
                     {2, "</PageFormat>"},
                     {0, "</VeltranePageDesign>"}}));

    // A "," locale changes the singles and nothing else (no other text here holds a ".").
    ASSERT_TRUE(XMLOutPage(',').WriteToXML(dir / "comma.xml", page));
    std::string expected = test::ReadAll(dir / "a.xml");
    std::replace(expected.begin(), expected.end(), '.', ',');
    EXPECT_EQ(test::ReadAll(dir / "comma.xml"), expected);
}

TEST(XMLOutPage, EmptyPartsKeepTheirElements) {
    test::ScopedModelState state;  // an empty catalogue: the class has no name to give
    test::TempDir dir;
    PageClass none;
    ASSERT_TRUE(XMLOutPage().WriteToXML(dir / "none.xml", none));
    EXPECT_EQ(test::ReadAll(dir / "none.xml"), Lines({{0, "<VeltranePageDesign>"},
                                                      {2, "<NumFormats>0</NumFormats>"},
                                                      {0, "</VeltranePageDesign>"}}));

    PageClass page;
    auto format = std::make_shared<PageFormat>();
    auto bare = std::make_shared<PageObject>();
    bare->SetObjectClassID(40);
    bare->SetNumCharts(0);
    format->AddObject(bare);
    page.AddFormat(format);
    ASSERT_TRUE(XMLOutPage().WriteToXML(dir / "bare.xml", page));
    std::string text = test::ReadAll(dir / "bare.xml");
    EXPECT_NE(text.find("<ObjectClass>40</ObjectClass>\r\n      <NumCharts>0</NumCharts>"),
              std::string::npos);
    EXPECT_NE(text.find("      <Columns>\r\n      </Columns>\r\n"
                        "      <Charts>\r\n      </Charts>\r\n    </Object>"),
              std::string::npos);
}

TEST(XMLOutPage, OutputNameReplacesOnlyAnExactPagEnding) {
    EXPECT_EQ(XmlNameFor("/p/Natal.pag"), "/p/Natal.xml");
    EXPECT_EQ(XmlNameFor("/p/Natal.Pag"), "/p/Natal.Pag.xml");
    EXPECT_EQ(XmlNameFor("/p/Natal.PAG"), "/p/Natal.PAG.xml");
    EXPECT_EQ(XmlNameFor("/p/Natal"), "/p/Natal.xml");
    EXPECT_EQ(XmlNameFor("/p/a.pag.bak"), "/p/a.pag.bak.xml");
    EXPECT_EQ(XmlNameFor(".pag"), ".xml");
}

TEST(XMLOutPage, TranslateShowsTheThreeMessages) {
    test::ScopedModelState state;
    test::TempDir dir;
    test::RecordingMessages messages;
    PageClass page;
    EXPECT_EQ(TranslateToXML(dir / "a.pag", nullptr), std::nullopt);
    EXPECT_EQ(TranslateToXML("", &page), std::nullopt);
    ASSERT_EQ(messages.shown.size(), 2u);
    EXPECT_EQ(messages.shown[0].text, "No current file loaded");
    EXPECT_EQ(messages.shown[0].title, "Cannot translate");

    messages.shown.clear();
    std::string missing = dir / "no/such/Natal.pag";
    EXPECT_EQ(TranslateToXML(missing, &page), std::nullopt);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text, "Could not write to file " + dir / "no/such/Natal.xml");
    EXPECT_EQ(messages.shown[0].title, "File Write Error");
    EXPECT_EQ(messages.shown[0].icon, MsgIcon::None);

    // An existing translation is overwritten without asking.
    messages.shown.clear();
    dir.Write("Natal.Pag.xml", std::string(5000, 'x'));
    EXPECT_EQ(TranslateToXML(dir / "Natal.Pag", &page), dir / "Natal.Pag.xml");
    EXPECT_EQ(test::ReadAll(dir / "Natal.Pag.xml").size(), 75u);
    EXPECT_TRUE(messages.shown.empty());
}
