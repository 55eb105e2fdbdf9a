// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QImage>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "support/DamagedPage.h"
#include "support/RecordingMessages.h"
#include "support/ToolRun.h"

using namespace paginox;
namespace fs = std::filesystem;

namespace {
const std::string kSamplePages = std::string(PAGINOX_SAMPLE_DIR) + "/User Files/Pages/";

bool HasBlue(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            QColor c = image.pixelColor(x, y);
            if (c.blue() > 200 && c.red() < 100 && c.green() < 100) return true;
        }
    }
    return false;
}

// A copy of the sample page "Poster.pag", with the sample picture beside it as in the sample.
struct RenderCommand : ::testing::Test {
    test::TempDir dir;
    test::RecordingMessages messages;
    std::string page = dir.Write("Poster.pag", test::ReadAll(kSamplePages + "Poster.pag"));
    std::string out = dir / "out.png";
    RenderCommand() { fs::copy_file(kSamplePages + "Sunburst.bmp", dir / "Sunburst.bmp"); }

    // The status of the render command with those words, and the image it wrote to out.
    std::pair<int, QImage> Render(const std::string& line) {
        setenv("QT_QPA_PLATFORM", "offscreen", 0);  // the tool honours a platform already chosen
        auto [status, text, err] = test::Tool("render " + line, true);
        EXPECT_EQ(err.find("Try 'paginox-tool --help'") != std::string::npos, status == kExitUsage)
            << err;
        return {status, QImage(QString::fromStdString(out))};
    }
};
}  // namespace

TEST_F(RenderCommand, ThumbnailAndPreviewOfASamplePage) {
    auto [status, thumb] = Render(page + " -o " + out + " --size 320x240");
    ASSERT_EQ(status, 0);
    ASSERT_EQ(thumb.size(), QSize(320, 240));
    // The 705 x 581 page is relatively taller than the image: its outline runs along the top
    // and bottom rows, all of it on the image.
    EXPECT_EQ(thumb.pixelColor(160, 0), QColor(0, 0, 0));
    EXPECT_EQ(thumb.pixelColor(160, 239), QColor(0, 0, 0));
    EXPECT_TRUE(HasBlue(thumb));  // labels
    // With pictures the thumbnail shows the one beside the page.
    EXPECT_NE(Render(page + " -o " + out + " --size 320x240 --no-pictures").second, thumb);

    // A single number is the longer side, as file managers ask: the 705 x 581 page keeps its
    // proportions, up or down, and fills the image.
    for (auto [side, size] : {std::pair{"128", QSize(128, 105)}, {"1000", QSize(1000, 824)}}) {
        QImage scaled = Render(page + " -o " + out + " --size " + side).second;
        EXPECT_EQ(scaled.size(), size) << side;
        EXPECT_EQ(scaled.pixelColor(0, size.height() / 2), QColor(0, 0, 0)) << side;
    }

    auto [ok, preview] = Render("--interactive " + page + " -o " + out + " --no-labels");
    ASSERT_EQ(ok, 0);
    EXPECT_GT(preview.width(), 100);  // the format's own size
    EXPECT_EQ(preview.pixelColor(2, 2), QColor(192, 192, 192));
    EXPECT_FALSE(HasBlue(preview));
}

// Read back as other programs read them: the SVG by Qt's image reader, the PDF by pdfinfo.
TEST_F(RenderCommand, SvgAndPdfByTheOutputsExtension) {
    std::string svg = dir / "out.SVG";
    ASSERT_EQ(test::Tool("render " + page + " -o " + svg + " --no-pictures", true).status, 0);
    // Sized in inches at the format's 96 pixels per inch, over a view box of its pixels.
    EXPECT_NE(test::ReadAll(svg).find("width=\"7.34375in\" height=\"6.0520833in\"\n viewBox=\"0 0 "
                                      "705 581\""),
              std::string::npos);

    // The sample's printer format: 2480 x 3508 pixels at 300 per inch, an A4 page.
    std::string birth = dir.Write("Birth.pag", test::ReadAll(kSamplePages + "Birth Chart.pag"));
    std::string pdf = dir / "out.pdf";
    ASSERT_EQ(test::Tool("render " + birth + " -o " + pdf + " --format 4", true).status, 0);
    std::string info;
    FILE* pipe = popen(("pdfinfo '" + pdf + "'").c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    for (char buf[256]; fgets(buf, sizeof buf, pipe);) info += buf;
    EXPECT_EQ(pclose(pipe), 0) << info;
    EXPECT_NE(info.find("Pages:           1\n"), std::string::npos) << info;
    EXPECT_NE(info.find("Page size:       595 x 842 pts (A4)"), std::string::npos) << info;
    // A PNG of it carries the same 300 pixels per inch; to standard output, by --type.
    std::ostringstream png;
    ASSERT_EQ(
        test::Tool("render " + birth + " --format=4 --size 124x175 -o - --type png", true, &png)
            .status,
        0);
    QImage read = QImage::fromData(QByteArray::fromStdString(png.str()), "PNG");
    EXPECT_EQ(std::tuple(read.width(), read.dotsPerMeterX()), std::tuple(124, 11811));
    EXPECT_EQ(test::Tool("render " + birth + " -o -", true).status, kExitUsage);  // no type
}

TEST_F(RenderCommand, UsageErrorsAndFailures) {
    for (const char* options : {"--format 99", "--format 0", "--format", "--size 10by10",
                                "--size 0x10", "--size 0", "--bogus"}) {
        EXPECT_EQ(Render(page + " -o " + out + " " + options).first, kExitUsage) << options;
    }
    EXPECT_EQ(Render(page).first, kExitUsage);
    EXPECT_EQ(Render(page + " -o " + dir / "out.gif").first, kExitUsage);
    EXPECT_EQ(Render("-o " + out).first, kExitUsage);
    EXPECT_EQ(Render(dir / "none.pag -o " + out).first, kExitFailure);
    EXPECT_EQ(messages.Last().substr(0, 11), "Open Error:");
    EXPECT_EQ(Render(page + " -o " + dir / "no/such/folder.png").first, kExitFailure);
    EXPECT_EQ(messages.shown.back().text.rfind("Error whilst writing the image ", 0), 0u);
    EXPECT_NE(messages.shown.back().text.find(": Path not found"), std::string::npos);
    // A picture too large to hold in memory is refused with the reason, before any drawing.
    EXPECT_EQ(Render(page + " -o " + out + " --size 16000x16000").first, kExitFailure);
    EXPECT_NE(messages.shown.back().text.find("too large to be made in memory"), std::string::npos);
    EXPECT_FALSE(fs::exists(out));
    // Saved as pages are: an image that cannot be replaced keeps every byte.
    dir.Write("out.png", "old");
    fs::permissions(out, fs::perms::owner_read);
    EXPECT_EQ(Render(page + " -o " + out).first, kExitFailure);
    EXPECT_EQ(test::ReadAll(out), "old");
}

TEST_F(RenderCommand, ADamagedPageIsDrawnAsFarAsItGoesWithWarnings) {
    dir.Write("Poster.pag", test::DamagedPage(page));
    auto [status, image] = Render(page + " -o " + out);
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(image.isNull());
    EXPECT_EQ(messages.Transcript(),
              "Warning [Ok Exclamation]: format 1, object 1: class 999 is not in the catalogue; "
              "drawn as a plain box\n"
              "Warning [Ok Exclamation]: format 1, object 2: not drawn: Overflow\n");
}
