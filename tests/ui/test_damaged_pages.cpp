#include <gtest/gtest.h>

#include <QLabel>
#include <QListWidget>
#include <QStatusBar>
#include <filesystem>

#include "core/RuntimeError.h"
#include "editor/RecoveryStore.h"
#include "persist/FileIO_Page.h"
#include "support/DamagedPage.h"
#include "ui/PageFormFixture.h"

namespace paginox {
namespace {

QString Note(test::PageFormFixture& fx) {
    auto* note = fx.form->findChild<QLabel*>("lblDrawNote");
    return note && note->isVisible() ? note->text() : QString();
}

TEST(DamagedPages, OpenListAndRepairInsteadOfEndingTheProgram) {
    test::PageFormFixture fx;
    std::string damaged = fx.folders.Dir().Write("damaged.pag", test::DamagedPage(fx.page));
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
