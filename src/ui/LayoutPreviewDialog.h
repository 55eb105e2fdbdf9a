// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Before a layout command changes other page sizes, each of them as it is and as it would
// be, side by side, with OK and Cancel.

#include <QDialog>
#include <cstdint>
#include <vector>

#include "ui/EditorDialogs.h"

namespace paginox {

class PageClass;

class LayoutPreviewDialog : public QDialog {
    Q_OBJECT

  public:
    LayoutPreviewDialog(const QString& title, const QString& text,
                        const std::vector<LayoutView>& views, QWidget* parent = nullptr);

    // Format k of the page drawn as the editor's preview draws it, fitted into size.
    static QImage Picture(const PageClass& page, int16_t k, QSize size);
};

}  // namespace paginox
