// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PageBrowser.h"

// What the page browser shows: the categories with their counts, the listed pages with their
// thumbnails (those near the view only), the chosen page's details, and which buttons act.

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <set>

#include "editor/PageSizes.h"
#include "editor/QtText.h"
#include "library/ImageCache.h"
#include "library/ThumbnailQueue.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "persist/FileIO_Page.h"

namespace paginox {

namespace {

constexpr const char* kAllPages = "All Pages";
// How long one turn of reading the pages' titles may keep the window from answering.
constexpr qint64 kFactsSliceMs = 4;
// Thumbnails kept beyond the view, in screens of it each way.
constexpr int kScreensKept = 2;
// Below this many, no thumbnail is let go: a small library keeps them all.
constexpr size_t kThumbnailsKeptAnyway = 200;

// What a page that cannot be read shows instead of its thumbnail: a warning mark.
QImage Placeholder() {
    QImage image(PageBrowser::kThumbWidth, PageBrowser::kThumbHeight, QImage::Format_RGB32);
    image.fill(QColor(236, 236, 236));
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(QColor(250, 200, 40));
    p.setPen(QPen(QColor(120, 90, 0), 2));
    const QPointF tri[3] = {{80, 30}, {50, 90}, {110, 90}};
    p.drawPolygon(tri, 3);
    p.setPen(QPen(Qt::black, 4));
    p.drawLine(80, 50, 80, 72);
    p.drawPoint(80, 82);
    return image;
}

const QPixmap& Blank() {
    static const QPixmap blank = [] {
        QPixmap pixmap(PageBrowser::kThumbWidth, PageBrowser::kThumbHeight);
        pixmap.fill(QColor(246, 246, 246));
        return pixmap;
    }();
    return blank;
}

}  // namespace

std::string PageBrowser::CurrentCategory() const {
    QListWidgetItem* item = categories_->currentItem();
    return item ? ToPath(item->data(Qt::UserRole).toString()) : std::string();
}

std::string PageBrowser::CurrentPage() const {
    QListWidgetItem* item = pages_->currentItem();
    return item && item->isSelected() ? ToPath(item->data(Qt::UserRole).toString()) : std::string();
}

std::vector<std::string> PageBrowser::SelectedPages() const {
    std::vector<std::string> pages;
    for (int i = 0; i < pages_->count(); ++i) {
        if (pages_->item(i)->isSelected())
            pages.push_back(ToPath(pages_->item(i)->data(Qt::UserRole).toString()));
    }
    return pages;
}

QMimeData* PageBrowser::SelectedPagesMime() const {
    QStringList names;
    for (const std::string& page : SelectedPages()) names << FromPath(page);
    auto* data = new QMimeData;
    data->setData(kPagesMimeType, names.join('\n').toUtf8());
    return data;
}

const PageFacts& PageBrowser::Facts(const std::string& file) {
    static const PageFacts unread;
    auto found = facts_.find(file);
    return found != facts_.end() ? found->second : unread;
}

void PageBrowser::ReadSomeFacts() {
    // Not while a menu or another dialog is open: the lists must stay as chosen meanwhile.
    QWidget* modal = QApplication::activeModalWidget();
    if (QApplication::activePopupWidget() || (modal && modal != this)) return;
    // A few milliseconds at a time, so the window answers while a large library is read.
    QElapsedTimer clock;
    clock.start();
    while (!unread_.empty() && clock.elapsed() < kFactsSliceMs) {
        std::string file = std::move(unread_.back());
        unread_.pop_back();
        auto found = facts_.find(file);
        if (found == facts_.end() || !found->second.Read)
            facts_[file] = ReadPageFacts(catalog_.PathOf(file));
    }
    if (!unread_.empty()) return;
    factsTimer_->stop();
    // What the filter and the order see is complete now.
    if (!filter_->text().trimmed().isEmpty() ||
        order_->currentIndex() >= int(PageOrder::Modified)) {
        std::string page = CurrentPage();
        FillCategories(CurrentCategory());
        FillPages(page);
    }
}

void PageBrowser::ReadFactsLater() {
    unread_.clear();
    for (const CatalogCategory& c : catalog_.Categories()) {
        for (const std::string& page : c.Pages) {
            auto found = facts_.find(page);
            if (found != facts_.end() && found->second.Read) continue;
            // Its name is searched at once; the rest once read.
            if (found == facts_.end()) facts_.emplace(page, NameOnlyFacts(page));
            unread_.push_back(page);
        }
    }
    std::reverse(unread_.begin(), unread_.end());  // read from the back: first pages first
    if (!unread_.empty()) factsTimer_->start();
}

void PageBrowser::FillCategories(const std::string& select) {
    QSignalBlocker block(categories_);
    categories_->clear();
    const QString filter = filter_->text().trimmed();
    FactsOf facts = [this](const std::string& f) -> const PageFacts& { return Facts(f); };
    // With a filter, each category says how many of its pages match.
    auto label = [&](const QString& name, int matching, size_t all) {
        return filter.isEmpty() ? QString("%1 (%2)").arg(name).arg(all)
                                : QString("%1 (%2 of %3)").arg(name).arg(matching).arg(all);
    };
    size_t total = 0;
    int totalMatching = 0;
    std::vector<int> matching;
    for (const CatalogCategory& c : catalog_.Categories()) {
        total += c.Pages.size();
        matching.push_back(CountMatches(c, filter, facts));
        totalMatching += matching.back();
    }
    auto* all = new QListWidgetItem(label(kAllPages, totalMatching, total), categories_);
    all->setData(Qt::UserRole, QString());
    all->setToolTip("Every page of every category: search them all with the filter");
    size_t k = 0;
    for (const CatalogCategory& c : catalog_.Categories()) {
        auto* item = new QListWidgetItem(label(FromPath(c.Name), matching[k++], c.Pages.size()),
                                         categories_);
        item->setData(Qt::UserRole, FromPath(c.Name));
        if (c.Name == select) categories_->setCurrentItem(item);
    }
    if (!categories_->currentItem()) categories_->setCurrentRow(select.empty() ? 0 : 1);
}

void PageBrowser::FillPages(const std::string& select) {
    const auto order = static_cast<PageOrder>(std::max(0, order_->currentIndex()));
    FactsOf facts = [this](const std::string& f) -> const PageFacts& { return Facts(f); };
    // Every page of the category; the filter only hides items, so a keystroke makes none.
    listed_ = ListPages(catalog_, CurrentCategory(), QString(), order, facts);
    QSignalBlocker block(pages_);
    pages_->setUpdatesEnabled(false);
    pages_->clear();
    itemsByPath_.clear();
    for (const std::string& file : listed_) {
        auto* item = new QListWidgetItem(FromPath(file.substr(0, file.size() - 4)), pages_);
        item->setData(Qt::UserRole, FromPath(file));
        item->setToolTip(FromPath(file));
        std::string path = catalog_.PathOf(file);
        auto found = thumbnails_.find(path);
        // Until its thumbnail arrives a page shows a blank of the same size.
        item->setIcon(found != thumbnails_.end() ? found->second : Blank());
        itemsByPath_[path] = item;
    }
    pages_->setUpdatesEnabled(true);
    block.unblock();
    ShowImages(showImages_->isChecked());
    ApplyFilter(select);
}

void PageBrowser::ApplyFilter(const std::string& select) {
    const QString filter = filter_->text().trimmed();
    QSignalBlocker block(pages_);
    pages_->setUpdatesEnabled(false);
    int shown = 0;
    QListWidgetItem* chosen = nullptr;
    for (int i = 0; i < pages_->count(); ++i) {
        QListWidgetItem* item = pages_->item(i);
        const std::string& file = listed_[size_t(i)];
        bool match = PageMatches(file, Facts(file), filter);
        if (item->isHidden() == match) item->setHidden(!match);
        if (!match) {
            item->setSelected(false);
            continue;
        }
        ++shown;
        if (!chosen || file == select) chosen = item;
    }
    pages_->setCurrentItem(chosen);
    pages_->setUpdatesEnabled(true);
    block.unblock();
    // An empty list says why.
    empty_->setText(shown > 0          ? QString()
                    : filter.isEmpty() ? "This category has no pages yet. Drag pages here, or "
                                         "use Move to."
                                       : "No page matches \"" + filter + "\".");
    RequestVisibleThumbnails();
    ShowDetails();
    UpdateButtons();
}

void PageBrowser::UpdateButtons() {
    const size_t selected = SelectedPages().size();
    const std::string category = CurrentCategory();
    const bool own = !category.empty() && category != PageCatalog::kAddedRecently;
    const int row = categories_->currentRow();
    const std::pair<const char*, bool> states[] = {
        {"btnOpen", selected == 1},
        {"btnCopy", selected >= 1},
        {"btnRename", selected == 1},
        {"btnDelete", selected >= 1},
        {"btnMoveTo", selected >= 1},
        {"btnRenameCategory", own},
        {"btnDeleteCategory", own},
        {"btnCategoryUp", own && row > 2},
        {"btnCategoryDown", own && row + 1 < categories_->count()},
    };
    for (auto [name, enabled] : states) buttons_.at(name)->setEnabled(enabled);
}

void PageBrowser::ShowImages(bool show) {
    pages_->setViewMode(show ? QListView::IconMode : QListView::ListMode);
    // The view mode sets the movement, which switches dragging off: pages are dragged onto a
    // category, never rearranged in place.
    pages_->setMovement(QListView::Static);
    pages_->setDragEnabled(true);
    pages_->setDragDropMode(QAbstractItemView::DragOnly);
    pages_->setIconSize(show ? QSize(kThumbWidth, kThumbHeight) : QSize());
    pages_->setGridSize(show ? QSize(kThumbWidth + 24, kThumbHeight + 40) : QSize());
    pages_->setWordWrap(show);
    queue_->Cancel();
    if (!show) {
        progress_->clear();
        return;
    }
    // Every page's thumbnail is made (or found) in the background, those in view first; only
    // those near the view stay in memory.
    std::vector<std::string> wanted;
    for (int i = 0; i < pages_->count(); ++i) {
        std::string path = PathOfItem(pages_->item(i));
        if (!thumbnails_.count(path)) wanted.push_back(path);
    }
    queue_->Request(wanted);
    RequestVisibleThumbnails();
}

std::string PageBrowser::PathOfItem(const QListWidgetItem* item) const {
    return catalog_.PathOf(ToPath(item->data(Qt::UserRole).toString()));
}

std::vector<QListWidgetItem*> PageBrowser::ItemsWithin(int screens) const {
    // From the first item in view, outwards: only the rows near the view are looked at.
    QRect view = pages_->viewport()->rect();
    QRect near = view.adjusted(0, -screens * view.height(), 0, screens * view.height());
    std::vector<QListWidgetItem*> items;
    QModelIndex first = pages_->indexAt(QPoint(view.left() + 4, view.top() + 4));
    int start = first.isValid() ? first.row() : 0;
    for (int i = start - 1; i >= 0; --i) {
        QListWidgetItem* item = pages_->item(i);
        if (item->isHidden()) continue;
        QRect at = pages_->visualItemRect(item);
        if (at.bottom() < near.top()) break;
        items.push_back(item);
    }
    for (int i = start; i < pages_->count(); ++i) {
        QListWidgetItem* item = pages_->item(i);
        if (item->isHidden()) continue;
        QRect at = pages_->visualItemRect(item);
        if (at.top() > near.bottom()) break;
        if (at.intersects(near)) items.push_back(item);
    }
    return items;
}

std::vector<std::string> PageBrowser::VisiblePaths() const {
    std::vector<std::string> visible;
    for (QListWidgetItem* item : ItemsWithin(0)) visible.push_back(PathOfItem(item));
    return visible;
}

bool PageBrowser::VisibleThumbnailsShown() const {
    for (const std::string& path : VisiblePaths()) {
        if (!thumbnails_.count(path)) return false;
    }
    return true;
}

void PageBrowser::RequestVisibleThumbnails() {
    if (!showImages_->isChecked()) return;
    // The pages in view first, then those just beyond it; the rest were asked for already.
    std::vector<std::string> visible, near;
    for (QListWidgetItem* item : ItemsWithin(0)) {
        std::string path = PathOfItem(item);
        if (!thumbnails_.count(path)) visible.push_back(path);
    }
    for (QListWidgetItem* item : ItemsWithin(kScreensKept)) {
        std::string path = PathOfItem(item);
        if (!thumbnails_.count(path)) near.push_back(path);
    }
    queue_->Request(near);
    queue_->Prioritize(visible);
    TrimThumbnails();
    int left = queue_->Waiting();
    progress_->setText(left > 0 ? QString("Making thumbnails: %1 left").arg(left) : QString());
}

void PageBrowser::TrimThumbnails() {
    if (thumbnails_.size() < kThumbnailsKeptAnyway) return;
    std::set<std::string> near;
    for (QListWidgetItem* item : ItemsWithin(kScreensKept)) near.insert(PathOfItem(item));
    for (auto it = thumbnails_.begin(); it != thumbnails_.end();) {
        if (near.count(it->first)) {
            ++it;
            continue;
        }
        auto item = itemsByPath_.find(it->first);
        if (item != itemsByPath_.end()) item->second->setIcon(Blank());
        it = thumbnails_.erase(it);
    }
}

void PageBrowser::ThumbnailReady(const QString& path, const QImage& image) {
    ++thumbnailsMade_;
    std::string native = ToPath(path);
    auto item = itemsByPath_.find(native);
    // A page scrolled far away meanwhile is not kept: it is made again from the cache if needed.
    QRect view = pages_->viewport()->rect();
    QRect near = view.adjusted(0, -kScreensKept * view.height(), 0, kScreensKept * view.height());
    if (item != itemsByPath_.end() && !item->second->isHidden() &&
        pages_->visualItemRect(item->second).intersects(near)) {
        QPixmap shown = QPixmap::fromImage(image.isNull() ? Placeholder() : image);
        thumbnails_[native] = shown;
        item->second->setIcon(shown);
    }
    int left = queue_->Waiting();
    progress_->setText(left > 0 ? QString("Making thumbnails: %1 left").arg(left) : QString());
}

void PageBrowser::RemoveOrphanThumbnails() {
    // Thumbnails of pages deleted or renamed elsewhere would only fill the disk.
    std::vector<std::string> paths;
    for (const CatalogCategory& c : catalog_.Categories()) {
        for (const std::string& page : c.Pages) paths.push_back(catalog_.PathOf(page));
    }
    cache_->RemoveOrphans(paths, kThumbWidth, kThumbHeight);
}

void PageBrowser::ShowDetails() {
    std::string file = CurrentPage();
    if (file.empty()) {
        details_->clear();
        return;
    }
    const std::string path = catalog_.PathOf(file);
    auto page = ReadPage(path, -1, false);
    // Long names break anywhere rather than widen the pane.
    auto breakable = [](QString text) { return text.toHtmlEscaped().replace("/", "/&#8203;"); };
    QString text;
    if (!page) {
        text = "<b>" + breakable(FromPath(file)) + "</b><br>This page cannot be read.";
    } else {
        text = "<b>" + FromAnsi(page->Title()).toHtmlEscaped() + "</b><br>" +
               FromAnsi(page->Description()).toHtmlEscaped() + "<br><br>Sizes:";
        int objects = 0;
        for (int16_t k = 1; k <= page->NumFormats(); ++k) {
            if (auto format = page->GetFormat(k)) {
                text += "<br>&nbsp;&nbsp;" + FromAnsi(FormatDisplayName(*format)).toHtmlEscaped();
                objects = std::max<int>(objects, format->NumObjects());
            }
        }
        text += QString("<br><br>Charts: %1<br>Objects: %2").arg(page->NumCharts()).arg(objects);
    }
    QFileInfo disk(FromPath(path));
    text += "<br><br>" + breakable(disk.absoluteFilePath()) + "<br>Modified " +
            disk.lastModified().toString("yyyy-MM-dd HH:mm");
    details_->setText(text);
}

}  // namespace paginox
