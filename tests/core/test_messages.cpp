#include <gtest/gtest.h>

#include "support/RecordingMessages.h"

using namespace paginox;

// (The recording service's scripted answers are exercised by every test that scripts one.)
TEST(Messages, ScopedServiceReceivesMessagesAndIsRestoredAfterwards) {
    MessageService* before = &Messages();
    {
        test::RecordingMessages rec;
        EXPECT_EQ(&Messages(), &rec);
        ShowMessage("Done");
        ASSERT_EQ(rec.shown.size(), 1u);
        EXPECT_EQ(rec.shown[0].text, "Done");
    }
    EXPECT_EQ(&Messages(), before);
}
