// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// File > Veltrane Installation...: the installations found (the one in use first marked), the
// folder table each gives, and the choice of one, remembered in Paginox's own settings for the
// next start.

#include <QDialog>
#include <vector>

#include "persist/HostInstallation.h"

class QLabel;
class QListWidget;
class QTableWidget;

namespace paginox {

class InstallationDialog : public QDialog {
    Q_OBJECT

  public:
    explicit InstallationDialog(QWidget* parent = nullptr);

    QListWidget* Found() const { return found_; }
    QTableWidget* Table() const { return table_; }
    // Adds a folder the user picked to the list when it holds an installation; false if not.
    bool AddFolder(const std::string& folder);
    // Remembers the chosen installation (or, with none, the automatic search).
    void UseChosen();
    void UseSearch();

  private:
    void Fill();
    void ShowTable();

    std::vector<HostInstallation> installations_;
    std::vector<std::string> extra_;  // folders picked here
    QListWidget* found_;
    QTableWidget* table_;
    QLabel* note_;
};

}  // namespace paginox
