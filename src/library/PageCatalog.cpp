// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/PageCatalog.h"

#include <QFile>
#include <QString>
#include <algorithm>
#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

#include "core/AnsiText.h"
#include "core/RuntimeError.h"
#include "model/PageClass.h"
#include "persist/AtomicSave.h"
#include "persist/BinaryFile.h"
#include "persist/FileIO_Page.h"
#include "persist/FileStatus.h"

namespace paginox {

namespace fs = std::filesystem;

namespace {

constexpr const char* kBadCopyName = "PageCatalog.bad.txt";
constexpr const char* kHeader = "# Paginox page catalogue: [Category] lines, then its page files.";
constexpr size_t kMaxCatalogBytes = 16 * 1024 * 1024;
constexpr const char* kUnnamedCategory = "Unnamed";

bool IsPageFileName(const std::string& name) {
    return name.size() > 4 && EqualsIgnoreCase(name.substr(name.size() - 4), ".pag");
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        std::string line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
        start = end + 1;
    }
    return lines;
}

// The page files of the folder, in name order, as the catalogue writes them.
std::vector<std::string> PageFilesIn(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        std::string name = entry.path().filename().string();  // as on disk, UTF-8
        if (IsPageFileName(name) && TypeOfFile(entry.path().string()) == FileType::Regular) {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

bool SameName(const std::string& a, const std::string& b) {
    return EqualsIgnoreCase(a, b);
}

}  // namespace

namespace {

constexpr std::string_view kUtf8Mark = "*";  // starts a name stored in UTF-8
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// A name as the file keeps it: Windows-1252 where that holds it, else "*" and UTF-8 (no page
// or category name can start with "*").
std::string Stored(const std::string& name) {
    std::string ansi = Utf8ToCp1252(name);
    // A name a line could not hold as it is (read as a note, a category or a marked name, or
    // losing its blanks) is marked too.
    bool awkward = name.empty() ||
                   std::string_view("#*[ \t").find(name.front()) != std::string_view::npos ||
                   name.back() == ' ' || name.back() == '\t';
    return !awkward && Cp1252ToUtf8(ansi) == name ? ansi : std::string(kUtf8Mark) + name;
}

std::string Read(const std::string& stored, bool utf8File) {
    if (stored.starts_with(kUtf8Mark)) return stored.substr(kUtf8Mark.size());
    return utf8File ? stored : Cp1252ToUtf8(stored);
}

// Spaces and tabs around a line, as a Windows editor may leave them.
std::string TrimBlanks(const std::string& text) {
    size_t start = text.find_first_not_of(" \t");
    if (start == std::string::npos) return std::string();
    return text.substr(start, text.find_last_not_of(" \t") - start + 1);
}

}  // namespace

std::string CatalogText(const std::vector<CatalogCategory>& categories) {
    std::string text = std::string(kHeader) + "\n";
    for (const CatalogCategory& c : categories) {
        if (EqualsIgnoreCase(c.Name, PageCatalog::kAddedRecently)) continue;
        text += "\n[" + Stored(c.Name) + "]\n";
        for (const std::string& page : c.Pages) text += Stored(page) + "\n";
    }
    return text;
}

bool ParseCatalog(const std::string& text, std::vector<CatalogCategory>& into) {
    if (text.find('\0') != std::string::npos) return false;
    // Saved by an editor in UTF-8 with a byte order mark: every line is UTF-8.
    const bool utf8File = text.starts_with(kByteOrderMark);
    into.clear();
    size_t current = std::string::npos;  // the category being read, by position
    for (const std::string& raw : Lines(utf8File ? text.substr(kByteOrderMark.size()) : text)) {
        std::string line = TrimBlanks(raw);
        if (line.empty() || line.front() == '#') continue;
        if (line.front() == '[' && line.back() == ']' && line.size() > 2) {
            std::string name = Read(TrimBlanks(line.substr(1, line.size() - 2)), utf8File);
            // A category listed twice is one category: letter case does not tell them apart.
            auto same = std::find_if(into.begin(), into.end(), [&](const CatalogCategory& c) {
                return EqualsIgnoreCase(c.Name, name);
            });
            current = size_t(same - into.begin());
            if (same == into.end()) into.push_back({name, {}});
        } else if (IsPageFileName(line) && current != std::string::npos) {
            into[current].Pages.push_back(Read(line, utf8File));
        } else {
            return false;
        }
    }
    return true;
}

std::string LegacyText(const std::string& bytes) {
    auto starts = [&](std::string_view mark) { return bytes.starts_with(mark); };
    if (starts("\xFF\xFE") || starts("\xFE\xFF")) {
        // UTF-16, as Windows' own editor saves "Unicode"; an odd last byte is dropped.
        const bool little = starts("\xFF\xFE");
        std::u16string units;
        for (size_t k = 2; k + 1 < bytes.size(); k += 2) {
            unsigned char a = bytes[k], b = bytes[k + 1];
            units.push_back(char16_t(little ? a | b << 8 : b | a << 8));
        }
        return QString::fromStdU16String(units).toStdString();
    }
    if (starts(kByteOrderMark)) return bytes.substr(kByteOrderMark.size());
    return Cp1252ToUtf8(bytes);
}

std::vector<CatalogCategory> ParseLegacyCatalog(const std::string& text) {
    std::vector<CatalogCategory> categories;
    size_t current = std::string::npos;
    for (const std::string& raw : Lines(text)) {
        std::string line = TrimBlanks(raw);
        if (line.empty() || line.front() == ';') continue;
        if (line.front() == '[' && line.back() == ']') {
            std::string name = TrimBlanks(line.substr(1, line.size() - 2));
            // A section without a name still holds the user's filing.
            if (name.empty()) name = kUnnamedCategory;
            auto same =
                std::find_if(categories.begin(), categories.end(),
                             [&](const CatalogCategory& c) { return SameName(c.Name, name); });
            current = size_t(same - categories.begin());
            if (same == categories.end()) categories.push_back({name, {}});
            continue;
        }
        size_t equals = line.find('=');
        if (equals == std::string::npos || current == std::string::npos) continue;
        std::string value = TrimBlanks(line.substr(equals + 1));
        if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
            value = value.substr(1, value.size() - 2);
        }
        // A value may name its folder too; the catalogue keeps names inside the Pages folder.
        size_t slash = value.find_last_of("\\/");
        if (slash != std::string::npos) value = value.substr(slash + 1);
        if (IsPageFileName(value)) categories[current].Pages.push_back(value);
    }
    return categories;
}

namespace {

// A copy of the damaged catalogue beside it, under the first name not yet taken: earlier
// copies are never overwritten. The copy's name, or nothing when none could be made.
std::optional<std::string> KeepDamagedCopy(const std::string& folder, const std::string& file) {
    for (int n = 1; n < 1000; ++n) {
        std::string name =
            n == 1 ? std::string(kBadCopyName) : "PageCatalog.bad-" + std::to_string(n) + ".txt";
        if (TypeOfFile(folder + name) != FileType::Missing) continue;
        std::error_code error;
        if (fs::copy_file(file, folder + name, error) && !error) return name;
        return std::nullopt;
    }
    return std::nullopt;
}

}  // namespace

PageCatalog PageCatalog::Load(const std::string& folder, bool write) {
    PageCatalog catalog;
    catalog.folder_ = folder;
    catalog.write_ = write;
    catalog.Reload();
    return catalog;
}

void PageCatalog::Reload() {
    problem_.clear();
    const std::string file = folder_ + kFileName;
    std::vector<CatalogCategory> stored;
    bool save = false;
    FileType type = TypeOfFile(file);
    if (type == FileType::Missing) {
        stored = ImportLegacy();
        save = true;  // the first catalogue, so that the import happens once
    } else {
        std::optional<std::string> text;
        std::error_code sizeError;
        if (type == FileType::Regular && fs::file_size(file, sizeError) <= kMaxCatalogBytes &&
            !sizeError) {
            try {
                text = ReadWholeFile(file);
            } catch (const RuntimeError&) {
                // Not readable now (no permission, a disk error): it may well be fine, so it is
                // never replaced; this catalogue only reads until it is loaded again.
                problem_ = "The page catalogue " + Utf8ToCp1252(file) +
                           " could not be read, so changes to the filing cannot be saved now.";
                write_ = false;
                text = std::string();
            }
        }
        if (!write_ && text && text->empty()) {
            stored.clear();
        } else if (!text || !ParseCatalog(*text, stored)) {
            std::optional<std::string> copy =
                write_ ? KeepDamagedCopy(folder_, file) : std::nullopt;
            problem_ = "The page catalogue " + Utf8ToCp1252(file) + " could not be read. " +
                       (copy ? "A copy of it was kept as " + *copy + ", and the" : "The") +
                       " catalogue was made afresh from the Pages folder: every page is listed "
                       "under " +
                       kAddedRecently + ".";
            stored.clear();
            save = copy.has_value();  // the damaged file is replaced only once it was kept
        }
    }
    categories_ = {{kAddedRecently, {}}};
    for (CatalogCategory& c : stored) {
        if (SameName(c.Name, kAddedRecently) || Category(c.Name)) continue;
        categories_.push_back(std::move(c));
    }
    FileUnlisted(PageFilesIn(folder_));
    if (save && write_) Save();
    stamp_ = StampOf(file);
}

std::vector<CatalogCategory> PageCatalog::ImportLegacy() {
    const std::string legacy = folder_ + kLegacyFileName;
    if (TypeOfFile(legacy) != FileType::Regular) return {};
    std::vector<CatalogCategory> imported;
    try {
        imported = ParseLegacyCatalog(LegacyText(ReadWholeFile(legacy)));
    } catch (const RuntimeError& e) {
        problem_ = "The old page list " + Utf8ToCp1252(legacy) +
                   " could not be read, so nothing was imported from it: " + e.Description();
        return {};
    }
    size_t pages = 0;
    for (const CatalogCategory& c : imported) pages += c.Pages.size();
    problem_ = imported.empty() ? "The old page list " + Utf8ToCp1252(legacy) +
                                      " holds no categories, so nothing was imported from it."
                                : "The categories of the old page list " + Utf8ToCp1252(legacy) +
                                      " were imported: " + std::to_string(imported.size()) +
                                      " categories listing " + std::to_string(pages) + " pages.";
    return imported;
}

std::string PageCatalog::TakeProblem() {
    return std::exchange(problem_, std::string());
}

bool PageCatalog::Refresh() {
    if (StampOf(folder_ + kFileName) == stamp_) return false;
    // Another program wrote the catalogue: what it wrote is taken in before anything changes.
    Reload();
    return true;
}

void PageCatalog::AddRecent(const std::string& page) {
    std::vector<std::string>& recent = categories_.front().Pages;
    recent.insert(std::upper_bound(recent.begin(), recent.end(), page), page);
}

void PageCatalog::FileUnlisted(const std::vector<std::string>& onDisk) {
    auto exists = [&](const std::string& page) {
        return std::find(onDisk.begin(), onDisk.end(), page) != onDisk.end();
    };
    std::vector<std::string> listed;
    for (CatalogCategory& c : categories_) {
        // Gone from disk, or filed twice: shown once, where it was filed first.
        std::erase_if(c.Pages, [&](const std::string& p) {
            bool drop = !exists(p) || std::find(listed.begin(), listed.end(), p) != listed.end();
            if (!drop) listed.push_back(p);
            return drop;
        });
    }
    for (const std::string& page : onDisk) {
        if (std::find(listed.begin(), listed.end(), page) == listed.end()) AddRecent(page);
    }
}

const CatalogCategory* PageCatalog::Find(const std::string& category) const {
    for (const CatalogCategory& c : categories_) {
        if (SameName(c.Name, category)) return &c;
    }
    return nullptr;
}

CatalogCategory* PageCatalog::Category(const std::string& name) {
    return const_cast<CatalogCategory*>(Find(name));
}

std::string PageCatalog::CategoryOf(const std::string& page) const {
    for (const CatalogCategory& c : categories_) {
        if (std::find(c.Pages.begin(), c.Pages.end(), page) != c.Pages.end()) return c.Name;
    }
    return std::string();
}

std::string PageCatalog::PathOf(const std::string& page) const {
    return folder_ + page;
}

bool PageCatalog::Save() {
    if (!write_) return false;
    try {
        SaveFileAtomically(folder_ + kFileName, CatalogText(categories_));
        stamp_ = StampOf(folder_ + kFileName);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

std::string PageCatalog::Commit(std::vector<CatalogCategory> before,
                                const std::function<void()>& undoOnDisk) {
    if (Save()) return std::string();
    // Window, memory and disk stay in step: the change is taken back whole.
    categories_ = std::move(before);
    if (undoOnDisk) undoOnDisk();
    return "The page catalogue " + Utf8ToCp1252(folder_ + kFileName) +
           " could not be saved, so nothing was changed.";
}

namespace {
std::string InvalidCharacters(const std::string& name) {
    static const std::string kBad = "\\/:*?\"<>|";
    for (char c : name) {
        if (static_cast<unsigned char>(c) < 32 || kBad.find(c) != std::string::npos) {
            return "A name cannot contain any of these characters: \\ / : * ? \" < > |";
        }
    }
    return std::string();
}

// A name in a message, which is Windows-1252.
std::string Shown(const std::string& name) {
    return Utf8ToCp1252(name);
}
}  // namespace

std::string PageCatalog::CategoryNameProblem(const std::string& name,
                                             const std::string& renamed) const {
    if (TrimBlanks(name).empty()) return "Please enter a name for the category.";
    if (name != TrimBlanks(name) || name.front() == '#' ||
        name.find_first_of("[]") != std::string::npos) {
        return "A category name cannot begin or end with a space, begin with # or contain [ or ].";
    }
    for (const CatalogCategory& c : categories_) {
        if (SameName(c.Name, name) && !SameName(c.Name, renamed))
            return "There is already a category named " + Shown(name) + ".";
    }
    return InvalidCharacters(name);
}

std::string PageCatalog::PageNameProblem(const std::string& name, std::string& file,
                                         const std::string& renamed) const {
    if (TrimBlanks(name).empty()) return "Please enter a name for the page.";
    std::string bad = InvalidCharacters(name);
    if (!bad.empty()) return bad;
    if (name != TrimBlanks(name) || name.back() == '.') {
        return "A page name cannot begin or end with a space, or end with a full stop.";
    }
    file = name + ".pag";
    // Letter case does not make a name new (the pages are shared with systems that ignore
    // it), except for the page being renamed itself.
    bool taken = !SameName(file, renamed) && TypeOfFile(PathOf(file)) != FileType::Missing;
    for (const CatalogCategory& c : categories_) {
        for (const std::string& p : c.Pages) taken = taken || (SameName(p, file) && p != renamed);
    }
    return taken ? "There is already a page named " + Shown(name) + "." : std::string();
}

std::string PageCatalog::AddCategory(const std::string& name) {
    Refresh();
    std::string problem = CategoryNameProblem(name);
    if (!problem.empty()) return problem;
    auto before = categories_;
    categories_.push_back({name, {}});
    return Commit(std::move(before));
}

std::string PageCatalog::RenameCategory(const std::string& from, const std::string& to) {
    Refresh();
    CatalogCategory* c = Category(from);
    if (!c || SameName(from, kAddedRecently))
        return "The category " + Shown(from) + " cannot be renamed.";
    std::string problem = CategoryNameProblem(to, from);
    if (!problem.empty()) return problem;
    auto before = categories_;
    c->Name = to;
    return Commit(std::move(before));
}

std::string PageCatalog::DeleteCategory(const std::string& name) {
    Refresh();
    auto it = std::find_if(categories_.begin() + 1, categories_.end(),
                           [&](const CatalogCategory& c) { return SameName(c.Name, name); });
    if (it == categories_.end()) return "The category " + Shown(name) + " cannot be deleted.";
    auto before = categories_;
    std::vector<std::string> pages = it->Pages;
    categories_.erase(it);
    for (const std::string& page : pages) AddRecent(page);
    return Commit(std::move(before));
}

std::string PageCatalog::MoveCategory(const std::string& name, int index) {
    Refresh();
    auto it = std::find_if(categories_.begin() + 1, categories_.end(),
                           [&](const CatalogCategory& c) { return SameName(c.Name, name); });
    if (it == categories_.end()) return "The category " + Shown(name) + " cannot be moved.";
    auto before = categories_;
    CatalogCategory moved = std::move(*it);
    categories_.erase(it);
    int last = static_cast<int>(categories_.size()) - 1;
    categories_.insert(categories_.begin() + 1 + std::clamp(index, 0, last), std::move(moved));
    return Commit(std::move(before));
}

std::string PageCatalog::MovePage(const std::string& page, const std::string& toCategory) {
    Refresh();
    CatalogCategory* to = Category(toCategory);
    CatalogCategory* from = Category(CategoryOf(page));
    if (!to || !from) return "The page " + Shown(page) + " cannot be moved there.";
    if (from == to) return std::string();
    auto before = categories_;
    std::erase(from->Pages, page);
    if (to == &categories_.front()) {
        AddRecent(page);
    } else {
        to->Pages.push_back(page);
    }
    return Commit(std::move(before));
}

std::string PageCatalog::NewPage(const std::string& name, const PageClass& page) {
    Refresh();
    std::string file;
    std::string problem = PageNameProblem(name, file);
    if (!problem.empty()) return problem;
    try {
        WritePageFile(PathOf(file), page);
    } catch (const RuntimeError& e) {
        return FileErrorText("Error whilst attempting to save page ", PathOf(file),
                             e.Description());
    }
    auto before = categories_;
    AddRecent(file);
    return Commit(std::move(before), [&] { RemoveFile(PathOf(file)); });
}

std::string PageCatalog::CopyPage(const std::string& page, const std::string& newName) {
    Refresh();
    std::string file;
    std::string problem = PageNameProblem(newName, file);
    if (!problem.empty()) return problem;
    std::error_code error;
    fs::copy_file(PathOf(page), PathOf(file), error);
    if (error) return "The page " + Shown(page) + " could not be copied: " + error.message();
    auto before = categories_;
    AddRecent(file);
    return Commit(std::move(before), [&] { RemoveFile(PathOf(file)); });
}

std::string PageCatalog::RenamePage(const std::string& page, const std::string& newName) {
    Refresh();
    std::string file;
    std::string problem = PageNameProblem(newName, file, page);
    if (!problem.empty()) return problem;
    CatalogCategory* in = Category(CategoryOf(page));
    if (!in) return "The page " + Shown(page) + " is not in the catalogue.";
    if (file == page) return std::string();
    std::error_code error;
    fs::rename(PathOf(page), PathOf(file), error);
    if (error) return "The page " + Shown(page) + " could not be renamed: " + error.message();
    auto before = categories_;
    std::replace(in->Pages.begin(), in->Pages.end(), page, file);
    std::string failed = Commit(std::move(before), [&] {
        std::error_code ignored;
        fs::rename(PathOf(file), PathOf(page), ignored);
    });
    if (failed.empty()) {
        if (PageFileGone) PageFileGone(PathOf(page));
        if (PageRenamed) PageRenamed(PathOf(page), PathOf(file));
    }
    return failed;
}

std::string PageCatalog::DeletePage(const std::string& page) {
    Refresh();
    CatalogCategory* in = Category(CategoryOf(page));
    if (!in) return "The page " + Shown(page) + " is not in the catalogue.";
    const std::string path = PathOf(page);
    auto before = categories_;
    std::erase(in->Pages, page);
    // The catalogue first: a page it cannot forget stays where it is.
    std::string failed = Commit(before);
    if (!failed.empty()) return failed;
    if (!QFile::moveToTrash(QString::fromStdString(path))) {
        std::error_code error;
        fs::remove(path, error);
        if (error) {
            categories_ = std::move(before);
            Save();
            return "The page " + Shown(page) + " could not be deleted: " + error.message();
        }
    }
    if (PageFileGone) PageFileGone(path);
    return std::string();
}

void PageCatalog::RemoveFile(const std::string& path) {
    std::error_code ignored;
    fs::remove(path, ignored);
}

}  // namespace paginox
