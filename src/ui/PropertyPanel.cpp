// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PropertyPanel.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "core/RuntimeError.h"
#include "editor/EditStep.h"
#include "editor/EditorHistory.h"
#include "editor/EditorState.h"
#include "editor/ObjectCommands.h"
#include "editor/QtText.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "persist/Folders.h"
#include "ui/EditorDialogs.h"

namespace paginox {

namespace {

// Edits a value in place: a list of choices for Boolean and choice rows (cmbProperty), a
// line of text for the others. The value is handed to the panel once the editor has closed,
// since storing it rebuilds the list.
class PropertyDelegate : public QStyledItemDelegate {
  public:
    explicit PropertyDelegate(PropertyPanel& panel) : QStyledItemDelegate(&panel), panel_(panel) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                          const QModelIndex& index) const override {
        const PropertyRow& row = panel_.Rows().at(static_cast<size_t>(index.row()));
        QWidget* editor = MakeEditor(parent, row);
        panel_.EditorOpened(index.row(), editor);
        return editor;
    }

    QWidget* MakeEditor(QWidget* parent, const PropertyRow& row) const {
        if (row.Kind == RowKind::Boolean || row.Kind == RowKind::Choice) {
            auto* combo = new QComboBox(parent);
            combo->setObjectName("cmbProperty");
            if (row.Kind == RowKind::Boolean) {
                combo->addItems({"True", "False"});
            } else {
                for (const auto& choice : row.Choices) combo->addItem(FromAnsi(choice.second));
            }
            auto* self = const_cast<PropertyDelegate*>(this);
            connect(combo, &QComboBox::activated, self, [self, combo] {
                emit self->commitData(combo);
                emit self->closeEditor(combo);
            });
            QTimer::singleShot(0, combo, [combo] { combo->showPopup(); });
            return combo;
        }
        auto* edit = new QLineEdit(parent);
        edit->setObjectName("txtProperty");
        if (row.MaxLength > 0) edit->setMaxLength(static_cast<int>(row.MaxLength));
        return edit;
    }

    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        QString text = index.data().toString();
        if (auto* combo = qobject_cast<QComboBox*>(editor)) {
            // A value outside the list (read from a file) is offered as it is, so that
            // opening the list and leaving it changes nothing.
            if (combo->findText(text) < 0) combo->addItem(text);
            combo->setCurrentIndex(combo->findText(text));
        } else if (auto* edit = qobject_cast<QLineEdit*>(editor)) {
            edit->setText(text);
        }
    }

    void setModelData(QWidget* editor, QAbstractItemModel*,
                      const QModelIndex& index) const override {
        QString text;
        if (auto* combo = qobject_cast<QComboBox*>(editor)) text = combo->currentText();
        if (auto* edit = qobject_cast<QLineEdit*>(editor)) text = edit->text();
        if (text == index.data().toString()) return;
        panel_.Stage(text);
    }

  private:
    PropertyPanel& panel_;
};

}  // namespace

PropertyPanel::PropertyPanel(EditorHistory& history, EditorDialogs& dialogs, QWidget* parent)
    : QWidget(parent), state_(history.State()), history_(history), dialogs_(dialogs) {
    objects_ = new QComboBox(this);
    objects_->setObjectName("cmbObjects");
    list_ = new QTableWidget(0, 2, this);
    list_->setObjectName("PropertyList");
    list_->setHorizontalHeaderLabels({"Property", "Value"});
    list_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    list_->horizontalHeader()->setStretchLastSection(true);
    list_->verticalHeader()->hide();
    list_->verticalHeader()->setDefaultSectionSize(list_->fontMetrics().height() + 8);
    list_->setSelectionBehavior(QAbstractItemView::SelectRows);
    list_->setSelectionMode(QAbstractItemView::SingleSelection);
    list_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                           QAbstractItemView::AnyKeyPressed);
    list_->setItemDelegateForColumn(1, new PropertyDelegate(*this));
    // A choice is made in one click: the click opens the row's list of choices at once.
    connect(list_, &QTableWidget::cellClicked, this, [this](int row, int) {
        if (row < 0 || row >= static_cast<int>(rows_.size())) return;
        RowKind kind = rows_[static_cast<size_t>(row)].Kind;
        if (kind == RowKind::Boolean || kind == RowKind::Choice)
            list_->editItem(list_->item(row, 1));
    });
    help_ = new QLabel(this);
    help_->setObjectName("lblPropHelp");
    help_->setWordWrap(true);
    help_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    help_->setFrameShape(QFrame::StyledPanel);
    help_->setMinimumHeight(help_->fontMetrics().lineSpacing() * 5);
    help_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    more_ = new QPushButton(">", this);
    more_->setObjectName("btnMore");
    more_->setToolTip("Browse for a file");
    more_->setEnabled(false);
    editColumns_ = new QPushButton("Edit Columns...", this);
    editColumns_->setObjectName("btnEditColumns");
    editColumns_->setEnabled(false);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(more_);
    buttons->addStretch();
    buttons->addWidget(editColumns_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(objects_);
    layout->addWidget(list_, 1);
    layout->addWidget(help_);
    layout->addLayout(buttons);

    connect(objects_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (objectClickUpdate_ && index >= 0) emit objectChosen(static_cast<int16_t>(index));
    });
    connect(list_, &QTableWidget::currentCellChanged, this, [this] { ShowHelp(); });
    connect(more_, &QPushButton::clicked, this, [this] { BrowseForRow(); });
    connect(editColumns_, &QPushButton::clicked, this, [this] { emit editColumnsRequested(); });
}

