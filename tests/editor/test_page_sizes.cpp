// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "core/Rounding.h"
#include "editor/EditStep.h"
#include "editor/EditorFixture.h"
#include "editor/EditorHistory.h"
#include "editor/ListColumns.h"
#include "editor/PageSizeSetup.h"
#include "support/RecordingMessages.h"
#include "support/ScriptedPrinter.h"

namespace paginox {
namespace {

PageFormat Format(int16_t x, int16_t y, bool printer = false) {
    PageFormat f;
    f.SetXPixels(x);
    f.SetYPixels(y);
    f.SetForPrinter(printer);
    return f;
}

// What the two pixel boxes show.
std::string Boxes(const PageSizeSetup& setup) {
    return setup.PixelsText(0) + "x" + setup.PixelsText(1);
}

TEST(PageSizeSetup, OptionsPrinterPaperAndTheEnteredSize) {
    test::ScriptedPrinter printer;
    printer.Page = PrinterPage{2400.7, 3300.2, 300};
    std::pair<PageFormat, int> cases[] = {{Format(929, 749), 2},
                                          {Format(930, 749), 12},
                                          {Format(1505, 5), 6},
                                          {Format(545, 461, true), 11}};
    for (const auto& [format, option] : cases) {
        EXPECT_EQ(PageSizeSetup(format, 96, printer).Option(), option) << format.XPixels();
    }
    // The printer's option shows the whole pixels of its printable page at its resolution.
    PageSizeSetup onPrinter(Format(545, 461, true), 96, printer);
    EXPECT_EQ(Boxes(onPrinter), "2400x3300");
    EXPECT_EQ(onPrinter.Working().LogPixels(), 300);

    // Options, the printer and paper sizes.
    test::RecordingMessages messages;
    printer.Page.reset();  // none at first
    PageSizeSetup setup(Format(930, 749), 120, printer);
    setup.ChooseOption(2);
    EXPECT_EQ(Boxes(setup), "929x749");
    EXPECT_EQ(setup.Working().LogPixels(), 120);
    setup.ChooseOption(PageSizeSetup::kPrinterOption);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text, kPrinterUnreachableText);
    EXPECT_EQ(Boxes(setup), "929x749");  // kept

    printer.Page = PrinterPage{4960, 7015, 600};
    printer.Setup = PrinterAccess::SetupResult::Cancelled;
    setup.PrinterSetup();
    EXPECT_EQ(setup.Working().XPixels(), 930);
    printer.Setup = PrinterAccess::SetupResult::Chosen;
    setup.PrinterSetup();
    EXPECT_EQ(Boxes(setup), "4960x7015");
    EXPECT_EQ(setup.Working().LogPixels(), 600);
    setup.UsePaper(0, false, 300);  // A4
    EXPECT_EQ(Boxes(setup), "2480x3508");
    setup.UsePaper(3, true, 72);  // Letter across
    EXPECT_EQ(Boxes(setup), "792x612");
    EXPECT_EQ(setup.Working().LogPixels(), 72);

