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
    ReadFactsLater();  // pages the command (or another program) added
    // Another program's catalogue taken in on the way may have something to say.
    if (std::string problem = catalog_.TakeProblem(); !problem.empty())
        ShowMessage(problem, kTitle, MsgIcon::Exclamation);
    if (message.empty()) return true;
    ShowMessage(message, kTitle, MsgIcon::Exclamation);
    // The catalogue may have taken in another program's changes: the lists follow it.
    std::string page = CurrentPage();
    FillCategories(CurrentCategory());
    FillPages(page);
    return false;
}

std::optional<std::string> PageBrowser::AskName(
    const QString& title, const QString& prompt, QString proposal,
    const std::function<std::string(const std::string&)>& apply) {
    // A refused name brings the prompt back with what was typed, to be mended.
    for (;;) {
        std::optional<QString> name = Ask(title, prompt, proposal);
        if (!name) return std::nullopt;
        if (Done(apply(ToPath(*name)))) return ToPath(*name);
        proposal = *name;
    }
}

void PageBrowser::OpenPage() {
    std::string file = CurrentPage();
    if (file.empty()) return;
    chosen_ = catalog_.PathOf(file);
    accept();
}

void PageBrowser::NewPage() {
    // Made as File > New makes a page: one format sized for this screen.
    PageClass page;
    page.InitNewPage();
    QScreen* screen = QGuiApplication::primaryScreen();
    if (screen && page.GetFormat(1)) {
        SizeFormatForScreen(*page.GetFormat(1), screen->geometry().width(),
                            screen->geometry().height(),
                            static_cast<int>(screen->logicalDotsPerInchX() + 0.5));
    }
    std::optional<std::string> name =
        AskName("New Page", "Enter the new page name (with no path or extension)", "New Page",
                [&](const std::string& n) { return catalog_.NewPage(n, page); });
    if (!name) return;
    FillCategories(PageCatalog::kAddedRecently);
    FillPages(*name + ".pag");
}

void PageBrowser::CopyPage() {
    std::vector<std::string> pages = SelectedPages();
    if (pages.empty()) return;
    std::string made;
    if (pages.size() == 1) {
        const std::string& file = pages.front();
        std::optional<std::string> name =
            AskName("Copy Page", "Enter the name of the copy (with no path or extension)",
                    FromPath(file.substr(0, file.size() - 4) + " copy"),
                    [&](const std::string& n) { return catalog_.CopyPage(file, n); });
        if (!name) return;
        made = *name + ".pag";
    } else {
        // Several at once: each copy is named after its page, "copy", and a number if taken.
        for (const std::string& file : pages) {
            const std::string stem = file.substr(0, file.size() - 4) + " copy";
            std::string message;
            for (int n = 1; n < 100; ++n) {
                std::string name = n == 1 ? stem : stem + " " + std::to_string(n);
                message = catalog_.CopyPage(file, name);
                if (message.empty()) made = name + ".pag";
                if (message.empty() || message.find("already a page") == std::string::npos) break;
            }
            if (!Done(message)) break;
        }
    }
    FillCategories(PageCatalog::kAddedRecently);
    FillPages(made);
}

void PageBrowser::RenamePage() {
    std::string file = CurrentPage();
    if (file.empty()) return;
    std::optional<std::string> name =
        AskName("Rename Page", "Enter the new page name (with no path or extension)",
                FromPath(file.substr(0, file.size() - 4)),
                [&](const std::string& n) { return catalog_.RenamePage(file, n); });
    if (!name) return;
    facts_.erase(file);
    FillCategories(CurrentCategory());
    FillPages(*name + ".pag");
}

void PageBrowser::DeletePage() {
    std::vector<std::string> pages = SelectedPages();
    if (pages.empty()) return;
    for (const std::string& file : pages) {
        if (IsOpenPage(catalog_.PathOf(file))) {
            ShowMessage("The page " + Utf8ToCp1252(file) +
                            " is open in the editor, so it cannot be deleted. Open another page "
                            "first, then delete this one.",
                        kTitle, MsgIcon::Exclamation);
            return;
        }
    }
    std::string what = pages.size() == 1 ? "the page " + Utf8ToCp1252(pages.front())
                                         : "these " + std::to_string(pages.size()) + " pages";
    if (Messages().Show("Delete " + what + "?" + kCrLf + kCrLf +
                            "They go to the desktop's trash where there is one.",
                        "Delete Page", MsgButtons::OkCancel, MsgIcon::Question) != MsgAnswer::Ok) {
        return;
    }
    for (const std::string& file : pages) {
        if (!Done(catalog_.DeletePage(file))) return;
        facts_.erase(file);
    }
    FillCategories(CurrentCategory());
    FillPages("");
}

void PageBrowser::MovePage(const std::string& toCategory) {
    for (const std::string& file : SelectedPages()) {
        if (!Done(catalog_.MovePage(file, toCategory))) return;
    }
    FillCategories(CurrentCategory());
    FillPages("");
}

void PageBrowser::NewCategory() {
    std::optional<std::string> name =
        AskName("New Page Category", "Enter a new Page Category name", "New Category",
                [&](const std::string& n) { return catalog_.AddCategory(n); });
    if (!name) return;
    FillCategories(*name);
    FillPages("");
}

void PageBrowser::RenameCategory() {
    std::string current = CurrentCategory();
    if (current.empty() || current == PageCatalog::kAddedRecently) return;
    std::optional<std::string> name = AskName(
        "Rename Page Category", "Enter the new name of the Page Category", FromPath(current),
        [&](const std::string& n) { return catalog_.RenameCategory(current, n); });
    if (name) FillCategories(*name);
}

void PageBrowser::DeleteCategory() {
    std::string current = CurrentCategory();
    if (current.empty() || current == PageCatalog::kAddedRecently) return;
    if (Messages().Show("Delete the category " + Utf8ToCp1252(current) + "?" + kCrLf + kCrLf +
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
    if (current.empty() || row < 2) return;
    // Rows 0 and 1 are All Pages and Added Recently: the user's categories count from row 2.
    if (!Done(catalog_.MoveCategory(current, std::max(0, row - 2 + by)))) return;
    FillCategories(current);
}

}  // namespace paginox
