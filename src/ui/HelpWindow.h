// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The user guide in a window of its own, shown when the host program's help file is not
// installed: the HTML made from docs/user-guide.md, with its pictures.

#include <QDialog>
#include <QString>

class QTextBrowser;

namespace paginox {

class HelpWindow : public QDialog {
    Q_OBJECT

  public:
    explicit HelpWindow(const QString& guide, QWidget* parent = nullptr);
    QTextBrowser* Browser() const { return browser_; }

    // The guide's HTML: share/paginox/guide of the installation, or guide/ of a build tree,
    // found from the program's folder; empty when there is none.
    static QString FindGuide(const QString& programFolder);

  private:
    QTextBrowser* browser_ = nullptr;
};

}  // namespace paginox
