#pragma once

// The property list: the object selector (the page or one object of the current format), one
// row per setting with its value, the help text of the chosen row, and the > button that
// browses for a file. Typed values are checked before they are stored; every edit that
// passes is one undoable step.

#include <QWidget>
#include <cstdint>
#include <vector>

#include "editor/PropertyRows.h"

class QComboBox;
class QLabel;
class QPushButton;
class QTableWidget;

namespace paginox {

class EditorDialogs;
class EditorState;
class UndoManager;

class PropertyPanel : public QWidget {
    Q_OBJECT

  public:
    PropertyPanel(EditorState& state, UndoManager& undo, EditorDialogs& dialogs,
                  QWidget* parent = nullptr);

    // Refills the object selector and the rows for the current selection, keeping the chosen
    // row where it can.
    void Rebuild();
    // Makes the object selector show the selected object. Fires its change handler (and so
    // objectChosen) only when SetObjectClickUpdate allows it.
    void ShowSelectedObject();
    // Refills only the rows (the selector is left as it is).
    void RebuildRows();
    void SetObjectClickUpdate(bool update) { objectClickUpdate_ = update; }

    // Checks text against row (0-based) and stores it as one undoable step; a bad value gets
    // its message and changes nothing. True when the value was accepted.
    bool ApplyText(int row, const QString& text);
    // The > button of the chosen row: browses for a file.
    void BrowseForRow();

    const std::vector<PropertyRow>& Rows() const { return rows_; }
    QTableWidget* List() const { return list_; }
    QComboBox* ObjectSelector() const { return objects_; }
    QPushButton* EditColumnsButton() const { return editColumns_; }

  signals:
    // The user chose another entry of the object selector (0: the page).
    void objectChosen(int16_t index);
    // A setting was stored: the window refreshes.
    void propertyChanged();
    void editColumnsRequested();

  private:
    void FillRows();
    void ShowHelp();
    QString ValueText(const PropertyRow& row) const;

    EditorState& state_;
    UndoManager& undo_;
    EditorDialogs& dialogs_;
    std::vector<PropertyRow> rows_;
    bool objectClickUpdate_ = true;
    QComboBox* objects_;
    QTableWidget* list_;
    QLabel* help_;
    QPushButton* more_;
    QPushButton* editColumns_;
};

}  // namespace paginox