void PropertyPanel::Rebuild() {
    bool update = objectClickUpdate_;
    objectClickUpdate_ = false;
    objects_->clear();
    objects_->addItem("Page");
    if (state_.CurrentFormat) {
        for (int16_t k = 1; k <= state_.CurrentFormat->NumObjects(); ++k) {
            objects_->addItem(FromAnsi(ObjectCaption(state_, k)));
        }
    }
    objects_->setCurrentIndex(state_.Selected() ? state_.SelectedObject : 0);
    objectClickUpdate_ = update;
    FillRows();
}

void PropertyPanel::ShowSelectedObject() {
    objects_->setCurrentIndex(state_.Selected() ? state_.SelectedObject : 0);
}

void PropertyPanel::RebuildRows() {
    FillRows();
}

void PropertyPanel::FillRows() {
    QString chosen;
    if (list_->currentRow() >= 0 && list_->item(list_->currentRow(), 0)) {
        chosen = list_->item(list_->currentRow(), 0)->text();
    }
    rows_ = BuildPropertyRows(state_);
    QSignalBlocker block(list_);
    list_->clearContents();
    list_->setRowCount(static_cast<int>(rows_.size()));
    int current = 0;
    for (int i = 0; i < static_cast<int>(rows_.size()); ++i) {
        const PropertyRow& row = rows_[static_cast<size_t>(i)];
        auto* label = new QTableWidgetItem(FromAnsi(row.Label));
        label->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        label->setToolTip(FromAnsi(row.Help));
        auto* value = new QTableWidgetItem(ValueText(row));
        value->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable);
        list_->setItem(i, 0, label);
        list_->setItem(i, 1, value);
        if (label->text() == chosen) current = i;
    }
    if (!rows_.empty()) list_->setCurrentCell(current, 1);
    ShowHelp();
}

QString PropertyPanel::ValueText(const PropertyRow& row) const {
    try {
        return FromAnsi(RowValueText(state_, row));
    } catch (const RuntimeError&) {
        return QString();
    }
}

void PropertyPanel::ShowHelp() {
    int row = list_->currentRow();
    if (row < 0 || row >= static_cast<int>(rows_.size())) {
        help_->clear();
        more_->setEnabled(false);
        return;
    }
    const PropertyRow& r = rows_[static_cast<size_t>(row)];
    help_->setText(FromAnsi(r.Help));
    more_->setEnabled(r.Kind == RowKind::File);
}

PropertyPanel::Edit PropertyPanel::EditOf(int row) const {
    Edit edit;
    edit.Row = rows_.at(static_cast<size_t>(row));
    edit.Place.FormatIndex = state_.CurrentFormatIndex;
    edit.Place.ObjectIndex = state_.Selected() ? state_.SelectedObject : 0;
    edit.Object = state_.Selected();
    return edit;
}

void PropertyPanel::EditorOpened(int row, QWidget* editor) {
    editor_ = editor;
    editing_ = EditOf(row);
}

