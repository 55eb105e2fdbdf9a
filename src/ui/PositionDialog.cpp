// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PositionDialog.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>

#include "model/PageObject.h"

namespace paginox {

PositionDialog::PositionDialog(const PageObject& obj, QWidget* parent) : QDialog(parent) {
    setObjectName("Position");
    setWindowTitle("Object Position");
    auto* form = new QFormLayout(this);
    const char* labels[4] = {"Anchor X:", "Anchor Y:", "Width:", "Height:"};
    const float values[4] = {obj.Origin(1), obj.Origin(2), obj.Length(1), obj.Length(2)};
    for (size_t i = 0; i < boxes_.size(); ++i) {
        auto* box = new QDoubleSpinBox(this);
        box->setRange(0, 1);
        box->setDecimals(4);
        box->setSingleStep(0.01);
        box->setValue(values[i]);
        boxes_[i] = box;
        original_[i] = values[i];
        shown_[i] = box->value();
        form->addRow(labels[i], box);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

float PositionDialog::Value(size_t i) const {
    double v = boxes_[i]->value();
    return v == shown_[i] ? original_[i] : static_cast<float>(v);
}

float PositionDialog::Origin(int16_t axis) const {
    return Value(axis == 1 ? 0 : 1);
}

float PositionDialog::Length(int16_t axis) const {
    return Value(axis == 1 ? 2 : 3);
}

}  // namespace paginox
