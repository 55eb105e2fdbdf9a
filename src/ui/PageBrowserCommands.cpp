// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PageBrowser.h"

// The page browser's page and category commands: each asks what it needs, lets the
// catalogue decide, and shows the result.

#include <QGuiApplication>
#include <QListWidget>
#include <QScreen>

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "editor/PageSizes.h"
#include "editor/QtText.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"

namespace paginox {

namespace {
constexpr const char* kTitle = "Page Browser";
}  // namespace

bool PageBrowser::Done(const std::string& message) {
    if (message.empty()) return true;
    ShowMessage(message, kTitle, MsgIcon::Exclamation);
    return false;
}

void PageBrowser::OpenPage() {
    std::string file = CurrentPage();
    if (file.empty()) return;
    chosen_ = catalog_.PathOf(file);
    accept();
}

void PageBrowser::NewPage() {
    std::optional<QString> name =
        Ask("New Page", "Enter the new page name (with no path or extension)", "");
    if (!name) return;
    // Made as File > New makes a page: one format sized for this screen.
    PageClass page;
    page.InitNewPage();
    QScreen* screen = QGuiApplication::primaryScreen();
    if (screen && page.GetFormat(1)) {
        SizeFormatForScreen(*page.GetFormat(1), screen->geometry().width(),
                            screen->geometry().height(),
                            static_cast<int>(screen->logicalDotsPerInchX() + 0.5));
    }
    if (!Done(catalog_.NewPage(ToAnsi(*name), page))) return;
    FillCategories(PageCatalog::kAddedRecently);
    FillPages(ToAnsi(*name) + ".pag");
}

void PageBrowser::CopyPage() {
    std::string file = CurrentPage();
    if (file.empty()) return;
    std::string stem = file.substr(0, file.size() - 4);
    std::optional<QString> name =
        Ask("Copy Page", "Enter the name of the copy (with no path or extension)",
            FromAnsi(stem + " copy"));
    if (!name || !Done(catalog_.CopyPage(file, ToAnsi(*name)))) return;
    FillCategories(PageCatalog::kAddedRecently);
    FillPages(ToAnsi(*name) + ".pag");
}

void PageBrowser::RenamePage() {
    std::string file = CurrentPage();
    if (file.empty()) return;
    std::optional<QString> name =
        Ask("Rename Page", "Enter the new page name (with no path or extension)",
            FromAnsi(file.substr(0, file.size() - 4)));
    if (!name || !Done(catalog_.RenamePage(file, ToAnsi(*name)))) return;
    info_.erase(file);
    FillCategories(CurrentCategory());
    FillPages(ToAnsi(*name) + ".pag");
}

void PageBrowser::DeletePage() {
    std::string file = CurrentPage();
    if (file.empty()) return;
    if (Messages().Show("Delete the page " + file + "?" + kCrLf + kCrLf +
                            "It goes to the desktop's trash where there is one.",
                        "Delete Page", MsgButtons::OkCancel, MsgIcon::Question) != MsgAnswer::Ok) {
        return;
    }
    if (!Done(catalog_.DeletePage(file))) return;
    info_.erase(file);
    FillCategories(CurrentCategory());
    FillPages("");
}

void PageBrowser::MovePage(const std::string& toCategory) {
    std::string file = CurrentPage();
    if (file.empty() || !Done(catalog_.MovePage(file, toCategory))) return;
    FillCategories(CurrentCategory());
    FillPages("");
}

void PageBrowser::NewCategory() {
    std::optional<QString> name =
        Ask("New Page Category", "Enter a new Page Category name", "New Category");
    if (!name || !Done(catalog_.AddCategory(ToAnsi(*name)))) return;
    FillCategories(ToAnsi(*name));
    FillPages("");
}

void PageBrowser::RenameCategory() {
    std::string current = CurrentCategory();
    if (current.empty() || current == PageCatalog::kAddedRecently) return;
    std::optional<QString> name =
        Ask("Rename Page Category", "Enter the new name of the Page Category", FromAnsi(current));
    if (!name || !Done(catalog_.RenameCategory(current, ToAnsi(*name)))) return;
    FillCategories(ToAnsi(*name));
}

void PageBrowser::DeleteCategory() {
    std::string current = CurrentCategory();
    if (current.empty() || current == PageCatalog::kAddedRecently) return;
    if (Messages().Show("Delete the category " + current + "?" + kCrLf + kCrLf +
                            "Its pages are kept, under " + PageCatalog::kAddedRecently + ".",
                        "Delete Page Category", MsgButtons::OkCancel,
                        MsgIcon::Question) != MsgAnswer::Ok) {
        return;
    }
    if (!Done(catalog_.DeleteCategory(current))) return;
    FillCategories(PageCatalog::kAddedRecently);
    FillPages("");
}

void PageBrowser::MoveCategory(int by) {
    std::string current = CurrentCategory();
    int row = categories_->currentRow();
    if (current.empty() || row < 1) return;
    // Row 0 is Added Recently: the user's categories count from row 1.
    if (!Done(catalog_.MoveCategory(current, std::max(0, row - 1 + by)))) return;
    FillCategories(current);
}

}  // namespace paginox
