// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PageBrowser.h"

// The page browser's window: its controls, keys, menus, drops and remembered settings.

#include <QCheckBox>
#include <QComboBox>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>
#include <filesystem>

#include "core/MessageService.h"
#include "editor/QtText.h"
#include "library/ImageCache.h"
#include "library/ThumbnailQueue.h"
#include "persist/Folders.h"
#include "ui/UserInputSimple.h"

namespace paginox {

namespace {

constexpr const char* kSection = "Page Browser";
constexpr const char* kTitle = "Page Browser";

int IniNumber(const char* key, int fallback) {
    bool ok = false;
    int v = QString::fromStdString(ReadIni(kSection, key, "")).toInt(&ok);
    return ok ? v : fallback;
}

// The pages list: what it drags is the selected pages' file names.
class PageList : public QListWidget {
  public:
    explicit PageList(QWidget* parent) : QListWidget(parent) {}

  protected:
    QStringList mimeTypes() const override { return {PageBrowser::kPagesMimeType}; }
    QMimeData* mimeData(const QList<QListWidgetItem*>& items) const override {
        QStringList names;
        for (const QListWidgetItem* item : items) names << item->data(Qt::UserRole).toString();
        auto* data = new QMimeData;
        data->setData(PageBrowser::kPagesMimeType, names.join('\n').toUtf8());
        return data;
    }
};

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
        if (!IsOpenPage(from)) return;
        openPage_ = to;
        if (OpenPageRenamed) OpenPageRenamed(to);
    };
    Ask = [this](const QString& title, const QString& prompt, const QString& proposal) {
        UserInputSimple input(this);
        input.setWindowTitle(title);
        QString value = proposal;
        return input.Run(prompt, value) ? std::optional<QString>(value) : std::nullopt;
    };
    factsTimer_ = new QTimer(this);
    factsTimer_->setInterval(0);
    connect(factsTimer_, &QTimer::timeout, this, [this] { ReadSomeFacts(); });
    queue_ = new ThumbnailQueue(kThumbWidth, kThumbHeight, this);
    connect(queue_, &ThumbnailQueue::ready, this, &PageBrowser::ThumbnailReady);
    BuildControls();
    ConnectControls();
    resize(IniNumber("WindowWidth", 1000), IniNumber("WindowHeight", 700));
    if (IniNumber("WindowLeft", -1) >= 0)
        move(IniNumber("WindowLeft", 0), IniNumber("WindowTop", 0));
    if (IniNumber("Splitter", -1) > 0)
        splitter_->setSizes({IniNumber("Splitter", 260), width() - IniNumber("Splitter", 260)});
    showImages_->setChecked(ReadIni(kSection, "Show_Images", "True") != "False");
    order_->setCurrentIndex(std::clamp(IniNumber("Order", 0), 0, order_->count() - 1));
    if (std::string problem = catalog_.TakeProblem(); !problem.empty())
        ShowMessage(problem, kTitle, MsgIcon::Exclamation);
    RemoveOrphanThumbnails();
    std::string start = std::filesystem::path(startPage).filename().string();
    FillCategories(catalog_.CategoryOf(start));
    FillPages(start);
    ReadFactsLater();
}

PageBrowser::~PageBrowser() = default;

bool PageBrowser::IsOpenPage(const std::string& path) const {
    if (openPage_.empty()) return false;
    // The editor may name it relatively, or through a link: the same file counts.
    std::error_code ec;
    return std::filesystem::weakly_canonical(path, ec) ==
           std::filesystem::weakly_canonical(openPage_, ec);
}

void PageBrowser::BuildControls() {
    splitter_ = new QSplitter(this);
    splitter_->setObjectName("splBrowser");
    splitter_->addWidget(BuildCategoryPane());
    splitter_->addWidget(BuildPagePane());
    splitter_->setStretchFactor(0, 0);
    splitter_->setStretchFactor(1, 1);
    splitter_->setSizes({260, 740});
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(splitter_);
}

QWidget* PageBrowser::BuildCategoryPane() {
    categories_ = new QListWidget(this);
    categories_->setObjectName("lstCategories");
    categories_->setAcceptDrops(true);
    categories_->viewport()->installEventFilter(this);
    categories_->setContextMenuPolicy(Qt::CustomContextMenu);
    auto* pane = new QWidget(this);
    pane->setMinimumWidth(220);
    auto* buttons = new QHBoxLayout;
    auto add = [&](const char* name, const QString& text, const QString& tip,
                   std::function<void()> act) {
        auto* b = new QPushButton(text, pane);
        b->setObjectName(name);
        b->setToolTip(tip);
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, act);
        buttons->addWidget(b);
        buttons_[name] = b;
        return b;
    };
    add("btnNewCategory", "New", "Add a category", [this] { NewCategory(); });
    add("btnRenameCategory", "Rename", "Rename the category", [this] { RenameCategory(); });
    add("btnDeleteCategory", "Delete", "Delete the category; its pages are kept",
        [this] { DeleteCategory(); });
    // Narrow arrows leave the category buttons room for their words.
    for (auto [name, text, by] :
         {std::tuple{"btnCategoryUp", "\u2191", -1}, std::tuple{"btnCategoryDown", "\u2193", 1}}) {
        QPushButton* arrow = add(name, QString::fromUtf8(text),
                                 by < 0 ? "Move the category up" : "Move the category down",
                                 [this, by = by] { MoveCategory(by); });
        arrow->setFixedWidth(arrow->fontMetrics().height() * 2);
    }
    auto* layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel("Categories:", pane));
    layout->addWidget(categories_, 1);
    layout->addLayout(buttons);
    return pane;
}

