#include <gtest/gtest.h>

#include "support/RecordingMessages.h"

using namespace paginox;

TEST(Messages, RecordingServiceKeepsMessagesAndAnswersFromItsScript) {
    test::RecordingMessages rec;
    rec.Script({MsgAnswer::No});
    EXPECT_EQ(Messages().Show("Save?", "Save Changes?", MsgButtons::YesNoCancel,
                              MsgIcon::Exclamation),
              MsgAnswer::No);
    EXPECT_EQ(Messages().Show("Again?", "T", MsgButtons::YesNo, MsgIcon::None), MsgAnswer::Yes);
    ShowMessage("Done");
    ASSERT_EQ(rec.shown.size(), 3u);
    EXPECT_EQ(rec.shown[0].title, "Save Changes?");
    EXPECT_EQ(rec.shown[2].text, "Done");
}

TEST(Messages, ScopedServiceIsRestoredAfterwards) {
    MessageService* before = &Messages();
    {
        test::RecordingMessages rec;
        EXPECT_EQ(&Messages(), &rec);
    }
    EXPECT_EQ(&Messages(), before);
}
