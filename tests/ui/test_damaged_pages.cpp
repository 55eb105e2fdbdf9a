#include <gtest/gtest.h>

#include <QLabel>
#include <QListWidget>
#include <QStatusBar>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "core/RuntimeError.h"
#include "editor/RecoveryStore.h"
#include "persist/FileIO_Page.h"
#include "support/TempDir.h"
#include "ui/PageFormFixture.h"

namespace paginox {
namespace {

// The sample page with its first format's first object of class 999, its second at a NaN
// Origin, and its second format 0 pixels wide.
std::string DamagedCopy(const std::string& page, const std::string& to) {
    std::string bytes = test::ReadAll(page);
    auto put = [&](size_t at, const void* v, size_t n) { std::memcpy(bytes.data() + at, v, n); };
    const size_t format1 = 349;
    int16_t count1 = 0;
    std::memcpy(&count1, bytes.data() + format1, 2);
    const size_t object1 = format1 + 34;
    const int16_t unknown = 999;
    const float nan = std::nanf("");
    const int16_t zero = 0;
    put(object1, &unknown, 2);
    put(object1 + 1605 + 12, &nan, 4);
    put(format1 + 34 + size_t(count1) * 1605 + 26, &zero, 2);
    std::ofstream(to, std::ios::binary) << bytes;
    return to;
}

QString Note(test::PageFormFixture& fx) {
    auto* note = fx.form->findChild<QLabel*>("lblDrawNote");
    return note && note->isVisible() ? note->text() : QString();
}

TEST(DamagedPages, OpenListAndRepairInsteadOfEndingTheProgram) {
    test::PageFormFixture fx;
    std::string damaged = DamagedCopy(fx.page, fx.folders.Dir() / "damaged.pag");
    fx.dialogs.Answers.push_back(damaged);
    fx.Trigger("mnuFileOpen");
    ASSERT_EQ(fx.state.CurrentFile, damaged);
    fx.form->SizeList()->setCurrentRow(0);
    test::SettleEvents();
    EXPECT_TRUE(fx.messages.shown.empty());
    EXPECT_EQ(Note(fx),
              "1 object cannot be placed: correct Anchor and Size. 1 object of an unknown class "
              "shown as plain boxes.");
    // The unknown object is drawn and can be grabbed; the unplaced one cannot.
    EXPECT_EQ(fx.Class(1).FullName(), "Unknown class 999");
    QTest::mouseClick(fx.Preview(), Qt::LeftButton, {}, fx.Inside(1));
    EXPECT_EQ(fx.state.SelectedObject, 1);
    EXPECT_FALSE(fx.state.Rects.IsPlaced(2));

    // A format that cannot be drawn shows its page empty and says so.
    fx.form->SizeList()->setCurrentRow(1);
    test::SettleEvents();
    EXPECT_EQ(fx.state.CurrentFormatIndex, 2);
    EXPECT_EQ(Note(fx).toStdString(), "This page size cannot be drawn (it is 0 x 749 pixels).");
    EXPECT_TRUE(fx.messages.shown.empty());
}

TEST(DamagedPages, AFailedCommandLeavesThePageAndAnEscapedErrorKeepsACopy) {
    test::PageFormFixture fx;
    int16_t objects = fx.state.CurrentFormat->NumObjects();
    fx.form->Guard("Delete Object", [&] {
        fx.state.CurrentFormat->DeleteObject(1);
        Raise(kOverflow);
    });
    EXPECT_EQ(fx.state.CurrentFormat->NumObjects(), objects);
    ASSERT_EQ(fx.messages.shown.size(), 1u);
    EXPECT_EQ(fx.messages.shown[0].text.rfind("Delete Object could not be completed.", 0), 0u);

    RecoveryStore store(fx.folders.Dir() / "Recovery/");
    fx.form->SetRecovery(&store);
    fx.form->OnUnexpectedError("Overflow");
    ASSERT_FALSE(store.CopyPath().empty());
    EXPECT_TRUE(std::filesystem::exists(store.CopyPath()));
    EXPECT_EQ(fx.messages.shown.back().text,
              "An unexpected error occurred: Overflow\r\n\r\nYour "
              "page has been kept in " +
                  store.CopyPath());
    store.Discard();
}

}  // namespace
}  // namespace paginox
