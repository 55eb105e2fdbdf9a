// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PageBrowser.h"

#include <QCheckBox>
#include <QDateTime>
#include <QDropEvent>
#include <QFileInfo>
#include <filesystem>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "editor/PageSizes.h"
#include "editor/QtText.h"
#include "library/ImageCache.h"
#include "library/ThumbnailQueue.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "persist/FileIO_Page.h"
#include "persist/Folders.h"
#include "ui/UserInputSimple.h"

namespace paginox {

namespace {

constexpr const char* kSection = "Page Browser";
constexpr const char* kTitle = "Page Browser";

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

int IniNumber(const char* key, int fallback) {
    bool ok = false;
    int v = QString::fromStdString(ReadIni(kSection, key, "")).toInt(&ok);
    return ok ? v : fallback;
}

}  // namespace

PageBrowser::PageBrowser(const std::string& startPage, QWidget* parent)
    : QDialog(parent), catalog_(PageCatalog::Load(AppFolders().Path(kPagesFolder))) {
    setObjectName("PageBrowser");
    setWindowTitle(kTitle);
    cache_ = std::make_unique<ImageCache>();
    openPage_ = startPage;
    catalog_.PageFileGone = [this](const std::string& path) {
        cache_->ClearCaches(path);
        thumbnails_.erase(path);
    };
    catalog_.PageRenamed = [this](const std::string& from, const std::string& to) {
        if (openPage_.empty() || from != openPage_) return;
        openPage_ = to;
        if (OpenPageRenamed) OpenPageRenamed(to);
    };
    Ask = [this](const QString& title, const QString& prompt, const QString& proposal) {
        UserInputSimple input(this);
        input.setWindowTitle(title);
        QString value = proposal;
        return input.Run(prompt, value) ? std::optional<QString>(value) : std::nullopt;
    };
    queue_ = new ThumbnailQueue(kThumbWidth, kThumbHeight, this);
    connect(queue_, &ThumbnailQueue::ready, this, &PageBrowser::ThumbnailReady);
    BuildControls();
    resize(IniNumber("WindowWidth", 1000), IniNumber("WindowHeight", 700));
    if (IniNumber("WindowLeft", -1) >= 0)
        move(IniNumber("WindowLeft", 0), IniNumber("WindowTop", 0));
    showImages_->setChecked(ReadIni(kSection, "Show_Images", "True") != "False");
    if (!catalog_.Problem().empty()) ShowMessage(catalog_.Problem(), kTitle, MsgIcon::Exclamation);
    RemoveOrphanThumbnails();
    std::string start = std::filesystem::path(startPage).filename().string();
    FillCategories(catalog_.CategoryOf(start));
    FillPages(start);
}

PageBrowser::~PageBrowser() = default;

void PageBrowser::RemoveOrphanThumbnails() {
    // Thumbnails of pages deleted or renamed elsewhere would only fill the disk.
    std::vector<std::string> paths;
    for (const CatalogCategory& c : catalog_.Categories()) {
        for (const std::string& page : c.Pages) paths.push_back(catalog_.PathOf(page));
    }
    cache_->RemoveOrphans(paths, kThumbWidth, kThumbHeight);
}

void PageBrowser::BuildControls() {
    categories_ = new QListWidget(this);
    categories_->setObjectName("lstCategories");
    categories_->setAcceptDrops(true);
    categories_->viewport()->installEventFilter(this);
    pages_ = new QListWidget(this);
    pages_->setObjectName("lstPages");
    pages_->setDragEnabled(true);
    pages_->setDragDropMode(QAbstractItemView::DragOnly);
    pages_->setResizeMode(QListView::Adjust);
    pages_->setMovement(QListView::Static);
    pages_->installEventFilter(this);
    filter_ = new QLineEdit(this);
    filter_->setObjectName("txtFilter");
    filter_->setPlaceholderText("Filter by name, title or description");
    filter_->setClearButtonEnabled(true);
    showImages_ = new QCheckBox("Show images", this);
    showImages_->setObjectName("chkShowImages");
    details_ = new QLabel(this);
    details_->setObjectName("lblDetails");
    details_->setWordWrap(true);
    details_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    details_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    details_->setMinimumWidth(240);
    progress_ = new QLabel(this);
    progress_->setObjectName("lblProgress");

    auto button = [this](const char* name, const QString& text, void (PageBrowser::*slot)()) {
        auto* b = new QPushButton(text, this);
        b->setObjectName(name);
        connect(b, &QPushButton::clicked, this, [this, slot] { (this->*slot)(); });
        return b;
    };
    auto* move = new QPushButton("Move to", this);
    move->setObjectName("btnMoveTo");
    auto* moveMenu = new QMenu(move);
    move->setMenu(moveMenu);
    connect(moveMenu, &QMenu::aboutToShow, this, [this, moveMenu] {
        moveMenu->clear();
        for (const CatalogCategory& c : catalog_.Categories()) {
            std::string name = c.Name;
            moveMenu->addAction(FromPath(name), this, [this, name] { MovePage(name); });
        }
    });

    auto* categoryButtons = new QHBoxLayout;
    categoryButtons->addWidget(button("btnNewCategory", "New", &PageBrowser::NewCategory));
    categoryButtons->addWidget(button("btnRenameCategory", "Rename", &PageBrowser::RenameCategory));
    categoryButtons->addWidget(button("btnDeleteCategory", "Delete", &PageBrowser::DeleteCategory));
    auto* up = new QPushButton("\u2191", this);
    up->setToolTip("Move the category up");
    connect(up, &QPushButton::clicked, this, [this] { MoveCategory(-1); });
    auto* down = new QPushButton("\u2193", this);
    down->setToolTip("Move the category down");
    connect(down, &QPushButton::clicked, this, [this] { MoveCategory(1); });
    // Narrow arrows leave the category buttons room for their words.
    for (QPushButton* arrow : {up, down}) {
        arrow->setFixedWidth(arrow->fontMetrics().height() * 2);
        categoryButtons->addWidget(arrow);
    }
    auto* left = new QWidget(this);
    auto* leftLayout = new QVBoxLayout(left);
    leftLayout->setContentsMargins(0, 0, 0, 0);
    leftLayout->addWidget(new QLabel("Categories:", left));
    leftLayout->addWidget(categories_, 1);
    leftLayout->addLayout(categoryButtons);

    auto* top = new QHBoxLayout;
    top->addWidget(filter_, 1);
    top->addWidget(showImages_);
    auto* pageButtons = new QHBoxLayout;
    pageButtons->addWidget(button("btnOpen", "Open", &PageBrowser::OpenPage));
    pageButtons->addWidget(button("btnNewPage", "New Page", &PageBrowser::NewPage));
    pageButtons->addWidget(button("btnCopy", "Copy", &PageBrowser::CopyPage));
    pageButtons->addWidget(button("btnRename", "Rename", &PageBrowser::RenamePage));
    pageButtons->addWidget(button("btnDelete", "Delete", &PageBrowser::DeletePage));
    pageButtons->addWidget(move);
    pageButtons->addStretch(1);
    pageButtons->addWidget(progress_);
    auto* close = new QPushButton("Close", this);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    pageButtons->addWidget(close);
    auto* right = new QWidget(this);
    auto* rightLayout = new QVBoxLayout(right);
    rightLayout->setContentsMargins(0, 0, 0, 0);
    rightLayout->addLayout(top);
    auto* middle = new QHBoxLayout;
    middle->addWidget(pages_, 1);
    middle->addWidget(details_);
    rightLayout->addLayout(middle, 1);
    rightLayout->addLayout(pageButtons);

    auto* splitter = new QSplitter(this);
    splitter->addWidget(left);
    splitter->addWidget(right);
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    left->setMinimumWidth(260);
    splitter->setSizes({260, 740});
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(splitter);

    connect(categories_, &QListWidget::currentRowChanged, this, [this] { FillPages(""); });
    connect(pages_, &QListWidget::currentRowChanged, this, [this] { ShowDetails(); });
    connect(pages_, &QListWidget::itemActivated, this, [this] { OpenPage(); });
    connect(filter_, &QLineEdit::textChanged, this, [this] { FillPages(CurrentPage()); });
    connect(showImages_, &QCheckBox::toggled, this, [this](bool on) { ShowImages(on); });
    connect(pages_->verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this] { RequestVisibleThumbnails(); });
}

