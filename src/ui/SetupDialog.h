// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The page size dialog: a screen resolution, the printer's page or a size of the user's own
// for a new format of the page. What each choice does is decided by PageSizeSetup; this
// window shows it and hands the entered size back on OK.

#include <QDialog>
#include <array>
#include <optional>

#include "editor/PageSizeSetup.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace paginox {

class SetupDialog : public QDialog {
    Q_OBJECT

  public:
    SetupDialog(const PageFormat& current, int16_t screenLogPixels, PrinterAccess& printer,
                QWidget* parent = nullptr);

    const PageSizeSetup& Setup() const { return setup_; }
    // The size accepted with OK.
    std::optional<FormatSize> Entered() const { return entered_; }

  private:
    QWidget* BuildPrinterRow();
    // Controls follow the setup after each change.
    void ShowSetup();
    void OkClicked();

    PageSizeSetup setup_;
    std::optional<FormatSize> entered_;
    std::array<QRadioButton*, PageSizeSetup::kOptionCount> options_{};
    std::array<QLineEdit*, 2> pixels_{};
    QPushButton* printer_ = nullptr;
    QLabel* paperLabel_ = nullptr;
    QComboBox* paper_ = nullptr;
    QComboBox* orientation_ = nullptr;
    QSpinBox* dotsPerInch_ = nullptr;
    QPushButton* usePaper_ = nullptr;
};

}  // namespace paginox
