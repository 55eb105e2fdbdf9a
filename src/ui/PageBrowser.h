// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The page library's window: categories on the left with their page counts (and All Pages,
// which searches every category), the chosen category's pages as thumbnails (or a plain list)
// with a filter and an order, the chosen page's details, and the page and category commands
// of the catalogue, on buttons, context menus and keys. Modal; it returns the page to open.
// Only the thumbnails near the view are kept in memory.

#include <QDialog>
#include <QPixmap>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "library/PageCatalog.h"
#include "library/PageListing.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QMimeData;
class QPushButton;
class QSplitter;
class QTimer;

namespace paginox {

class ImageCache;
class ThumbnailQueue;

class PageBrowser : public QDialog {
    Q_OBJECT

  public:
    static constexpr int kThumbWidth = 160;
    static constexpr int kThumbHeight = 120;
    // The drag of pages onto a category: their file names, one a line (UTF-8).
    static constexpr const char* kPagesMimeType = "application/x-paginox-pages";

    // startPage (a native path), the page open in the editor, is selected when the
    // catalogue lists it; it cannot be deleted here, and a rename of it is told.
    PageBrowser(const std::string& startPage, QWidget* parent = nullptr);
    ~PageBrowser() override;

    // The path of the page chosen with Open; empty when the window was closed.
    const std::string& ChosenPath() const { return chosen_; }
    // Told the new path when the page open in the editor is renamed here.
    std::function<void(const std::string& path)> OpenPageRenamed;
    // Asks for a name: the title, the prompt and the proposal; nothing on Cancel. The text
    // prompt by default; tests script it.
    std::function<std::optional<QString>(const QString&, const QString&, const QString&)> Ask;

    PageCatalog& Catalog() { return catalog_; }
    QListWidget* Categories() const { return categories_; }
    QListWidget* Pages() const { return pages_; }
    QLineEdit* Filter() const { return filter_; }
    QComboBox* Order() const { return order_; }
    // How many pages have their thumbnail (or placeholder) in memory, and whether every page
    // on screen has.
    int ThumbnailsShown() const { return static_cast<int>(thumbnails_.size()); }
    // How many thumbnails have come back from the worker since the window opened.
    int ThumbnailsMade() const { return thumbnailsMade_; }
    bool VisibleThumbnailsShown() const;
    // The drag data of the selected pages.
    QMimeData* SelectedPagesMime() const;

    // The commands, also on the window's buttons, menus and keys. The page commands but
    // Rename act on every selected page.
    void OpenPage();
    void NewPage();
    void CopyPage();
    void RenamePage();
    void DeletePage();
    void MovePage(const std::string& toCategory);
    void NewCategory();
    void RenameCategory();
    void DeleteCategory();
    void MoveCategory(int by);

  protected:
    void done(int result) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void BuildControls();
    QWidget* BuildCategoryPane();
    QWidget* BuildPagePane();
    void ConnectControls();
    void RemoveOrphanThumbnails();
    bool IsOpenPage(const std::string& path) const;
    // The lists follow the catalogue: select names the entry chosen afterwards.
    void FillCategories(const std::string& select);
    void FillPages(const std::string& select);
    // Hides the listed pages the filter leaves out; select is chosen when shown.
    void ApplyFilter(const std::string& select);
    // The shown items within screens of the view's height above and below it (0: in view).
    std::vector<QListWidgetItem*> ItemsWithin(int screens) const;
    void UpdateButtons();
    void ShowDetails();
    void ShowImages(bool show);
    void RequestVisibleThumbnails();
    // Drops the thumbnails far from the view, so memory stays bounded however big the library.
    void TrimThumbnails();
    std::vector<std::string> VisiblePaths() const;
    std::string PathOfItem(const QListWidgetItem* item) const;
    void ThumbnailReady(const QString& path, const QImage& image);
    // A page's facts as far as read; they are read a little at a time after the window opens
    // (and after each command), and the lists follow when the last are in.
    const PageFacts& Facts(const std::string& file);
    void ReadFactsLater();
    void ReadSomeFacts();
    bool DropPages(const QMimeData* data, const QPoint& at);
    void ShowPageMenu(const QPoint& at);
    void ShowCategoryMenu(const QPoint& at);

    // The chosen category's name; empty for All Pages.
    std::string CurrentCategory() const;
    std::string CurrentPage() const;
    std::vector<std::string> SelectedPages() const;
    // Shows a catalogue command's message when there is one; true when it succeeded.
    bool Done(const std::string& message);
    // Asks for a name until apply takes it (an empty message) or the user cancels.
    std::optional<std::string> AskName(const QString& title, const QString& prompt,
                                       QString proposal,
                                       const std::function<std::string(const std::string&)>& apply);
    void SaveWindowSettings();

    PageCatalog catalog_;
    std::string openPage_;
    std::string chosen_;
    std::map<std::string, PageFacts> facts_;
    std::vector<std::string> unread_;  // pages whose facts are still to be read, last first
    QTimer* factsTimer_ = nullptr;
    // By native path; the pixmaps are shared with the items' icons, not copied.
    std::map<std::string, QPixmap> thumbnails_;
    std::map<std::string, QListWidgetItem*> itemsByPath_;  // the items listed now
    std::vector<std::string> listed_;                      // their files, row by row
    ThumbnailQueue* queue_ = nullptr;
    std::unique_ptr<ImageCache> cache_;

    QListWidget* categories_ = nullptr;
    QListWidget* pages_ = nullptr;
    QLineEdit* filter_ = nullptr;
    QComboBox* order_ = nullptr;
    QCheckBox* showImages_ = nullptr;
    QLabel* details_ = nullptr;
    QLabel* progress_ = nullptr;
    QLabel* empty_ = nullptr;
    QSplitter* splitter_ = nullptr;
    std::map<std::string, QPushButton*> buttons_;
    int thumbnailsMade_ = 0;
};

}  // namespace paginox