    setup.ChooseOption(PageSizeSetup::kUserOption);
    for (const char* bad : {"", "0", "12a", "40000", "-5"}) {
        setup.SetPixelsText(1, bad);
        EXPECT_FALSE(setup.EnteredSize()) << bad;
    }
    EXPECT_EQ(messages.shown.back().title, "Invalid Value");
    setup.SetPixelsText(1, " 500 ");
    EXPECT_EQ(setup.EnteredSize()->Height, 500);
}

TEST(PageSizes, AddingASizeSizesTextObjectsAfreshOrShowsTheEqualFormat) {
    test::EditorFixture fx;
    fx.box->SetOCUFlags(fx.box->OCUFlags() | kOCUTextObject);
    PageFormat working = *fx.state.CurrentFormat->Clone();
    working.SetNoTextYRatio(0.5f);

    AddedSize same = AddPageSize(fx.state, working, {800, 600});
    EXPECT_EQ(std::tuple(same.Added, same.Index, fx.state.Page->NumFormats()),
              std::tuple(false, 1, 1));

    AddedSize added = AddPageSize(fx.state, working, {400, 1000});
    ASSERT_TRUE(added.Added);
    EXPECT_EQ(fx.state.CurrentFormatIndex, 2);
    EXPECT_TRUE(fx.state.PageChanged);
    const PageFormat& f = *fx.state.CurrentFormat;
    EXPECT_EQ(std::tuple(f.YRatio(), f.NoTextYRatio()), std::tuple(2.5f, 2.5f));
    // The text object takes its text's pixels on the new size; the wheel keeps its share.
    PixelSize need = f.GetTextObjectPixels(*f.Object(1));
    EXPECT_FLOAT_EQ(f.Object(1)->Length(1), need.Width / 400.0f);
    EXPECT_FLOAT_EQ(f.Object(1)->Length(2), need.Height / 1000.0f);
    EXPECT_FLOAT_EQ(f.Object(2)->Length(1), fx.state.Page->GetFormat(1)->Object(2)->Length(1));

    // Text too large for the page shrinks on both axes alike.
    fx.state.Page->GetFormat(1)->Object(1)->SetFontSize(72);
    AddedSize tiny = AddFormatOfSize(*fx.state.Page, *fx.state.Page->GetFormat(1), {60, 90});
    const PageObject& big = *fx.state.Page->GetFormat(tiny.Index)->Object(1);
    need = fx.state.Page->GetFormat(tiny.Index)->GetTextObjectPixels(big);
    EXPECT_FLOAT_EQ(std::max(big.Length(1), big.Length(2)), 1.0f);
    EXPECT_NEAR(big.Length(1) / big.Length(2), (need.Width / 60.0) / (need.Height / 90.0), 1e-5);
}

TEST(ListColumns, ChooseOrderApplyAndUndo) {
    test::EditorFixture fx;
    fx.box->SetObjectType(kTypePointList);
    Definitions().PointList.Entries = {{5, 0, "Sign", 1}, {7, 0, "House", 0}, {9, 0, "Decl", 1}};
    PageObject& obj = fx.Object(1);
    for (int16_t k = 1; k <= 3; ++k) obj.SetPL_Columns(k, uint8_t(k == 2 ? 200 : 9 - k * 2));
    ListColumns columns(obj);  // 7, 200, 3
    // The box's width is a share of the printable area, inside the margins.
    obj.SetLength(1, 0.5f);
    EXPECT_EQ(ListColumns(obj).BoxWidth(*fx.state.CurrentFormat),
              ToInt32(fx.state.CurrentFormat->PrintablePixels(1) * 0.5));
    EXPECT_EQ(columns.Label(200), "Column 200");
    ASSERT_EQ(columns.Available().size(), 2u);  // 5 and 9

    EXPECT_FALSE(columns.Add(7, 0));  // already chosen
    EXPECT_TRUE(columns.Add(9, 1));
    columns.Move(0, 3);
    columns.Remove(2);
    EXPECT_EQ(columns.Chosen(), (std::vector<uint8_t>{9, 200, 7}));
    int32_t wider = columns.NeededWidth(*fx.state.CurrentFormat);
    columns.Remove(0);
    EXPECT_LT(columns.NeededWidth(*fx.state.CurrentFormat), wider);

    EditorHistory history(fx.state);
    {
        EditStep step(history);
        EXPECT_TRUE(columns.Apply(step, 1, 1));
    }
    EXPECT_EQ(std::tuple(obj.PL_Columns(1), obj.PL_Columns(3), history.Count()),
              std::tuple(200, 0, 1));
    history.Undo();
    EXPECT_EQ(std::tuple(obj.PL_Columns(1), obj.PL_Columns(3)), std::tuple(7, 3));

    columns.Defaults();
    EXPECT_EQ(columns.Chosen(), (std::vector<uint8_t>{5, 9}));
    for (int code = 10; code < 80; ++code) columns.Add(uint8_t(code), 99);
    EXPECT_TRUE(columns.Full());
    EXPECT_EQ(columns.Chosen().size(), 64u);
    EXPECT_EQ(columns.Chosen().back(), 71);
}

}  // namespace
}  // namespace paginox