QWidget* PageBrowser::BuildPagePane() {
    auto* pane = new QWidget(this);
    pages_ = new PageList(pane);
    pages_->setObjectName("lstPages");
    pages_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    pages_->setResizeMode(QListView::Adjust);
    pages_->setUniformItemSizes(true);
    pages_->setContextMenuPolicy(Qt::CustomContextMenu);
    pages_->installEventFilter(this);
    filter_ = new QLineEdit(pane);
    filter_->setObjectName("txtFilter");
    filter_->setPlaceholderText("Filter by name, title or description (Ctrl+F)");
    filter_->setClearButtonEnabled(true);
    order_ = new QComboBox(pane);
    order_->setObjectName("cmbOrder");
    order_->addItems({"Filed order", "Name", "Date modified", "Date added"});
    order_->setToolTip("The order of the pages");
    showImages_ = new QCheckBox("Show images", pane);
    showImages_->setObjectName("chkShowImages");
    details_ = new QLabel(pane);
    details_->setObjectName("lblDetails");
    details_->setWordWrap(true);
    details_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    details_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A fixed width: a long name wraps or is cut short, and never widens the window.
    details_->setFixedWidth(240);
    progress_ = new QLabel(pane);
    progress_->setObjectName("lblProgress");
    empty_ = new QLabel(pages_->viewport());
    empty_->setObjectName("lblEmpty");
    empty_->setAlignment(Qt::AlignCenter);
    empty_->setWordWrap(true);
    empty_->setAttribute(Qt::WA_TransparentForMouseEvents);

    auto* buttons = new QHBoxLayout;
    auto add = [&](const char* name, const QString& text, std::function<void()> act) {
        auto* b = new QPushButton(text, pane);
        b->setObjectName(name);
        connect(b, &QPushButton::clicked, this, act);
        buttons->addWidget(b);
        buttons_[name] = b;
        return b;
    };
    add("btnOpen", "&Open", [this] { OpenPage(); })->setDefault(true);
    add("btnNewPage", "&New Page...", [this] { NewPage(); });
    add("btnCopy", "&Copy...", [this] { CopyPage(); });
    add("btnRename", "&Rename...", [this] { RenamePage(); });
    add("btnDelete", "&Delete", [this] { DeletePage(); });
    QPushButton* move = add("btnMoveTo", "&Move to", [] {});
    auto* moveMenu = new QMenu(move);
    move->setMenu(moveMenu);
    connect(moveMenu, &QMenu::aboutToShow, this, [this, moveMenu] {
        moveMenu->clear();
        for (const CatalogCategory& c : catalog_.Categories()) {
            std::string name = c.Name;
            moveMenu->addAction(FromPath(name), this, [this, name] { MovePage(name); });
        }
    });
    buttons->addStretch(1);
    buttons->addWidget(progress_);
    add("btnClose", "Close", [this] { reject(); })->setAutoDefault(false);

    auto* top = new QHBoxLayout;
    top->addWidget(filter_, 1);
    top->addWidget(order_);
    top->addWidget(showImages_);
    auto* middle = new QHBoxLayout;
    middle->addWidget(pages_, 1);
    middle->addWidget(details_);
    auto* layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(top);
    layout->addLayout(middle, 1);
    layout->addLayout(buttons);
    return pane;
}

void PageBrowser::ConnectControls() {
    connect(categories_, &QListWidget::currentRowChanged, this, [this] { FillPages(""); });
    connect(pages_, &QListWidget::currentRowChanged, this, [this] { ShowDetails(); });
    connect(pages_, &QListWidget::itemSelectionChanged, this, [this] { UpdateButtons(); });
    connect(pages_, &QListWidget::itemActivated, this, [this] { OpenPage(); });
    connect(filter_, &QLineEdit::textChanged, this, [this] {
        std::string page = CurrentPage();
        FillCategories(CurrentCategory());
        ApplyFilter(page);
    });
    connect(order_, &QComboBox::currentIndexChanged, this, [this] { FillPages(CurrentPage()); });
    connect(showImages_, &QCheckBox::toggled, this, [this](bool on) { ShowImages(on); });
    connect(pages_->verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this] { RequestVisibleThumbnails(); });
    connect(pages_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { ShowPageMenu(at); });
    connect(categories_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { ShowCategoryMenu(at); });
    // Tab goes from the filter to the pages, their buttons, then the categories.
    setTabOrder(filter_, order_);
    setTabOrder(order_, showImages_);
    setTabOrder(showImages_, pages_);
    setTabOrder(pages_, buttons_["btnOpen"]);
    auto* find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, this, [this] {
        filter_->setFocus();
        filter_->selectAll();
    });
}

