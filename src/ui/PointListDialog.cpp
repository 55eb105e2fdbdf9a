// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PointListDialog.h"

#include <QDropEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <functional>

#include "editor/QtText.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"

namespace paginox {

namespace {
// A list that columns are dragged from and dropped on. A drop is reported, never carried out
// by the list itself, so the columns stay the one record of what is chosen.
class ColumnList : public QListWidget {
  public:
    using Dropped = std::function<void(QListWidget* source, int sourceRow, int targetRow)>;
    ColumnList(Dropped dropped, QWidget* parent) : QListWidget(parent), dropped_(dropped) {
        setDragDropMode(QAbstractItemView::DragDrop);
        // Copy: the list a column is dragged from does not remove it after the drop.
        setDefaultDropAction(Qt::CopyAction);
        setDropIndicatorShown(true);
    }

  protected:
    void dropEvent(QDropEvent* event) override {
        auto* source = qobject_cast<QListWidget*>(event->source());
        QModelIndex at = indexAt(event->position().toPoint());
        int row = at.isValid() ? at.row() : count();
        if (at.isValid() && dropIndicatorPosition() == BelowItem) ++row;
        event->setDropAction(Qt::CopyAction);
        event->accept();
        if (source && source->currentRow() >= 0) dropped_(source, source->currentRow(), row);
    }

  private:
    Dropped dropped_;
};
}  // namespace

PointListDialog::PointListDialog(const PageObject& obj, const PageFormat& format, QWidget* parent)
    : QDialog(parent), columns_(obj), format_(format) {
    setObjectName("PointList");
    setWindowTitle("Edit Columns");
    available_ = MakeList("lstAvailable", false);
    chosen_ = MakeList("lstChosen", true);
    add_ = MakeButton("btnAdd", "&Add >", &PointListDialog::AddColumn);
    remove_ = MakeButton("btnRemove", "< &Remove", &PointListDialog::RemoveColumn);
    up_ = MakeButton("btnUp", "Move &Up", &PointListDialog::MoveUp);
    down_ = MakeButton("btnDown", "Move &Down", &PointListDialog::MoveDown);
    defaults_ = MakeButton("btnDefaults", "De&faults", &PointListDialog::RestoreDefaults);
    ok_ = new QPushButton("OK", this);
    ok_->setObjectName("btnOK");
    ok_->setDefault(true);
    auto* cancel = new QPushButton("Cancel", this);
    cancel->setObjectName("btnCancel");
    connect(ok_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    width_ = new QLabel(this);
    width_->setObjectName("lblWidth");
    width_->setWordWrap(true);
    count_ = new QLabel(this);
    count_->setObjectName("lblCount");

    available_->installEventFilter(this);
    chosen_->installEventFilter(this);
    connect(available_, &QListWidget::itemDoubleClicked, this, &PointListDialog::AddColumn);
    connect(chosen_, &QListWidget::itemDoubleClicked, this, &PointListDialog::RemoveColumn);
    connect(chosen_, &QListWidget::currentRowChanged, this, [this] { UpdateControls(); });

    auto* middle = new QVBoxLayout;
    middle->addStretch();
    middle->addWidget(add_);
    middle->addWidget(remove_);
    middle->addStretch();
    auto* right = new QVBoxLayout;
    right->addWidget(up_);
    right->addWidget(down_);
    right->addSpacing(12);
    right->addWidget(defaults_);
    right->addStretch();
    auto* lists = new QGridLayout;
    availableHeading_ = new QLabel("A&vailable columns:", this);
    availableHeading_->setBuddy(available_);
    chosenHeading_ = new QLabel("Columns &shown, in order:", this);
    chosenHeading_->setBuddy(chosen_);
    lists->addWidget(availableHeading_, 0, 0);
    lists->addWidget(chosenHeading_, 0, 2);
    lists->addWidget(available_, 1, 0);
    lists->addLayout(middle, 1, 1);
    lists->addWidget(chosen_, 1, 2);
    lists->addLayout(right, 1, 3);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(count_, 1);
    buttons->addWidget(ok_);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    auto* heading = new QLabel(FromAnsi(obj.POClass().FullName()), this);
    heading->setObjectName("lblObject");
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    layout->addWidget(heading);
    if (columns_.TableEmpty()) {
        auto* empty = new QLabel(
            "No column definitions were found (the list definition file is missing or empty), "
            "so the columns can be looked at but not changed.",
            this);
        empty->setObjectName("lblNoTable");
        empty->setWordWrap(true);
        layout->addWidget(empty);
    }
    layout->addLayout(lists, 1);
    layout->addWidget(width_);
    layout->addLayout(buttons);
    resize(620, 440);
    Refill(0);
}

QListWidget* PointListDialog::MakeList(const char* name, bool chosen) {
    auto* list = new ColumnList(
        [this, chosen](QListWidget* source, int sourceRow, int targetRow) {
            DropColumn(source == chosen_, sourceRow, chosen, targetRow);
        },
        this);
    list->setObjectName(name);
    return list;
}

QPushButton* PointListDialog::MakeButton(const char* name, const QString& text,
                                         void (PointListDialog::*act)()) {
    auto* button = new QPushButton(text, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, act);
    return button;
}

bool PointListDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        // The heading of the list that has the keyboard is bold: its keys act on it.
        QLabel* heading = watched == available_ ? availableHeading_ : chosenHeading_;
        QFont font = heading->font();
        font.setBold(event->type() == QEvent::FocusIn);
        heading->setFont(font);
    }
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    // Enter or Insert adds the highlighted column, Delete removes one, Ctrl+Up and Ctrl+Down
    // move it.
    auto* key = static_cast<QKeyEvent*>(event);
    bool ctrl = key->modifiers() & Qt::ControlModifier;
    void (PointListDialog::*act)() = nullptr;
    if (watched == available_) {
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter ||
            key->key() == Qt::Key_Insert) {
            act = &PointListDialog::AddColumn;
        }
    } else if (watched == chosen_) {
        if (key->key() == Qt::Key_Delete) act = &PointListDialog::RemoveColumn;
        if (ctrl && key->key() == Qt::Key_Up) act = &PointListDialog::MoveUp;
        if (ctrl && key->key() == Qt::Key_Down) act = &PointListDialog::MoveDown;
    }
    if (!act) return QDialog::eventFilter(watched, event);
    (this->*act)();
    return true;
}

