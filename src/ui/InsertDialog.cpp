// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/InsertDialog.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/MessageService.h"
#include "core/RuntimeError.h"
#include "editor/EditorState.h"
#include "editor/InsertList.h"
#include "editor/QtText.h"
#include "model/PageClass.h"
#include "model/PageObjectClasses.h"
#include "render/PageDraw.h"
#include "render/QtSurface.h"

namespace paginox {

namespace {
constexpr int kPreviewSide = 160;
}

InsertDialog::InsertDialog(EditorState& state, const PageObjectClasses& classes, QWidget* parent)
    : QDialog(parent), state_(state), classes_(classes) {
    setObjectName("Insert");
    setWindowTitle("Insert Object");
    objects_ = new QListWidget(this);
    objects_->setObjectName("Objects");
    description_ = new QLabel(this);
    description_->setObjectName("lblDesc");
    description_->setWordWrap(true);
    description_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    description_->setMinimumWidth(kPreviewSide);
    preview_ = new QLabel(this);
    preview_->setObjectName("picPreview");
    preview_->setFixedSize(kPreviewSide, kPreviewSide);
    preview_->setFrameShape(QFrame::StyledPanel);
    insert_ = new QPushButton("&Insert", this);
    insert_->setObjectName("btnInsert");
    insert_->setDefault(true);
    auto* cancel = new QPushButton("Cancel", this);
    cancel->setObjectName("btnCancel");

    for (const InsertRow& row : BuildInsertList(classes_)) {
        auto* item = new QListWidgetItem(FromAnsi(row.Text), objects_);
        item->setData(Qt::UserRole, row.Tag);
        if (row.Tag == 0) {
            QFont bold = item->font();
            bold.setBold(true);
            item->setFont(bold);
        }
    }

    auto* side = new QVBoxLayout;
    side->addWidget(preview_);
    side->addWidget(description_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(insert_);
    buttons->addWidget(cancel);
    auto* top = new QHBoxLayout;
    top->addWidget(objects_, 1);
    top->addLayout(side);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addLayout(buttons);
    resize(520, 380);
    insert_->setEnabled(false);  // until an object is chosen

    connect(objects_, &QListWidget::currentRowChanged, this, [this] { ShowClass(); });
    connect(objects_, &QListWidget::itemDoubleClicked, this, [this] { InsertSelected(); });
    connect(insert_, &QPushButton::clicked, this, [this] { InsertSelected(); });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void InsertDialog::ShowClass() {
    QListWidgetItem* item = objects_->currentItem();
    int16_t tag = item ? static_cast<int16_t>(item->data(Qt::UserRole).toInt()) : 0;
    insert_->setEnabled(tag != 0);  // a group's heading is no object
    if (tag == 0) {
        description_->clear();
        preview_->clear();
        return;
    }
    description_->setText(FromAnsiMessage(InsertDescription(classes_, tag)));
    auto cls = classes_.Class(tag);
    if (!cls || !state_.CurrentFormat) return;
    qreal ratio = devicePixelRatioF();
    QPixmap pixmap(QSize(kPreviewSide, kPreviewSide) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::white);
    {
        QtSurface surface(pixmap);
        // Shapes are filled light grey, as on the page.
        surface.SetFillColor(kShapeFillColour);
        surface.SetFillStyle(kFillSolid);
        DrawObject(surface, 1, *cls, nullptr, *state_.CurrentFormat, nullptr, true, false);
    }
    preview_->setPixmap(pixmap);
}

bool InsertDialog::InsertSelected() {
    QListWidgetItem* item = objects_->currentItem();
    int16_t tag = item ? static_cast<int16_t>(item->data(Qt::UserRole).toInt()) : 0;
    if (tag == 0) return false;
    try {
        InsertObject(state_, classes_, tag);
        hide();
        QApplication::processEvents();
        accept();
        return true;
    } catch (const RuntimeError& e) {
        ShowMessage(InsertErrorText(e.Description()));
    } catch (const std::exception& e) {
        ShowMessage(InsertErrorText(e.what()));
    }
    return false;
}

}  // namespace paginox
