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
const std::string kSamplePage = std::string(PAGINOX_SAMPLE_DIR) + "/User Files/Pages/Poster.pag";

// The render command's status and the image it wrote to dir/out.png.
std::pair<int, QImage> Render(const test::TempDir& dir, std::vector<std::string> args) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);  // the tool honours a platform already chosen
    args.insert(args.begin(), {"--data", std::string(PAGINOX_SAMPLE_DIR) + "/System", "render"});
    std::ostringstream out, err;
    int status = RunTool(args, out, err);
    EXPECT_EQ(err.str().find("Usage") != std::string::npos, status == kExitUsage) << err.str();
    return {status, QImage(QString::fromStdString(dir / "out.png"))};
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
    auto [status, thumb] = Render(dir, {kSamplePage, "-o", out, "--size", "320x240"});
    ASSERT_EQ(status, 0);
    ASSERT_EQ(thumb.size(), QSize(320, 240));
    // The 705 x 581 page is relatively taller than the image: its outline runs along the top
    // and bottom rows, all of it on the image.
    EXPECT_EQ(thumb.pixelColor(160, 0), QColor(0, 0, 0));
    EXPECT_EQ(thumb.pixelColor(160, 239), QColor(0, 0, 0));
    EXPECT_TRUE(HasBlue(thumb));  // labels
    // The sample picture lies beside the page: with pictures the thumbnail shows it.
    EXPECT_NE(Render(dir, {kSamplePage, "-o", out, "--size", "320x240", "--no-pictures"}).second,
              thumb);

    // A single number is the longer side, as file managers ask: the 705 x 581 page keeps its
    // proportions, up or down, and fills the image.
    for (auto [side, size] : {std::pair{"128", QSize(128, 105)}, {"1000", QSize(1000, 824)}}) {
        QImage scaled = Render(dir, {kSamplePage, "-o", out, "--size", side}).second;
        EXPECT_EQ(scaled.size(), size) << side;
        EXPECT_EQ(scaled.pixelColor(0, size.height() / 2), QColor(0, 0, 0)) << side;
    }

    auto [ok, preview] = Render(dir, {"--interactive", kSamplePage, "-o", out, "--no-labels"});
    ASSERT_EQ(ok, 0);
    EXPECT_GT(preview.width(), 100);  // the format's own size
    EXPECT_EQ(preview.pixelColor(2, 2), QColor(192, 192, 192));
    EXPECT_FALSE(HasBlue(preview));
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
                                               {kSamplePage, "-o", out, "--size", "0"},
                                               {kSamplePage},
                                               {"-o", out},
                                               {kSamplePage, "-o", out, "--bogus"}}) {
        EXPECT_EQ(Render(dir, args).first, kExitUsage) << args.back();
    }
    test::RecordingMessages messages;
    EXPECT_EQ(Render(dir, {dir / "none.pag", "-o", out}).first, kExitFailure);
    EXPECT_EQ(messages.Last().substr(0, 11), "Open Error:");
    EXPECT_EQ(Render(dir, {kSamplePage, "-o", dir / "no/such/folder.png"}).first, kExitFailure);
    EXPECT_EQ(messages.shown.back().text.rfind("Error whilst writing the image ", 0), 0u);
    // Saved as pages are: an image that cannot be replaced keeps every byte.
    std::string kept = dir.Write("kept.png", "old");
    std::filesystem::permissions(kept, std::filesystem::perms::owner_read);
    EXPECT_EQ(Render(dir, {kSamplePage, "-o", kept}).first, kExitFailure);
    EXPECT_EQ(test::ReadAll(kept), "old");
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
    auto [status, image] = Render(dir, {page, "-o", dir / "out.png"});
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(image.isNull());
    ASSERT_EQ(messages.shown.size(), 2u);
    EXPECT_EQ(messages.shown[0].title, "Warning");
    EXPECT_EQ(messages.shown[0].text,
              "format 1, object 1: class 999 is not in the catalogue; drawn as a plain box");
    EXPECT_EQ(messages.shown[1].text, "format 1, object 2: not drawn: Overflow");
}
