#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "model/PageFormat.h"
#include "render/PageDraw.h"
#include "render/QtSurface.h"
#include "support/GuiApplication.h"

using namespace paginox;

namespace {
QColor At(const QImage& image, int x, int y) {
    return image.pixelColor(x, y);
}
const QColor kGrey(192, 192, 192);

// Pixels of the image inside and outside a rectangle that differ from the background.
std::pair<int, int> InkInsideAndOutside(const QImage& image, const QRectF& area) {
    int inside = 0;
    int outside = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (At(image, x, y) == kGrey) continue;
            (area.contains(x + 0.5, y + 0.5) ? inside : outside)++;
        }
    }
    return {inside, outside};
}
}  // namespace

TEST(QtSurface, ShapesAndTextLandOnTheirPixels) {
    test::EnsureGuiApplication();
    QImage image(200, 100, QImage::Format_RGB32);
    QtSurface s(image);
    EXPECT_EQ(s.Scale().ToString(), "(0,0)-(200,100)");
    s.SetBackColor(Rgb(192, 192, 192));
    s.Clear();

    s.DrawBox(10, 10, 14, 14, Rgb(255, 0, 0), BoxFill::Solid);  // five pixels square
    EXPECT_EQ(At(image, 10, 10), QColor(255, 0, 0));
    EXPECT_EQ(At(image, 14, 14), QColor(255, 0, 0));
    EXPECT_EQ(At(image, 15, 14), kGrey);
    EXPECT_EQ(At(image, 9, 10), kGrey);

    s.SetFillStyle(kFillSolid);
    s.SetFillColor(Rgb(0, 255, 0));
    s.DrawCircle(100, 50, 20, Rgb(0, 0, 0), true);
    EXPECT_EQ(At(image, 100, 50), QColor(0, 255, 0));
    EXPECT_EQ(At(image, 100, 25), kGrey);
    EXPECT_LT(At(image, 120, 50).lightness(), 128);  // on the ring

    s.SetDrawStyle(kLineDot);
    s.Line(50, 0, 50, 99, Rgb(0, 0, 0));
    int black = 0;
    for (int y = 0; y < 100; ++y) black += At(image, 50, y) == QColor(0, 0, 0);
    EXPECT_GT(black, 20);
    EXPECT_LT(black, 80);

    QImage text(200, 100, QImage::Format_RGB32);
    QtSurface t(text);
    t.SetBackColor(Rgb(192, 192, 192));
    t.Clear();
    t.SetForeColor(Rgb(0, 0, 255));
    t.SetCurrentX(30);
    t.SetCurrentY(20);
    float width = t.TextWidth("Chart Wheel");
    float height = t.TextHeight("Chart Wheel");
    t.Print("Chart Wheel");
    EXPECT_EQ(t.CurrentX(), 0);
    EXPECT_EQ(t.CurrentY(), 20 + height);
    auto [inside, outside] = InkInsideAndOutside(text, QRectF(30, 20, width, height));
    EXPECT_GT(inside, 30);
    EXPECT_EQ(outside, 0);
}

TEST(QtSurface, TextMeasuresTheSameAtDoubleRatioAndFollowsTheSurface) {
    test::EnsureGuiApplication();
    QImage single(200, 100, QImage::Format_RGB32);
    QImage twice(400, 200, QImage::Format_RGB32);
    twice.fill(Qt::white);
    twice.setDevicePixelRatio(2);
    QtSurface one(single);
    QtSurface two(twice);
    EXPECT_EQ(two.Scale().ToString(), "(0,0)-(200,100)");
    EXPECT_EQ(one.TextHeight("x"), two.TextHeight("x"));
    EXPECT_NEAR(one.TextWidth("Single Chart Wheel"), two.TextWidth("Single Chart Wheel"), 2);

    // Text keeps its share of the page; a thumbnail's stays legible.
    RectClass screen;
    screen.InitTo(0, 0, 800, 600);
    RectClass big;
    big.InitTo(0, 0, 1600, 1200);
    RectClass thumb;
    thumb.InitTo(0, 0, 160, 120);
    EXPECT_NEAR(QtSurface::FontPixelSizeFor(big), 2 * QtSurface::FontPixelSizeFor(screen), 1);
    EXPECT_GE(QtSurface::FontPixelSizeFor(thumb), 7);
}

