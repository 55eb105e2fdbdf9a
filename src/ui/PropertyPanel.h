// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The property list: the object selector (the page or one object of the current format), one
// row per setting with its value, the help text of the chosen row, and the > button that
// browses for a file. Typed values are checked before they are stored; every edit that
// passes is one undoable step.

#include <QPointer>
#include <QString>
#include <QWidget>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "editor/PropertyRows.h"

class QComboBox;
class QLabel;
class QPushButton;
class QTableWidget;

namespace paginox {

class EditorDialogs;
class EditorState;
class EditorHistory;
class PageObject;

class PropertyPanel : public QWidget {
    Q_OBJECT

  public:
    PropertyPanel(EditorHistory& history, EditorDialogs& dialogs, QWidget* parent = nullptr);

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
    // Stores the value being typed or chosen in the list, if any, on the object and property
    // it was opened for, before anything else happens.
    void CommitPendingEdit();
    // The list's editor: opened on row, and its value handed over when it closes.
    void EditorOpened(int row, QWidget* editor);
    void Stage(const QString& text);
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
    // A value for a row of the object (or page) at Place.
    struct Edit {
        PropertyRow Row;
        RowPlace Place;
        std::weak_ptr<PageObject> Object;  // the object itself, whatever its place becomes
        QString Text;
    };
    Edit EditOf(int row) const;
    bool StillThere(const Edit& edit) const;
    bool Apply(const Edit& edit);
    void ApplyStaged();
    void FillRows();
    void ShowHelp();
    QString ValueText(const PropertyRow& row) const;

    EditorState& state_;
    EditorHistory& history_;
    EditorDialogs& dialogs_;
    std::vector<PropertyRow> rows_;
    QPointer<QWidget> editor_;     // the open editor, if any
    std::optional<Edit> editing_;  // what it was opened for
    std::optional<Edit> staged_;   // its value, waiting for the editor to close
    bool objectClickUpdate_ = true;
    QComboBox* objects_;
    QTableWidget* list_;
    QLabel* help_;
    QPushButton* more_;
    QPushButton* editColumns_;
};

}  // namespace paginox
