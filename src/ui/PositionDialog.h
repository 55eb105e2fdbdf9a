// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The object's position and size typed as fractions of the printable area.

#include <QDialog>
#include <array>
#include <cstdint>

class QDoubleSpinBox;

namespace paginox {

class PageObject;

class PositionDialog : public QDialog {
  public:
    explicit PositionDialog(const PageObject& obj, QWidget* parent = nullptr);

    float Origin(int16_t axis) const;  // 1 across, 2 down
    float Length(int16_t axis) const;
    // A value the user left alone comes back exactly as it was, not rounded by its box.

  private:
    float Value(size_t i) const;

    std::array<QDoubleSpinBox*, 4> boxes_{};  // origin x, origin y, length x, length y
    std::array<float, 4> original_{};
    std::array<double, 4> shown_{};  // the originals as the boxes round them
};

}  // namespace paginox
