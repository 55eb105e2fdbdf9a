// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "core/RuntimeError.h"
#include "editor/FileRoutines.h"
#include "support/Golden.h"
#include "support/RecordingMessages.h"

using namespace paginox;

namespace {

TEST(FileErrors, MessagesAndTheCodesTheirButtonsGive) {
    test::RecordingMessages messages;
    // Disk full is a question whose Yes means no retry at all; end of file offers Ignore.
    messages.Script({MsgAnswer::Ok, MsgAnswer::Yes, MsgAnswer::Cancel, MsgAnswer::No,
                     MsgAnswer::Ignore, MsgAnswer::Abort});
    const std::pair<int, int> cases[] = {
        {kBadFileName, kFileErrorRetry},         {kDiskFull, kFileErrorUnrecognised},
        {kDiskFull, kFileErrorGiveUp},           {kDeviceIOError, kFileErrorUnrecognised},
        {kInputPastEndOfFile, kFileErrorSkip},   {kPathNotFound, kFileErrorGiveUp},
        {kFileNotFound, kFileErrorUnrecognised},  // no message: returns at once
    };
    for (auto [error, code] : cases) EXPECT_EQ(FileErrors(error), code) << error;
    EXPECT_EQ(messages.Transcript(), test::GoldenText("editor/messages.txt", "file errors"));
}

TEST(FileErrors, ClassicFiltersBecomeQtFilters) {
    EXPECT_EQ(QtFileFilter("Page Layout (*.pag)|*.pag"), "Page Layout (*.pag)");
    EXPECT_EQ(QtFileFilter("All Graphics Files|*.bmp;*.wmf|JPEG (*.jpg;*.jpeg)|*.jpg;*.jpeg"),
              "All Graphics Files (*.bmp *.wmf);;JPEG (*.jpg *.jpeg)");
    // The body element filter names *.ast for files of another extension; it stays so.
    EXPECT_EQ(QtFileFilter("Body Element Files|*.ast"), "Body Element Files (*.ast)");
}

}  // namespace