std::string PageBrowser::CurrentCategory() const {
    QListWidgetItem* item = categories_->currentItem();
    return item ? ToPath(item->data(Qt::UserRole).toString()) : std::string();
}

std::string PageBrowser::CurrentPage() const {
    QListWidgetItem* item = pages_->currentItem();
    return item ? ToPath(item->data(Qt::UserRole).toString()) : std::string();
}

void PageBrowser::FillCategories(const std::string& select) {
    QSignalBlocker block(categories_);
    categories_->clear();
    for (const CatalogCategory& c : catalog_.Categories()) {
        auto* item = new QListWidgetItem(FromPath(c.Name) + QString(" (%1)").arg(c.Pages.size()),
                                         categories_);
        item->setData(Qt::UserRole, FromPath(c.Name));
        if (c.Name == select) categories_->setCurrentItem(item);
    }
    if (!categories_->currentItem()) categories_->setCurrentRow(0);
}

const PageBrowser::PageInfo& PageBrowser::Info(const std::string& file) {
    PageInfo& info = info_[file];
    if (info.Read) return info;
    info.Read = true;
    // The first format alone, quietly, as the library reads its pages.
    if (auto page = ReadPage(catalog_.PathOf(file), 1, false)) {
        info.Title = page->Title();
        info.Description = page->Description();
    }
    return info;
}

