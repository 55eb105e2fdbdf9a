// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <string>

#include "model/ModelState.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"

using namespace paginox;
using test::ErrorOf;
using test::Rect;

namespace {
// Objects named by their UserCaption, to follow them around; "-" is an empty slot.
PageFormat Lettered(const std::string& letters) {
    PageFormat f;
    for (char c : letters) {
        f.AddObject(std::make_shared<PageObject>());
        f.Object(f.NumObjects())->SetUserCaption(std::string(1, c));
    }
    return f;
}

std::string Letters(const PageFormat& f) {
    std::string s;
    for (int16_t k = 1; k <= f.NumObjects(); ++k)
        s += f.Object(k) ? f.Object(k)->UserCaption() : "-";
    return s;
}
}  // namespace

TEST(PageFormat, ObjectListGrowsWithSpareAndShrinkEmptiesSlotN) {
    PageFormat f;
    auto mine = std::make_shared<PageObject>();
    f.AddObject(mine);
    EXPECT_EQ(f.Object(1), mine);  // the caller's object, not a copy
    f.SetNumObjects(7, false);
    EXPECT_EQ(f.ObjectCapacity(), 12);
    EXPECT_EQ(f.Object(7), nullptr);
    f = Lettered("ABCD");
    f.SetNumObjects(2, false);
    EXPECT_EQ(Letters(f), "A-");
    EXPECT_EQ(ErrorOf([&] { f.SetNumObjects(32765, false); }), kOverflow);
    EXPECT_EQ(ErrorOf([&] { f.Clone(); }), kObjectNotSet);
    f.SetNumObjects(1, false);  // slot 1 emptied too
    EXPECT_EQ(ErrorOf([&] { f.ValidatePage(); }), kObjectNotSet);
    EXPECT_FALSE(PageValid());
}

TEST(PageFormat, MoveAndDeleteReorderObjects) {
    PageFormat f = Lettered("ABCD");
    f.MoveObject(1, 3);
    EXPECT_EQ(Letters(f), "BCAD");
    f = Lettered("ABCD");
    f.MoveObject(4, 2);
    EXPECT_EQ(Letters(f), "ADBC");
    for (int16_t k : {0, 5, 2}) f.DeleteObject(k);  // only 2 is there
    EXPECT_EQ(Letters(f), "ABC");
}

TEST(PageFormat, CloneIsDeepAndEqualSizeIgnoresMargins) {
    PageFormat f = Lettered("AB");
    auto copy = f.Clone();
    EXPECT_TRUE(copy->IsEqual(f));
    copy->Object(2)->SetPL_Columns(64, 1);
    EXPECT_FALSE(copy->IsEqual(f));
    EXPECT_EQ(f.Object(2)->PL_Columns(64), 0);
    // NewMargin 1 to 4 are left, top, right and bottom.
    copy->SetMargin(1, 2, 0.05f), copy->SetNewMargin(2, 0.07f);
    EXPECT_EQ(std::tuple(copy->NewMargin(1), copy->NewMargin(3), copy->Margin(2, 1)),
              std::tuple(0.01f, 0.05f, 0.07f));
    EXPECT_TRUE(copy->EqualSize(f));
    copy->SetForPrinter(true);
    EXPECT_FALSE(copy->EqualSize(f));
}

TEST(PageFormat, ValidatePageClearsWhatTheClassDoesNotUse) {
    test::ScopedModelState state;
    state.AddClass(0);
    state.AddClass(kOCUPointsFile | kOCUAspectsFile | kOCUStarFile);
    PageFormat f;
    for (int16_t id : {1, 2}) {
        auto o = std::make_shared<PageObject>();
        o->SetObjectClassID(id), o->SetFontSize(3.5f), o->SetHorzBlocks(0);
        o->SetAspectsFile("asp"), o->SetGenericFile("stars"), o->SetPointsFile(5, "pts");
        f.AddObject(o);
    }
    f.ValidatePage();
    EXPECT_TRUE(PageValid());
    const PageObject &bare = *f.Object(1), &rich = *f.Object(2);
    EXPECT_EQ(bare.FontSize(), 9.0f);
    EXPECT_EQ(bare.HorzBlocks(), 1);
    EXPECT_EQ(bare.AspectsFile() + bare.GenericFile() + bare.PointsFile(5), "");
    EXPECT_EQ(rich.AspectsFile() + "," + rich.GenericFile() + "," + rich.PointsFile(5),
              "asp,stars,pts");
}

TEST(PageFormat, FrameSizeKeepsItsProportionToThePage) {
    PageFormat f;  // usable 784 x 588
    PageObject o;
    o.SetFrameType(2);
    auto frame = [&](int32_t w, int32_t h, bool insert = false) {
        return f.GetFrameSize(&o, nullptr, Rect(0, 0, w, h), insert);
    };
    EXPECT_EQ(std::tuple(frame(784, 588), frame(392, 294)), std::tuple(4, 2));
    o.SetFrameType(1);
    EXPECT_EQ(std::tuple(frame(784, 588), frame(784, 588, true)), std::tuple(2, 0));
    PageObjectClass cls;
    cls.SetDefaultFrameType(2);
    f.SetXPixels(600), f.SetYPixels(800);  // taller than wide: the width decides
    EXPECT_EQ(f.GetFrameSize(nullptr, &cls, Rect(0, 0, 294, 10), false), 2);
}

TEST(PageFormat, TextSizeAndNearestFontSizeAgree) {
    test::ScopedModelState state;
    state.AddClass()->SetDefaultFixedLines(1);
    PageFormat f;
    PageObject o;
    // 11 lines of 20 pixels at 12 points, frame 2 and a pixel each side
    o.SetObjectClassID(1), o.SetTextLines(10), o.SetFontSize(12.0f);
    PixelSize size = f.GetTextObjectPixels(o);
    EXPECT_EQ(std::pair(size.Width, size.Height), std::pair(24 * 8 + 6, 11 * 20 + 6));
    o.SetYRatio(2.0f);
    EXPECT_EQ(f.GetTextObjectPixels(o).Width, 113);
    o.SetLength(2, float(size.Height) / f.YPixels());
    EXPECT_FLOAT_EQ(f.NearestFontSize(o, false, 4, 72), 12.0f);
    o.SetLength(2, 0.5f);  // 294 usable pixels: 27 per line, 22 -> 16.5 points
    EXPECT_FLOAT_EQ(f.NearestFontSize(o, false, 4, 72), 16.5f);
    EXPECT_FLOAT_EQ(f.NearestFontSize(o, false, 4, 14), 14.0f);
    o.SetLength(2, 0.001f);
    EXPECT_FLOAT_EQ(f.NearestFontSize(o, false, 6, 14), 6.0f);
}
