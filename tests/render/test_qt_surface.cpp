// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <string>
#include <thread>
#include <vector>

#include "render/QtSurface.h"
#include "support/GuiApplication.h"

using namespace paginox;

namespace {
const QColor kGrey(192, 192, 192);

// An image of the size cleared to grey, at the device pixel ratio given.
QImage Blank(int width, int height, int ratio = 1, QColor colour = kGrey) {
    test::EnsureGuiApplication();
    QImage image(width * ratio, height * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(colour);
    return image;
}

// Pixels of the image inside and outside a rectangle that differ from the background.
std::pair<int, int> InkInsideAndOutside(const QImage& image, const QRectF& area) {
    int inside = 0, outside = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != kGrey)
                (area.contains(x + 0.5, y + 0.5) ? inside : outside)++;
        }
    }
    return {inside, outside};
}
}  // namespace

TEST(QtSurface, DottedLinesAndTextLandOnTheirPixels) {
    QImage image = Blank(200, 100);
    QtSurface s(image);
    s.SetDrawStyle(kLineDot);
    s.Line(50, 0, 50, 99, Rgb(0, 0, 0));
    int black = 0;
    for (int y = 0; y < 100; ++y) black += image.pixelColor(50, y) == QColor(0, 0, 0);
    EXPECT_TRUE(black > 20 && black < 80) << black;

    QImage text = Blank(200, 100);
    QtSurface t(text);
    t.SetForeColor(Rgb(0, 0, 255)), t.SetCurrentX(30), t.SetCurrentY(20);
    float width = t.TextWidth("Chart Wheel"), height = t.TextHeight("Chart Wheel");
    t.Print("Chart Wheel");
    EXPECT_EQ(std::pair(t.CurrentX(), t.CurrentY()), std::pair(0.0f, 20 + height));
    auto [inside, outside] = InkInsideAndOutside(text, QRectF(30, 20, width, height));
    EXPECT_TRUE(inside > 30 && outside == 0) << inside << " inside, " << outside << " outside";
}

TEST(QtSurface, TextMeasuresTheSameAtDoubleRatioAndFollowsTheSurface) {
    QImage single = Blank(200, 100), twice = Blank(200, 100, 2);
    QtSurface one(single), two(twice);
    EXPECT_EQ(two.Scale().ToString(), "(0,0)-(200,100)");
    EXPECT_EQ(one.TextHeight("x"), two.TextHeight("x"));
    EXPECT_NEAR(one.TextWidth("Single Chart Wheel"), two.TextWidth("Single Chart Wheel"), 2);
    // Text keeps its share of the page; a thumbnail's stays legible.
    RectClass screen, big, thumb;
    screen.InitTo(0, 0, 800, 600), big.InitTo(0, 0, 1600, 1200), thumb.InitTo(0, 0, 160, 120);
    EXPECT_NEAR(QtSurface::FontPixelSizeFor(big), 2 * QtSurface::FontPixelSizeFor(screen), 1);
    EXPECT_GE(QtSurface::FontPixelSizeFor(thumb), 7);
}

TEST(QtSurface, RingsOnADiscLookAsIfEachWereFilled) {
    const double radii[] = {100, 98, 65, 80, 40.5, 30, 30};  // 80 hides the 65 ring
    QImage drawn = Blank(240, 240, 1, Qt::white), expected = drawn;
    {
        QtSurface s(drawn);
        s.SetFillStyle(kFillSolid), s.SetFillColor(Rgb(224, 224, 224));
        for (double r : radii) s.DrawCircle(120, 120, r, Rgb(128, 128, 128), true);
    }
    QPainter p(&expected);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QColor(128, 128, 128)), p.setBrush(QColor(224, 224, 224));
    for (double r : radii) p.drawEllipse(QPointF(120.5, 120.5), r, r);
    p.end();
    EXPECT_EQ(drawn, expected);
}

TEST(QtSurface, OnePixelLinesAndBoxesCoverTheirPixelsAtEitherRatio) {
    // Lines, then a box's outline and a solid box: the logical pixels from one end to the
    // other, ends included.
    const QRect lines[] = {
        {10, 10, 1, 41}, {20, 10, 1, 41}, {5, 60, 86, 1}, {5, 70, 86, 1}, {40, 40, 1, 1}};
    const bool reversed[] = {false, true, false, true, false};
    const QRect box(QPoint(50, 5), QPoint(80, 30));
    for (int ratio : {1, 2}) {
        QImage drawn = Blank(100, 100, ratio, Qt::white), expected = drawn;
        {
            QtSurface s(drawn);
            for (int i = 0; i < 5; ++i) {
                QPoint a = lines[i].topLeft(), b = lines[i].bottomRight();
                if (reversed[i]) std::swap(a, b);
                s.Line(a.x(), a.y(), b.x(), b.y(), Rgb(128, 128, 128));
            }
            s.DrawBox(box.left(), box.top(), box.right(), box.bottom(), Rgb(128, 128, 128),
                      BoxFill::Outline);
            s.DrawBox(10, 80, 14, 84, Rgb(128, 128, 128), BoxFill::Solid);  // five pixels square
        }
        QPainter p(&expected);
        for (const QRect& l : lines) p.fillRect(l, QColor(128, 128, 128));
        p.fillRect(QRect(10, 80, 5, 5), QColor(128, 128, 128));
        for (const QRect& edge : {QRect(50, 5, 31, 1), QRect(50, 30, 31, 1), QRect(50, 5, 1, 26),
                                  QRect(80, 5, 1, 26)}) {
            p.fillRect(edge, QColor(128, 128, 128));
        }
        p.end();
        EXPECT_EQ(drawn, expected) << "at ratio " << ratio;
    }
}

// The page browser draws thumbnails on a worker while the window draws the preview: text on
// two threads at once must give both the same picture, and never crash.
TEST(QtSurface, TextDrawnOnTwoThreadsAtOnceComesOutTheSame) {
    auto draw = [](int i) {
        QImage image = Blank(160, 40);
        QtSurface s(image);
        s.SetCurrentX(2), s.SetCurrentY(2);
        s.Print("Aspect Grid " + std::to_string(i % 50));
        return image;
    };
    std::vector<QImage> expected;
    for (int i = 0; i < 50; ++i) expected.push_back(draw(i));
    int differing = 0;
    std::thread worker([&] {
        for (int i = 0; i < 2000; ++i) differing += draw(i) != expected[i % 50];
    });
    for (int i = 0; i < 2000; ++i) EXPECT_EQ(draw(i), expected[i % 50]) << i;
    worker.join();
    EXPECT_EQ(differing, 0);
}
