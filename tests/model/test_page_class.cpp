// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/ModelState.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "support/Golden.h"

using namespace paginox;
using test::ErrorOf;

namespace {
std::shared_ptr<PageObject> AddObject(PageFormat& f, int16_t classID) {
    auto o = std::make_shared<PageObject>();
    o->SetObjectClassID(classID);
    f.AddObject(o);
    return o;
}

// An object's wheel, aspects and generic files, then its points files from 1.
void SetFiles(PageObject& o, std::vector<std::string> files) {
    o.SetWheelFile(files[0]), o.SetAspectsFile(files[1]), o.SetGenericFile(files[2]);
    for (size_t k = 3; k < files.size(); ++k) o.SetPointsFile(int16_t(k - 2), files[k]);
}
}  // namespace

TEST(PageClass, NewPageHasOneDefaultFormatAndTwelveChartSlots) {
    PageClass p;
    p.SetTitle("Kept");
    p.InitNewPage();
    EXPECT_EQ(p.Title() + " " + p.ChartPlacementDesc(12), "Kept Chart 12");
    EXPECT_EQ(ErrorOf([&] { p.ChartPlacementDesc(13); }), kSubscriptOutOfRange);
    p.SetNumCharts(2);
    p.GetFormat(1)->SetForPrinter(true);
    EXPECT_EQ(p.PageSummary("a"), test::GoldenText("model/summaries.txt", "new page", "\r\n"));
}

TEST(PageClass, FormatStorageGrowsWithSpareAndTheLastFormatStays) {
    PageClass p;
    p.SetNumFormats(3, true);
    EXPECT_EQ(p.FormatAllocation(), 8);
    auto third = p.GetFormat(3);
    for (int16_t k : {0, 4, 1}) p.DeleteFormat(k);  // only 1 is there to delete
    EXPECT_EQ(p.GetFormat(2), third);
    EXPECT_EQ(p.GetFormat(8), nullptr);  // within storage: accepted
    EXPECT_EQ(ErrorOf([&] { p.GetFormat(9); }), kSubscriptOutOfRange);
    p.DeleteFormat(1), p.DeleteFormat(1);
    EXPECT_EQ(p.NumFormats(), 1);
    auto mine = std::make_shared<PageFormat>();
    p.AddFormat(mine);
    EXPECT_EQ(p.GetFormat(2), mine);
}

TEST(PageClass, CloneAndEqualityIgnoreTitleAndVersion) {
    PageClass p;
    p.InitNewPage();
    p.SetTitle("Natal"), p.SetReadVersion(3);
    AddObject(*p.GetFormat(1), 1);
    auto copy = p.Clone();
    EXPECT_EQ(copy->Title() + std::to_string(copy->ReadVersion()), "0");
    EXPECT_TRUE(copy->IsEqual(&p));
    EXPECT_FALSE(p.IsEqual(nullptr));
    copy->SetChartPlacementDesc(12, "chart 12");
    EXPECT_FALSE(copy->IsEqual(&p));
    copy = p.Clone();
    copy->GetFormat(1)->Object(1)->SetZodiac(2);
    EXPECT_FALSE(p.IsEqual(copy.get()));
}

TEST(PageClass, MaxNumChartsAndAnEmptyFormatSlot) {
    PageClass p;
    EXPECT_EQ(p.MaxNumCharts(), 0);
    p.SetNumFormats(2, true);
    AddObject(*p.GetFormat(2), 1)->SetChartNum(1, 4);
    auto o = AddObject(*p.GetFormat(1), 1);
    o->SetChartNum(1, 2), o->SetChartNum(2, 9);  // 9 beyond the object's NumCharts: not in use
    EXPECT_EQ(p.MaxNumCharts(), 4);
    p.SetNumFormats(3, false);
    EXPECT_EQ(ErrorOf([&] { p.MaxNumCharts(); }), kObjectNotSet);
    EXPECT_EQ(ErrorOf([&] { p.Clone(); }), kObjectNotSet);
    EXPECT_EQ(ErrorOf([&] { p.PageSummary("x"); }), kObjectNotSet);
}

TEST(PageClass, ReferencesListEachFileOnceWithItsExtension) {
    test::ScopedModelState state;
    state.AddClass(0);
    state.AddClass(kOCUStarFile | kOCUBodyElementFile);
    PageClass p;
    p.InitNewPage();
    PageFormat& f = *p.GetFormat(1);
    auto a = AddObject(f, 1), b = AddObject(f, 2);
    a->SetNumCharts(2), b->SetNumCharts(2);
    SetFiles(*a, {"Natal", "  ", "Plain", "", "  ", "", "", "Five"});
    SetFiles(*b, {"Natal", "Major", "Stars"});
    AddObject(f, 2);  // refers to nothing
    int16_t count = 1;
    std::vector<std::string> list{"Major.asp"};
    p.PageReferences(count, list);
    EXPECT_EQ(count, 6);
    EXPECT_EQ(list, (std::vector<std::string>{"Major.asp", "Natal.wh2", "Plain", "  .pts",
                                              "Five.pts", "Stars.dat"}));
}

TEST(PageClass, SummaryShowsCountsAndItsOwnFileList) {
    test::ScopedModelState state;
    state.AddClass(kOCUDignityFile);
    PageClass p;
    p.InitNewPage();
    p.SetReadVersion(3), p.SetListAbbreviation("Nat"), p.SetDescription("Natal page");
    SetFiles(*AddObject(*p.GetFormat(1), 1),
             {"Natal", "Major", "Dig", "Main", "", "   ", "", "Five"});
    AddObject(*p.GetFormat(1), 1);
    EXPECT_EQ(p.PageSummary("C:\\Pages\\Natal.pag") + "\r\n",
              test::GoldenText("model/summaries.txt", "natal page", "\r\n"));
}