void PointListDialog::DropColumn(bool fromChosen, int sourceRow, bool toChosen, int targetRow) {
    if (columns_.TableEmpty() || sourceRow < 0) return;
    if (!fromChosen && toChosen) {
        QListWidgetItem* item = available_->item(sourceRow);
        if (item && columns_.Add(static_cast<uint8_t>(item->data(Qt::UserRole).toInt()),
                                 size_t(targetRow))) {
            Refill(targetRow);
        }
    } else if (fromChosen && toChosen) {
        int to = sourceRow < targetRow ? targetRow - 1 : targetRow;
        columns_.Move(size_t(sourceRow), size_t(to));
        Refill(to);
    } else if (fromChosen) {
        columns_.Remove(size_t(sourceRow));
        Refill(sourceRow);
    }
}

void PointListDialog::AddColumn() {
    int at = chosen_->currentRow() < 0 ? chosen_->count() : chosen_->currentRow() + 1;
    DropColumn(false, available_->currentRow(), true, at);
}

void PointListDialog::RemoveColumn() {
    DropColumn(true, chosen_->currentRow(), false, 0);
}

void PointListDialog::MoveUp() {
    int row = chosen_->currentRow();
    if (row >= 1) DropColumn(true, row, true, row - 1);
}

void PointListDialog::MoveDown() {
    int row = chosen_->currentRow();
    if (row >= 0 && row + 1 < chosen_->count()) DropColumn(true, row, true, row + 2);
}

void PointListDialog::RestoreDefaults() {
    if (columns_.TableEmpty()) return;
    columns_.Defaults();
    Refill(0);
}

void PointListDialog::Refill(int chosenRow) {
    int availableRow = std::max(available_->currentRow(), 0);
    {
        QSignalBlocker blockAvailable(available_);
        QSignalBlocker blockChosen(chosen_);
        available_->clear();
        for (const ListColumns::Entry& entry : columns_.Available()) {
            auto* item = new QListWidgetItem(FromAnsi(entry.Label), available_);
            item->setData(Qt::UserRole, entry.Code);
        }
        chosen_->clear();
        for (uint8_t code : columns_.Chosen()) chosen_->addItem(FromAnsi(columns_.Label(code)));
        available_->setCurrentRow(std::min(availableRow, available_->count() - 1));
        chosen_->setCurrentRow(std::min(chosenRow, chosen_->count() - 1));
    }
    UpdateControls();
}

void PointListDialog::UpdateControls() {
    bool editable = !columns_.TableEmpty();
    int row = chosen_->currentRow();
    add_->setEnabled(editable && !columns_.Full() && available_->count() > 0);
    remove_->setEnabled(editable && row >= 0);
    up_->setEnabled(editable && row >= 1);
    down_->setEnabled(editable && row >= 0 && row + 1 < chosen_->count());
    defaults_->setEnabled(editable);
    // A list shows at least one column.
    ok_->setEnabled(editable && !columns_.Chosen().empty());
    available_->setEnabled(editable);

    int32_t needed = columns_.NeededWidth(format_);
    int32_t box = columns_.BoxWidth(format_);
    QString text = QString(
                       "With these columns the list needs %1 pixels across; its box is %2 "
                       "pixels wide on this page size.")
                       .arg(needed)
                       .arg(box);
    if (needed > box) text += " The columns do not fit: widen the box or drop a column.";
    width_->setText(text);
    if (columns_.Chosen().empty()) {
        count_->setText("No columns: choose at least one to show.");
    } else if (columns_.Full()) {
        count_->setText(QString("%1 columns: the list is full.").arg(PageObject::kMaxColumns));
    } else {
        count_->setText(QString("%1 of at most %2 columns")
                            .arg(columns_.Chosen().size())
                            .arg(PageObject::kMaxColumns));
    }
}

}  // namespace paginox