void PageBrowser::ShowPageMenu(const QPoint& at) {
    if (QListWidgetItem* item = pages_->itemAt(at); item && !item->isSelected()) {
        pages_->setCurrentItem(item);
    }
    QMenu menu(this);
    menu.setObjectName("mnuPagePopup");
    auto action = [&](const char* text, const QKeySequence& keys, std::function<void()> act) {
        QAction* a = menu.addAction(text, this, std::move(act));
        a->setShortcut(keys);
        return a;
    };
    bool any = !SelectedPages().empty();
    action("&Open", Qt::Key_Return, [this] {
        OpenPage();
    })->setEnabled(SelectedPages().size() == 1);
    action("&Copy...", {}, [this] { CopyPage(); })->setEnabled(any);
    action("&Rename...", Qt::Key_F2, [this] {
        RenamePage();
    })->setEnabled(SelectedPages().size() == 1);
    action("&Delete", QKeySequence::Delete, [this] { DeletePage(); })->setEnabled(any);
    QMenu* move = menu.addMenu("&Move to");
    move->setEnabled(any);
    for (const CatalogCategory& c : catalog_.Categories()) {
        std::string name = c.Name;
        move->addAction(FromPath(name), this, [this, name] { MovePage(name); });
    }
    menu.addSeparator();
    action("&New Page...", {}, [this] { NewPage(); });
    menu.exec(pages_->viewport()->mapToGlobal(at));
}

void PageBrowser::ShowCategoryMenu(const QPoint& at) {
    if (QListWidgetItem* item = categories_->itemAt(at)) categories_->setCurrentItem(item);
    const std::string current = CurrentCategory();
    bool own = !current.empty() && current != PageCatalog::kAddedRecently;
    QMenu menu(this);
    menu.setObjectName("mnuCategoryPopup");
    menu.addAction("&New Category...", this, [this] { NewCategory(); });
    menu.addAction("&Rename...", this, [this] { RenameCategory(); })->setEnabled(own);
    menu.addAction("&Delete", this, [this] { DeleteCategory(); })->setEnabled(own);
    menu.addAction("Move &Up", this, [this] { MoveCategory(-1); })->setEnabled(own);
    menu.addAction("Move Do&wn", this, [this] { MoveCategory(1); })->setEnabled(own);
    menu.exec(categories_->viewport()->mapToGlobal(at));
}

void PageBrowser::keyPressEvent(QKeyEvent* event) {
    // Escape first clears the filter; only then does it close the window.
    if (event->key() == Qt::Key_Escape && !filter_->text().isEmpty()) {
        filter_->clear();
        return;
    }
    QDialog::keyPressEvent(event);
}

bool PageBrowser::DropPages(const QMimeData* data, const QPoint& at) {
    QListWidgetItem* target = categories_->itemAt(at);
    if (!data || !data->hasFormat(kPagesMimeType) || !target) return false;
    std::string category = ToPath(target->data(Qt::UserRole).toString());
    if (category.empty()) return false;  // All Pages is no category to file into
    for (const QString& name : QString::fromUtf8(data->data(kPagesMimeType)).split('\n')) {
        if (!name.isEmpty() && !Done(catalog_.MovePage(ToPath(name), category))) break;
    }
    FillCategories(CurrentCategory());
    FillPages("");
    return true;
}

bool PageBrowser::eventFilter(QObject* watched, QEvent* event) {
    if (watched == categories_->viewport()) {
        switch (event->type()) {
            case QEvent::DragEnter:
            case QEvent::DragMove: {
                auto* drag = static_cast<QDragMoveEvent*>(event);
                if (drag->mimeData()->hasFormat(kPagesMimeType)) drag->acceptProposedAction();
                return true;
            }
            case QEvent::Drop: {
                auto* drop = static_cast<QDropEvent*>(event);
                if (DropPages(drop->mimeData(), drop->position().toPoint()))
                    drop->acceptProposedAction();
                return true;
            }
            default:
                break;
        }
    }
    if (watched == pages_ && event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Delete)) {
            DeletePage();
            return true;
        }
        if (key->key() == Qt::Key_F2) {
            RenamePage();
            return true;
        }
    }
    if (watched == pages_ && event->type() == QEvent::Resize) {
        empty_->setGeometry(pages_->viewport()->rect().adjusted(12, 12, -12, -12));
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
    WriteIni(kSection, "Splitter", number(splitter_->sizes().value(0)));
    WriteIni(kSection, "Order", number(order_->currentIndex()));
    WriteIni(kSection, "Show_Images", showImages_->isChecked() ? "True" : "False");
}

void PageBrowser::done(int result) {
    SaveWindowSettings();
    QDialog::done(result);
}

}  // namespace paginox