void PageBrowser::FillPages(const std::string& select) {
    const CatalogCategory* category = catalog_.Find(CurrentCategory());
    QSignalBlocker block(pages_);
    pages_->clear();
    itemsByPath_.clear();
    QString filter = filter_->text().trimmed();
    for (const std::string& file : category ? category->Pages : std::vector<std::string>{}) {
        const PageInfo& info = Info(file);
        QString name = FromPath(file.substr(0, file.size() - 4));
        if (!filter.isEmpty() && !name.contains(filter, Qt::CaseInsensitive) &&
            !FromAnsi(info.Title).contains(filter, Qt::CaseInsensitive) &&
            !FromAnsi(info.Description).contains(filter, Qt::CaseInsensitive)) {
            continue;
        }
        auto* item = new QListWidgetItem(name, pages_);
        item->setData(Qt::UserRole, FromPath(file));
        item->setToolTip(FromAnsi(info.Title));
        std::string path = catalog_.PathOf(file);
        auto found = thumbnails_.find(path);
        // Until its thumbnail arrives a page shows a blank of the same size.
        item->setIcon(found != thumbnails_.end() ? found->second : Blank());
        if (file == select) pages_->setCurrentItem(item);
        itemsByPath_[path] = item;
    }
    if (!pages_->currentItem() && pages_->count() > 0) pages_->setCurrentRow(0);
    block.unblock();
    ShowImages(showImages_->isChecked());
    ShowDetails();
}

void PageBrowser::ShowImages(bool show) {
    pages_->setViewMode(show ? QListView::IconMode : QListView::ListMode);
    pages_->setIconSize(show ? QSize(kThumbWidth, kThumbHeight) : QSize());
    pages_->setGridSize(show ? QSize(kThumbWidth + 24, kThumbHeight + 40) : QSize());
    pages_->setWordWrap(show);
    if (!show) {
        queue_->Cancel();
        progress_->clear();
        return;
    }
    std::vector<std::string> wanted;
    for (int i = 0; i < pages_->count(); ++i) {
        std::string path = PathOfItem(pages_->item(i));
        if (!thumbnails_.count(path)) wanted.push_back(path);
    }
    queue_->Cancel();
    queue_->Request(wanted);
    RequestVisibleThumbnails();
}

