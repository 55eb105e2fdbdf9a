// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/HelpWindow.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace paginox {

HelpWindow::HelpWindow(const QString& guide, QWidget* parent) : QDialog(parent) {
    setObjectName("HelpWindow");
    setWindowTitle("Paginox Help");
    browser_ = new QTextBrowser(this);
    browser_->setObjectName("txtGuide");
    browser_->setOpenExternalLinks(true);
    browser_->setSource(QUrl::fromLocalFile(guide));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto* back = buttons->addButton("Back", QDialogButtonBox::ActionRole);
    back->setEnabled(false);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    connect(back, &QPushButton::clicked, browser_, &QTextBrowser::backward);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(browser_);
    layout->addWidget(buttons);
    resize(820, 720);
}

QString HelpWindow::FindGuide(const QString& programFolder) {
    const QDir program(programFolder);
    for (const char* candidate : {"../share/paginox/guide", "../guide", "../../guide"}) {
        QFileInfo guide(program.filePath(QString(candidate) + "/user-guide.html"));
        if (guide.isFile()) return guide.canonicalFilePath();
    }
    return QString();
}

}  // namespace paginox
