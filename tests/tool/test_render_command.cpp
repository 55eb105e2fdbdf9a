#include <gtest/gtest.h>

#include <QImage>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "support/RecordingMessages.h"
#include "support/TempDir.h"
#include "tool/Tool.h"

using namespace paginox;

namespace {

const std::string kSampleSystem = std::string(PAGINOX_SAMPLE_DIR) + "/System";
const std::string kSamplePage = std::string(PAGINOX_SAMPLE_DIR) + "/User Files/Pages/Poster.pag";

struct Render {
    int status;
    std::string err;
    QImage image;
};

Render RunRender(const test::TempDir& dir, std::vector<std::string> extra) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);  // the tool honours a platform already chosen
    std::string out = dir / "out.png";
    std::vector<std::string> args = {"--data", kSampleSystem, "render"};
    args.insert(args.end(), extra.begin(), extra.end());
    std::ostringstream o, e;
    int status = RunTool(args, o, e);
    return {status, e.str(), QImage(QString::fromStdString(out))};
}

bool HasBlue(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            QColor c = image.pixelColor(x, y);
            if (c.blue() > 200 && c.red() < 100 && c.green() < 100) return true;
        }
    }
    return false;
}

}  // namespace

TEST(RenderCommand, ThumbnailAndPreviewOfASamplePage) {
    test::TempDir dir;
    std::string out = dir / "out.png";
    Render thumb = RunRender(dir, {kSamplePage, "-o", out, "--size", "320x240"});
    ASSERT_EQ(thumb.status, 0) << thumb.err;
    ASSERT_EQ(thumb.image.size(), QSize(320, 240));
    // The 705 x 581 page is relatively taller than the image: its outline runs along the top
    // and bottom rows, all of it on the image.
    EXPECT_EQ(thumb.image.pixelColor(160, 0), QColor(0, 0, 0));
    EXPECT_EQ(thumb.image.pixelColor(160, 239), QColor(0, 0, 0));
    EXPECT_TRUE(HasBlue(thumb.image));  // labels

    // The sample picture lies beside the page: with pictures the thumbnail shows it.
    Render bare = RunRender(dir, {kSamplePage, "-o", out, "--size", "320x240", "--no-pictures"});
    ASSERT_EQ(bare.status, 0) << bare.err;
    EXPECT_NE(bare.image, thumb.image);

    Render preview = RunRender(dir, {"--interactive", kSamplePage, "-o", out, "--no-labels"});
    ASSERT_EQ(preview.status, 0) << preview.err;
    EXPECT_GT(preview.image.width(), 100);  // the format's own size
    EXPECT_EQ(preview.image.pixelColor(2, 2), QColor(192, 192, 192));
    EXPECT_FALSE(HasBlue(preview.image));
}

TEST(RenderCommand, UsageErrorsAndFailures) {
    test::TempDir dir;
    std::string out = dir / "out.png";
    for (const auto& args :
         std::vector<std::vector<std::string>>{{kSamplePage, "-o", out, "--format", "99"},
                                               {kSamplePage, "-o", out, "--format", "0"},
                                               {kSamplePage, "-o", out, "--format"},
                                               {kSamplePage, "-o", out, "--size", "10by10"},
                                               {kSamplePage, "-o", out, "--size", "0x10"},
                                               {kSamplePage},
                                               {"-o", out},
                                               {kSamplePage, "-o", out, "--bogus"}}) {
        Render r = RunRender(dir, args);
        EXPECT_EQ(r.status, 2) << args.back();
        EXPECT_NE(r.err.find("Usage"), std::string::npos);
    }
    test::RecordingMessages messages;
    EXPECT_EQ(RunRender(dir, {dir / "none.pag", "-o", out}).status, 1);
    EXPECT_EQ(RunRender(dir, {kSamplePage, "-o", dir / "no/such/folder.png"}).status, 1);
    // Saved as pages are: an image that cannot be replaced keeps every byte.
    std::string kept = dir.Write("kept.png", "old");
    std::filesystem::permissions(kept, std::filesystem::perms::owner_read);
    EXPECT_EQ(RunRender(dir, {kSamplePage, "-o", kept}).status, 1);
    EXPECT_EQ(test::ReadAll(kept), "old");
    ASSERT_EQ(messages.shown.size(), 3u);
    EXPECT_EQ(messages.shown[0].title, "Open Error");
    EXPECT_EQ(messages.shown[1].text.rfind("Error whilst writing the image ", 0), 0u);
}

TEST(RenderCommand, ADamagedPageIsDrawnAsFarAsItGoesWithWarnings) {
    test::TempDir dir;
    std::string bytes = test::ReadAll(kSamplePage);
    // The first format's first object gets a class the catalogue lacks, its second a NaN Origin.
    const size_t first = 349 + 34;
    const size_t second = first + 1605;
    ASSERT_GT(bytes.size(), second + 16);
    bytes[first] = char(0xE7);  // class 999
    bytes[first + 1] = char(0x03);
    const char nan[4] = {0, 0, char(0xC0), char(0x7F)};
    std::copy(nan, nan + 4, bytes.begin() + second + 12);
    std::string page = dir.Write("damaged.pag", bytes);

    test::RecordingMessages messages;
    Render r = RunRender(dir, {page, "-o", dir / "out.png"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_FALSE(r.image.isNull());
    ASSERT_EQ(messages.shown.size(), 2u);
    EXPECT_EQ(messages.shown[0].title, "Warning");
    EXPECT_EQ(messages.shown[0].text,
              "format 1, object 1: class 999 is not in the catalogue; drawn as a plain box");
    EXPECT_EQ(messages.shown[1].text, "format 1, object 2: not drawn: Overflow");
}
