#include <gtest/gtest.h>

#include "core/RuntimeError.h"
#include "editor/FileRoutines.h"
#include "support/RecordingMessages.h"

using namespace paginox;

namespace {

TEST(FileErrors, MessagesAndTheCodesTheirButtonsGive) {
    test::RecordingMessages messages;
    messages.Script({MsgAnswer::Ok});
    EXPECT_EQ(FileErrors(kBadFileName), kFileErrorRetry);
    EXPECT_EQ(messages.Last(), "Disk Error: Filename is illegal");
    EXPECT_EQ(messages.shown[0].icon, MsgIcon::Exclamation);

    // The disk-full question offers Yes/No/Cancel; Yes maps to no retry at all.
    messages.Script({MsgAnswer::Yes, MsgAnswer::Cancel, MsgAnswer::No});
    EXPECT_EQ(FileErrors(kDiskFull), kFileErrorUnrecognised);
    EXPECT_EQ(messages.shown[1].text, "Disk is full. Continue?");
    EXPECT_EQ(messages.shown[1].buttons, MsgButtons::YesNoCancel);
    EXPECT_EQ(messages.shown[1].icon, MsgIcon::Question);
    EXPECT_EQ(FileErrors(kDiskFull), kFileErrorGiveUp);
    EXPECT_EQ(FileErrors(kDeviceIOError), kFileErrorUnrecognised);
    EXPECT_EQ(messages.shown[3].buttons, MsgButtons::YesNo);

    messages.Script({MsgAnswer::Ignore, MsgAnswer::Abort});
    EXPECT_EQ(FileErrors(kInputPastEndOfFile), kFileErrorSkip);
    EXPECT_EQ(messages.shown[4].text,
              "File has nonstandard end-of-file marker, or an attempt has been made to read "
              "beyond the end-of-file marker.");
    EXPECT_EQ(FileErrors(kPathNotFound), kFileErrorGiveUp);
    // An error without a message returns at once.
    EXPECT_EQ(FileErrors(kFileNotFound), kFileErrorUnrecognised);
    EXPECT_EQ(messages.shown.size(), 6u);
}

TEST(FileErrors, ClassicFiltersBecomeQtFilters) {
    EXPECT_EQ(QtFileFilter("Page Layout (*.pag)|*.pag"), "Page Layout (*.pag)");
    EXPECT_EQ(QtFileFilter("All Graphics Files|*.bmp;*.wmf|JPEG (*.jpg;*.jpeg)|*.jpg;*.jpeg"),
              "All Graphics Files (*.bmp *.wmf);;JPEG (*.jpg *.jpeg)");
    // The body element filter names *.ast for files of another extension; it stays so.
    EXPECT_EQ(QtFileFilter("Body Element Files|*.ast"), "Body Element Files (*.ast)");
}

}  // namespace
