// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/InstallationDialog.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "editor/QtText.h"
#include "persist/Folders.h"
#include "persist/SpecialFolders.h"

namespace paginox {

namespace {
constexpr const char* kTitle = "Veltrane Installation";
}  // namespace

InstallationDialog::InstallationDialog(QWidget* parent) : QDialog(parent) {
    setObjectName("Installation");
    setWindowTitle(kTitle);
    found_ = new QListWidget(this);
    found_->setObjectName("lstInstallations");
    table_ = new QTableWidget(0, 2, this);
    table_->setObjectName("tblFolders");
    table_->setHorizontalHeaderLabels({"Folder", "Path"});
    table_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->verticalHeader()->hide();
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    note_ = new QLabel(this);
    note_->setWordWrap(true);

    auto* pick = new QPushButton("Add &Folder...", this);
    auto* use = new QPushButton("&Use This Installation", this);
    use->setObjectName("btnUse");
    use->setDefault(true);
    auto* search = new QPushButton("&Automatic Search", this);
    auto* close = new QPushButton("Close", this);
    connect(pick, &QPushButton::clicked, this, [this] {
        QString folder = QFileDialog::getExistingDirectory(this,
                                                           "Choose a Wine prefix, or a "
                                                           "folder holding Veltrane9.ini");
        if (!folder.isEmpty() && !AddFolder(ToPath(folder))) {
            ShowMessage("No Veltrane9.ini was found in " + Utf8ToCp1252(ToPath(folder)) +
                            " (nor in its drive_c\\windows).",
                        kTitle, MsgIcon::Exclamation);
        }
    });
    connect(use, &QPushButton::clicked, this, [this] { UseChosen(); });
    connect(search, &QPushButton::clicked, this, [this] { UseSearch(); });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    connect(found_, &QListWidget::currentRowChanged, this, [this] { ShowTable(); });

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(pick);
    buttons->addStretch(1);
    buttons->addWidget(search);
    buttons->addWidget(use);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel("Installations found, in the order they are looked for:", this));
    layout->addWidget(found_);
    layout->addWidget(new QLabel("The folders it gives:", this));
    layout->addWidget(table_, 1);
    layout->addWidget(note_);
    layout->addLayout(buttons);
    resize(760, 560);
    Fill();
}

void InstallationDialog::Fill() {
    auto system = std::make_shared<SystemSpecialFolders>();
    installations_ = FindHostInstallations(system, SavedHostChoice(), HomeFolder());
    for (const std::string& folder : extra_) {
        for (HostInstallation& h : FindHostInstallations(system, folder, HomeFolder())) {
            if (h.Kind == "chosen") installations_.insert(installations_.begin(), h);
        }
    }
    found_->clear();
    for (const HostInstallation& h : installations_) {
        bool inUse = h.Folder == CurrentHost().Folder;
        found_->addItem(QString("%1%2: %3")
                            .arg(inUse ? "\u2713 " : "")
                            .arg(QString::fromStdString(h.Kind))
                            .arg(FromPath(h.Folder)));
    }
    note_->setText(installations_.empty()
                       ? "No installation was found: Paginox runs on its demo data."
                       : "The first is used. A choice takes effect the next time Paginox starts.");
    found_->setCurrentRow(0);
}

void InstallationDialog::ShowTable() {
    int row = found_->currentRow();
    table_->setRowCount(0);
    if (row < 0 || row >= static_cast<int>(installations_.size())) return;
    Folders folders;
    folders.FindFolders(2, *installations_[size_t(row)].Special, '/');
    table_->setRowCount(Folders::kCount);
    for (int16_t i = 0; i < Folders::kCount; ++i) {
        table_->setItem(i, 0, new QTableWidgetItem(FromAnsi(folders.DisplayName(i))));
        table_->setItem(i, 1, new QTableWidgetItem(FromPath(folders.Path(i))));
    }
}

bool InstallationDialog::AddFolder(const std::string& folder) {
    auto system = std::make_shared<SystemSpecialFolders>();
    std::vector<HostInstallation> found = FindHostInstallations(system, folder, HomeFolder());
    if (found.empty() || found.front().Kind != "chosen") return false;
    extra_.push_back(folder);
    Fill();
    return true;
}

void InstallationDialog::UseChosen() {
    int row = found_->currentRow();
    if (row < 0 || row >= static_cast<int>(installations_.size())) return;
    if (!SaveHostChoice(installations_[size_t(row)].Folder)) {
        ShowMessage("The choice could not be saved in " + Utf8ToCp1252(OwnSettingsFile()) + ".",
                    kTitle, MsgIcon::Exclamation);
        return;
    }
    note_->setText("Paginox will use " + FromPath(installations_[size_t(row)].Folder) +
                   " from its next start.");
}

void InstallationDialog::UseSearch() {
    SaveHostChoice("");
    note_->setText("Paginox will look for an installation itself from its next start.");
}

}  // namespace paginox
