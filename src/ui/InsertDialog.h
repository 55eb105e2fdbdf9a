// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The Insert dialog: the catalogue's classes grouped and ordered, the highlighted class's
// description and shape, and the insertion of a new object of it into the current format.

#include <QDialog>
#include <cstdint>

class QLabel;
class QListWidget;
class QPushButton;

namespace paginox {

class EditorState;
class PageObjectClasses;

class InsertDialog : public QDialog {
    Q_OBJECT

  public:
    InsertDialog(EditorState& state, const PageObjectClasses& classes, QWidget* parent = nullptr);

    // Inserts the class of the selected row, if it is a class; true when an object was
    // added. A failure shows "Unable to insert object:" with the error.
    bool InsertSelected();
    QListWidget* Objects() const { return objects_; }

  private:
    void ShowClass();

    EditorState& state_;
    const PageObjectClasses& classes_;
    QListWidget* objects_;
    QLabel* description_;
    QLabel* preview_;
    QPushButton* insert_;
};

}  // namespace paginox
