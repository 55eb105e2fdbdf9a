// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/SetupDialog.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "editor/QtText.h"

namespace paginox {

namespace {
constexpr int kScreenColumns = 2;
}

SetupDialog::SetupDialog(const PageFormat& current, int16_t screenLogPixels, PrinterAccess& printer,
                         QWidget* parent)
    : QDialog(parent), setup_(current, screenLogPixels, printer) {
    setObjectName("Setup");
    setWindowTitle("Add Page Size");

    auto* screens = new QGroupBox("Screen resolutions", this);
    auto* screenGrid = new QGridLayout(screens);
    auto* other = new QGroupBox("Other sizes", this);
    auto* otherLayout = new QVBoxLayout(other);
    // One group across both boxes: choosing any option clears the others.
    auto* group = new QButtonGroup(this);
    connect(group, &QButtonGroup::idClicked, this, [this](int k) {
        setup_.ChooseOption(k);
        ShowSetup();
        if (!setup_.PixelsEditable()) return;
        // Ready to type over: the width box takes the focus with its text selected.
        pixels_[0]->setFocus();
        pixels_[0]->selectAll();
    });
    for (int k = 0; k < PageSizeSetup::kOptionCount; ++k) {
        auto* option = new QRadioButton(FromAnsi(ShapeOptionCaption(k)), this);
        option->setObjectName(QString("optShape%1").arg(k));
        group->addButton(option, k);
        options_[size_t(k)] = option;
        if (k < PageSizeSetup::kPrinterOption) {
            screenGrid->addWidget(option, k / kScreenColumns, k % kScreenColumns);
        } else {
            otherLayout->addWidget(option);
            if (k == PageSizeSetup::kPrinterOption) otherLayout->addWidget(BuildPrinterRow());
        }
    }

    auto* sizeRow = new QHBoxLayout;
    for (int i = 0; i < 2; ++i) {
        pixels_[size_t(i)] = new QLineEdit(this);
        pixels_[size_t(i)]->setObjectName(QString("txtPixels%1").arg(i));
        pixels_[size_t(i)]->setValidator(new QIntValidator(1, INT16_MAX, this));
        connect(pixels_[size_t(i)], &QLineEdit::textEdited, this,
                [this, i](const QString& text) { setup_.SetPixelsText(i, ToAnsi(text)); });
        sizeRow->addWidget(new QLabel(i == 0 ? "Width:" : "Height:", this));
        sizeRow->addWidget(pixels_[size_t(i)]);
    }
    sizeRow->addWidget(new QLabel("pixels", this));
    sizeRow->addStretch();

    auto* ok = new QPushButton("OK", this);
    ok->setObjectName("btnOK");
    ok->setDefault(true);
    auto* cancel = new QPushButton("Cancel", this);
    cancel->setObjectName("btnCancel");
    connect(ok, &QPushButton::clicked, this, [this] { OkClicked(); });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(screens);
    layout->addWidget(other);
    layout->addLayout(sizeRow);
    layout->addLayout(buttons);
    ShowSetup();
}

QWidget* SetupDialog::BuildPrinterRow() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(24, 0, 0, 0);
    printer_ = new QPushButton("Printer Setup...", row);
    printer_->setObjectName("btnPrinter");
    connect(printer_, &QPushButton::clicked, this, [this] {
        setup_.PrinterSetup();
        ShowSetup();
    });
    // Without a printer, the page of a standard paper size.
    paper_ = new QComboBox(row);
    paper_->setObjectName("cmbPaper");
    for (const PaperSize& size : PaperSizes()) paper_->addItem(size.Name);
    orientation_ = new QComboBox(row);
    orientation_->setObjectName("cmbOrientation");
    orientation_->addItems({"Portrait", "Landscape"});
    dotsPerInch_ = new QSpinBox(row);
    dotsPerInch_->setObjectName("spnDpi");
    dotsPerInch_->setRange(kMinPaperDotsPerInch, kMaxPaperDotsPerInch);
    dotsPerInch_->setValue(kDefaultPaperDotsPerInch);
    dotsPerInch_->setSuffix(" dpi");
    usePaper_ = new QPushButton("Use Paper", row);
    usePaper_->setObjectName("btnPaper");
    connect(usePaper_, &QPushButton::clicked, this, [this] {
        setup_.UsePaper(paper_->currentIndex(), orientation_->currentIndex() == 1,
                        static_cast<int16_t>(dotsPerInch_->value()));
        ShowSetup();
    });
    layout->addWidget(printer_);
    layout->addSpacing(12);
    paperLabel_ = new QLabel("or paper:", row);
    layout->addWidget(paperLabel_);
    layout->addWidget(paper_);
    layout->addWidget(orientation_);
    layout->addWidget(dotsPerInch_);
    layout->addWidget(usePaper_);
    layout->addStretch();
    return row;
}

void SetupDialog::ShowSetup() {
    options_[size_t(setup_.Option())]->setChecked(true);
    for (int i = 0; i < 2; ++i) {
        pixels_[size_t(i)]->setText(FromAnsi(setup_.PixelsText(i)));
        pixels_[size_t(i)]->setEnabled(setup_.PixelsEditable());
    }
    for (QWidget* w : std::initializer_list<QWidget*>{printer_, paperLabel_, paper_, orientation_,
                                                      dotsPerInch_, usePaper_}) {
        w->setEnabled(setup_.PrinterEnabled());
    }
}

void SetupDialog::OkClicked() {
    entered_ = setup_.EnteredSize();
    if (entered_) accept();
}

}  // namespace paginox