TEST(QtSurface, RingsOnADiscLookAsIfEachWereFilled) {
    test::EnsureGuiApplication();
    const double radii[] = {100, 98, 65, 80, 40.5, 30, 30};  // 80 hides the 65 ring
    QImage drawn(240, 240, QImage::Format_RGB32);
    drawn.fill(Qt::white);
    {
        QtSurface s(drawn);
        s.SetFillStyle(kFillSolid);
        s.SetFillColor(Rgb(224, 224, 224));
        for (double r : radii) s.DrawCircle(120, 120, r, Rgb(128, 128, 128), true);
    }
    QImage expected(240, 240, QImage::Format_RGB32);
    expected.fill(Qt::white);
    {
        QPainter p(&expected);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QColor(128, 128, 128));
        p.setBrush(QColor(224, 224, 224));
        for (double r : radii) p.drawEllipse(QPointF(120.5, 120.5), r, r);
    }
    EXPECT_EQ(drawn, expected);
}

TEST(QtSurface, OnePixelLinesAndOutlinesCoverTheirPixelsAtEitherRatio) {
    test::EnsureGuiApplication();
    struct L {
        int x1, y1, x2, y2;
    };
    const L lines[] = {
        {10, 10, 10, 50}, {20, 50, 20, 10}, {5, 60, 90, 60}, {90, 70, 5, 70}, {40, 40, 40, 40}};
    const L box = {50, 5, 80, 30};
    for (int ratio : {1, 2}) {
        QImage drawn(100 * ratio, 100 * ratio, QImage::Format_RGB32);
        drawn.setDevicePixelRatio(ratio);
        drawn.fill(Qt::white);
        {
            QtSurface s(drawn);
            for (const L& l : lines) s.Line(l.x1, l.y1, l.x2, l.y2, Rgb(128, 128, 128));
            s.DrawBox(box.x1, box.y1, box.x2, box.y2, Rgb(128, 128, 128), BoxFill::Outline);
        }
        // The logical pixels from one end to the other, both ends included.
        QImage expected = drawn;
        expected.fill(Qt::white);
        {
            QPainter p(&expected);
            auto cover = [&](int x1, int y1, int x2, int y2) {
                p.fillRect(QRect(QPoint(std::min(x1, x2), std::min(y1, y2)),
                                 QPoint(std::max(x1, x2), std::max(y1, y2))),
                           QColor(128, 128, 128));
            };
            for (const L& l : lines) cover(l.x1, l.y1, l.x2, l.y2);
            cover(box.x1, box.y1, box.x2, box.y1);
            cover(box.x1, box.y2, box.x2, box.y2);
            cover(box.x1, box.y1, box.x1, box.y2);
            cover(box.x2, box.y1, box.x2, box.y2);
        }
        EXPECT_EQ(drawn, expected) << "at ratio " << ratio;
    }
}

TEST(QtSurface, PreviewShadowLooksAsIfDrawnWholeUnderThePage) {
    test::EnsureGuiApplication();
    PageFormat format;
    auto draw = [&](bool whole) {
        QImage image(400, 300, QImage::Format_RGB32);
        QtSurface s(image);
        s.SetBackColor(Rgb(192, 192, 192));
        s.Clear();
        if (!whole) {
            DrawFormat(s, nullptr, 1, format, false, true, false);
            return image;
        }
        RectClass page = PageRect(s.Scale(), format, true);
        int32_t d = 8;  // 2% of 400
        s.DrawBox(page.Left() + d, page.Top() + d, page.Right() + d, page.Bottom() + d,
                  kShadowColour, BoxFill::Solid);
        s.SetFillColor(kPageColour);
        s.SetFillStyle(kFillSolid);
        s.DrawBox(page.Left(), page.Top(), page.Right(), page.Bottom(), kPageOutlineColour,
                  BoxFill::CurrentFill);
        RectClass margin = MarginRect(page, format);
        s.SetDrawStyle(kLineDot);
        s.SetFillStyle(kFillTransparent);
        s.DrawBox(margin.Left(), margin.Top(), margin.Right(), margin.Bottom(),
                  kMarginFrameColour, BoxFill::CurrentFill);
        return image;
    };
    QImage strips = draw(false);
    EXPECT_EQ(strips, draw(true));
    EXPECT_EQ(At(strips, 390, 290), kGrey);                // beyond the shadow
    EXPECT_EQ(At(strips, 385, 280), QColor(128, 128, 128));  // its bottom right corner
}