std::string PageBrowser::PathOfItem(const QListWidgetItem* item) const {
    return catalog_.PathOf(ToPath(item->data(Qt::UserRole).toString()));
}

std::vector<std::string> PageBrowser::VisiblePaths() const {
    std::vector<std::string> visible;
    QRect view = pages_->viewport()->rect();
    for (int i = 0; i < pages_->count(); ++i) {
        if (pages_->visualItemRect(pages_->item(i)).intersects(view)) {
            visible.push_back(PathOfItem(pages_->item(i)));
        }
    }
    return visible;
}

bool PageBrowser::VisibleThumbnailsShown() const {
    for (const std::string& path : VisiblePaths()) {
        if (!thumbnails_.count(path)) return false;
    }
    return true;
}

void PageBrowser::RequestVisibleThumbnails() {
    queue_->Prioritize(VisiblePaths());
    int left = queue_->Waiting();
    progress_->setText(left > 0 ? QString("Making thumbnails: %1 left").arg(left) : QString());
}

void PageBrowser::ThumbnailReady(const QString& path, const QImage& image) {
    QPixmap shown = QPixmap::fromImage(image.isNull() ? Placeholder() : image);
    std::string native = ToPath(path);
    thumbnails_[native] = shown;
    auto item = itemsByPath_.find(native);
    if (item != itemsByPath_.end()) item->second->setIcon(shown);
    int left = queue_->Waiting();
    progress_->setText(left > 0 ? QString("Making thumbnails: %1 left").arg(left) : QString());
}

void PageBrowser::ShowDetails() {
    std::string file = CurrentPage();
    if (file.empty()) {
        details_->clear();
        return;
    }
    const std::string path = catalog_.PathOf(file);
    auto page = ReadPage(path, -1, false);
    QString text;
    if (!page) {
        text = "<b>" + FromPath(file).toHtmlEscaped() + "</b><br>This page cannot be read.";
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
    text += "<br><br>" + disk.absoluteFilePath().toHtmlEscaped() + "<br>Modified " +
            disk.lastModified().toString("yyyy-MM-dd HH:mm");
    details_->setText(text);
}

bool PageBrowser::eventFilter(QObject* watched, QEvent* event) {
    // A page dropped on a category is moved there.
    if (watched == categories_->viewport() && event->type() == QEvent::Drop) {
        auto* drop = static_cast<QDropEvent*>(event);
        if (drop->source() == pages_) {
            QListWidgetItem* target = categories_->itemAt(drop->position().toPoint());
            if (target) MovePage(ToPath(target->data(Qt::UserRole).toString()));
            drop->acceptProposedAction();
            return true;
        }
    }
    if (watched == categories_->viewport() && event->type() == QEvent::DragEnter) {
        static_cast<QDragEnterEvent*>(event)->acceptProposedAction();
        return true;
    }
    if (watched == categories_->viewport() && event->type() == QEvent::DragMove) {
        static_cast<QDragMoveEvent*>(event)->acceptProposedAction();
        return true;
    }
    if (watched == pages_ && event->type() == QEvent::Resize) {
        QTimer::singleShot(0, this, [this] { RequestVisibleThumbnails(); });
    }
    return QDialog::eventFilter(watched, event);
}

void PageBrowser::SaveWindowSettings() {
    auto number = [](int v) { return std::to_string(v); };
    WriteIni(kSection, "WindowLeft", number(x()));
    WriteIni(kSection, "WindowTop", number(y()));
    WriteIni(kSection, "WindowWidth", number(width()));
    WriteIni(kSection, "WindowHeight", number(height()));
    WriteIni(kSection, "Show_Images", showImages_->isChecked() ? "True" : "False");
}

void PageBrowser::done(int result) {
    SaveWindowSettings();
    QDialog::done(result);
}

}  // namespace paginox