void PropertyPanel::Stage(const QString& text) {
    if (!editing_) return;
    staged_ = *editing_;
    staged_->Text = text;
    // Stored once the editor has closed: storing rebuilds the list.
    QMetaObject::invokeMethod(
        this, [this] { ApplyStaged(); }, Qt::QueuedConnection);
}

void PropertyPanel::CommitPendingEdit() {
    // A closed editor is hidden at once, though it goes only later.
    if (editor_ && editor_->isVisible()) {
        QAbstractItemDelegate* delegate = list_->itemDelegateForColumn(1);
        QWidget* editor = editor_;
        editor_ = nullptr;
        emit delegate->commitData(editor);
        emit delegate->closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
    ApplyStaged();
}

void PropertyPanel::ApplyStaged() {
    if (!staged_) return;
    Edit edit = *staged_;
    staged_.reset();
    Apply(edit);
}

bool PropertyPanel::ApplyText(int row, const QString& text) {
    if (row < 0 || row >= static_cast<int>(rows_.size())) return false;
    Edit edit = EditOf(row);
    edit.Text = text;
    return Apply(edit);
}

bool PropertyPanel::StillThere(const Edit& edit) const {
    const RowPlace& place = edit.Place;
    if (!state_.Page || place.FormatIndex < 1 || place.FormatIndex > state_.Page->NumFormats())
        return false;
    std::shared_ptr<PageFormat> format = state_.Page->GetFormat(place.FormatIndex);
    if (!format || place.ObjectIndex > format->NumObjects()) return false;
    // The same object, not another that has come to its place.
    return place.ObjectIndex == 0 || format->Object(place.ObjectIndex) == edit.Object.lock();
}

bool PropertyPanel::Apply(const Edit& edit) {
    // The page changed under an edit left open (its object deleted, say): it is dropped.
    if (!StillThere(edit)) return false;
    const PropertyRow& r = edit.Row;
    const RowPlace& at = edit.Place;
    // Leaving a value as it is shown writes nothing: a rounded 0.5446 stays 0.54456824.
    if (ToAnsi(edit.Text.trimmed()) == Trim(RowValueText(state_, r, at))) return false;
    RowInput input = ParseRowInput(r, ToAnsi(edit.Text));
    if (!input.Value) {
        Messages().Show(input.Message, input.Title, MsgButtons::Ok, MsgIcon::Exclamation);
        emit propertyChanged();  // the row shows its stored value again
        return false;
    }
    try {
        EditStep step(history_);
        step.Set(r.Id, *input.Value, at.FormatIndex, at.ObjectIndex, r.SubIndex);
        // Keep what depends on the value in line, in the same step.
        if (r.Id == kPropChartNum && state_.Page->MaxNumCharts() > state_.Page->NumCharts()) {
            step.Set(kPropPageNumCharts, state_.Page->MaxNumCharts(), 0, 0, 0);
        }
        if (r.Id == kPropTextLines && at.ObjectIndex >= 1) {
            std::shared_ptr<PageObject> obj =
                state_.Page->GetFormat(at.FormatIndex)->Object(at.ObjectIndex);
            if (obj->HorzBlocks() > obj->TextLines()) {
                step.Set(kPropHorzBlocks, obj->TextLines(), at.FormatIndex, at.ObjectIndex, 0);
            }
        }
    } catch (const RuntimeError& e) {
        ShowMessage(e.Description(), "", MsgIcon::Exclamation);
    }
    emit propertyChanged();
    return true;
}

void PropertyPanel::BrowseForRow() {
    int row = list_->currentRow();
    if (row < 0 || row >= static_cast<int>(rows_.size())) return;
    const PropertyRow& r = rows_[static_cast<size_t>(row)];
    if (r.Kind != RowKind::File) return;
    PickerSpec picker = PickerFor(r.Picker);
    FileDialogSpec request;
    request.Title = std::string("Select ") + picker.Subject;
    request.Filter = picker.Filter;
    request.DefaultSuffix = picker.DefaultExtension;
    request.Folder = AppFolders().Path(picker.Folder);
    std::optional<std::string> path = dialogs_.OpenFile(this, request);
    if (!path) return;
    ApplyText(row, FromAnsi(PickedFileValue(r.Picker, *path)));
}

}  // namespace paginox
