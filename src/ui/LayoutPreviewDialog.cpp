// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/LayoutPreviewDialog.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "render/PageExport.h"
#include "ui/PreviewWidget.h"

namespace paginox {

namespace {

QLabel* PictureLabel(const QImage& image) {
    auto* label = new QLabel;
    label->setPixmap(QPixmap::fromImage(image));
    label->setFrameShape(QFrame::StyledPanel);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

}  // namespace

QImage LayoutPreviewDialog::Picture(const PageClass& page, int16_t k, QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(PreviewWidget::BackColour());  // the white page stands out as on the preview
    std::shared_ptr<PageFormat> format = page.GetFormat(k);
    if (!format) return image;
    PictureOptions options;
    options.Pictures = true;
    try {
        DrawFormatScaled(image, page.NumCharts(), *format, options);
    } catch (const std::exception&) {
        // What cannot be drawn stays white; the command itself reports the page's faults.
    }
    return image;
}

LayoutPreviewDialog::LayoutPreviewDialog(const QString& title, const QString& text,
                                         const std::vector<LayoutView>& views, QWidget* parent)
    : QDialog(parent) {
    setObjectName("LayoutPreview");
    setWindowTitle(title);
    auto* layout = new QVBoxLayout(this);
    auto* intro = new QLabel(text);
    intro->setWordWrap(true);
    layout->addWidget(intro);

    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel("<b>Page size</b>"), 0, 0);
    grid->addWidget(new QLabel("<b>Now</b>"), 0, 1, Qt::AlignHCenter);
    grid->addWidget(new QLabel("<b>After</b>"), 0, 2, Qt::AlignHCenter);
    int row = 1;
    for (const LayoutView& view : views) {
        auto* caption = new QLabel(view.Caption);
        caption->setWordWrap(true);
        grid->addWidget(caption, row, 0);
        grid->addWidget(PictureLabel(view.Before), row, 1);
        grid->addWidget(PictureLabel(view.After), row, 2);
        ++row;
    }
    auto* inner = new QWidget;
    inner->setLayout(grid);
    auto* scroller = new QScrollArea;
    scroller->setWidget(inner);
    scroller->setWidgetResizable(true);
    scroller->setMinimumSize(inner->sizeHint().boundedTo(QSize(900, 560)) + QSize(24, 8));
    layout->addWidget(scroller, 1);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText("Apply");
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

}  // namespace paginox
