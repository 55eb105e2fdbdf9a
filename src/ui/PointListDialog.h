// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The column editor of list objects: the columns the definition table offers, the columns
// the object shows in order, and the width the list needs with them. Columns move between
// and within the lists by buttons, drag and drop, and keys; OK hands them to the caller.

#include <QDialog>

#include "editor/ListColumns.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace paginox {

class PageFormat;

class PointListDialog : public QDialog {
    Q_OBJECT

  public:
    PointListDialog(const PageObject& obj, const PageFormat& format, QWidget* parent = nullptr);

    const ListColumns& Columns() const { return columns_; }

    // What dropping row sourceRow of one list at row targetRow of a list does: a column
    // dropped on the chosen list is put in (or moved) there, one dropped on the available
    // list is taken out.
    void DropColumn(bool fromChosen, int sourceRow, bool toChosen, int targetRow);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QListWidget* MakeList(const char* name, bool chosen);
    QPushButton* MakeButton(const char* name, const QString& text, void (PointListDialog::*act)());
    void AddColumn();
    void RemoveColumn();
    void MoveUp();
    void MoveDown();
    void RestoreDefaults();
    // Both lists follow the columns, chosenRow made the current column.
    void Refill(int chosenRow);
    // The buttons, the width and the count follow the columns and the current column.
    void UpdateControls();

    ListColumns columns_;
    const PageFormat& format_;
    QListWidget* available_;
    QListWidget* chosen_;
    QLabel* availableHeading_;
    QLabel* chosenHeading_;
    QLabel* width_;
    QLabel* count_;
    QPushButton* add_;
    QPushButton* remove_;
    QPushButton* up_;
    QPushButton* down_;
    QPushButton* defaults_;
    QPushButton* ok_;
};

}  // namespace paginox
