// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/PageCatalog.h"

#include <QFile>
#include <QString>
#include <algorithm>
#include <filesystem>
#include <optional>

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
        std::string name = Utf8ToCp1252(entry.path().filename().string());
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

std::string CatalogText(const std::vector<CatalogCategory>& categories) {
    std::string text = std::string(kHeader) + "\n";
    for (const CatalogCategory& c : categories) {
        if (c.Name == PageCatalog::kAddedRecently) continue;
        text += "\n[" + c.Name + "]\n";
        for (const std::string& page : c.Pages) text += page + "\n";
    }
    return text;
}

bool ParseCatalog(const std::string& text, std::vector<CatalogCategory>& into) {
    if (text.find('\0') != std::string::npos) return false;
    into.clear();
    for (const std::string& raw : Lines(text)) {
        std::string line = Trim(raw);
        if (line.empty() || line.front() == '#') continue;
        if (line.front() == '[' && line.back() == ']' && line.size() > 2) {
            into.push_back({line.substr(1, line.size() - 2), {}});
        } else if (IsPageFileName(line) && !into.empty()) {
            into.back().Pages.push_back(line);
        } else {
            return false;
        }
    }
    return true;
}

std::vector<CatalogCategory> ParseLegacyCatalog(const std::string& text) {
    std::vector<CatalogCategory> categories;
    for (const std::string& raw : Lines(text)) {
        std::string line = Trim(raw);
        if (line.empty() || line.front() == ';') continue;
        if (line.front() == '[' && line.back() == ']') {
            categories.push_back({Trim(line.substr(1, line.size() - 2)), {}});
            continue;
        }
        size_t equals = line.find('=');
        if (equals == std::string::npos || categories.empty()) continue;
        std::string value = Trim(line.substr(equals + 1));
        if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
            value = value.substr(1, value.size() - 2);
        }
        // A value may name its folder too; the catalogue keeps names inside the Pages folder.
        size_t slash = value.find_last_of("\\/");
        if (slash != std::string::npos) value = value.substr(slash + 1);
        if (IsPageFileName(value)) categories.back().Pages.push_back(value);
    }
    return categories;
}

PageCatalog PageCatalog::Load(const std::string& folder) {
    PageCatalog catalog;
    catalog.folder_ = folder;
    const std::string file = folder + kFileName;
    std::vector<CatalogCategory> stored;
    bool save = false;
    FileType type = TypeOfFile(file);
    if (type == FileType::Missing) {
        if (TypeOfFile(folder + kLegacyFileName) == FileType::Regular) {
            try {
                stored = ParseLegacyCatalog(ReadWholeFile(folder + kLegacyFileName));
            } catch (const RuntimeError&) {
            }
        }
        save = true;  // the first catalogue, so that the import happens once
    } else {
        std::optional<std::string> text;
        std::error_code sizeError;
        if (type == FileType::Regular && fs::file_size(file, sizeError) <= kMaxCatalogBytes &&
            !sizeError) {
            try {
                text = ReadWholeFile(file);
            } catch (const RuntimeError&) {
            }
        }
        if (!text || !ParseCatalog(*text, stored)) {
            std::error_code ignored;
            fs::copy_file(file, folder + kBadCopyName, fs::copy_options::overwrite_existing,
                          ignored);
            catalog.problem_ = "The page catalogue " + Utf8ToCp1252(file) +
                               " could not be read. A copy of it was kept as " + kBadCopyName +
                               ", and the catalogue was made afresh from the Pages folder: every "
                               "page is listed under " +
                               kAddedRecently + ".";
            stored.clear();
            save = true;
        }
    }
    catalog.categories_.push_back({kAddedRecently, {}});
    for (CatalogCategory& c : stored) {
        if (c.Name == kAddedRecently || catalog.Category(c.Name)) continue;
        catalog.categories_.push_back(std::move(c));
    }
    catalog.FileUnlisted(PageFilesIn(folder));
    if (save) catalog.Save();
    return catalog;
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
        if (c.Name == category) return &c;
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
    return folder_ + Cp1252ToUtf8(page);
}

bool PageCatalog::Save() const {
    try {
        SaveFileAtomically(folder_ + kFileName, CatalogText(categories_));
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

std::string PageCatalog::Saved() {
    if (Save()) return std::string();
    return "The page catalogue " + Utf8ToCp1252(folder_ + kFileName) + " could not be saved.";
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
}  // namespace

std::string PageCatalog::CategoryNameProblem(const std::string& name) const {
    if (Trim(name).empty()) return "Please enter a name for the category.";
    if (name != Trim(name) || name.front() == '#' ||
        name.find_first_of("[]") != std::string::npos) {
        return "A category name cannot begin or end with a space, begin with # or contain [ or ].";
    }
    for (const CatalogCategory& c : categories_) {
        if (SameName(c.Name, name)) return "There is already a category named " + name + ".";
    }
    return InvalidCharacters(name);
}

std::string PageCatalog::PageNameProblem(const std::string& name, std::string& file) const {
    if (Trim(name).empty()) return "Please enter a name for the page.";
    std::string bad = InvalidCharacters(name);
    if (!bad.empty()) return bad;
    if (name != Trim(name) || name.back() == '.') {
        return "A page name cannot begin or end with a space, or end with a full stop.";
    }
    file = name + ".pag";
    // Letter case does not make a name new: the pages are shared with systems that ignore it.
    bool taken = TypeOfFile(PathOf(file)) != FileType::Missing;
    for (const CatalogCategory& c : categories_) {
        for (const std::string& p : c.Pages) taken = taken || SameName(p, file);
    }
    return taken ? "There is already a page named " + name + "." : std::string();
}

std::string PageCatalog::AddCategory(const std::string& name) {
    std::string problem = CategoryNameProblem(name);
    if (!problem.empty()) return problem;
    categories_.push_back({name, {}});
    return Saved();
}

std::string PageCatalog::RenameCategory(const std::string& from, const std::string& to) {
    CatalogCategory* c = Category(from);
    if (!c || from == kAddedRecently) return "The category " + from + " cannot be renamed.";
    if (SameName(from, to) && from != to && to == Trim(to)) {
        c->Name = to;  // only the letter case changes
        return Saved();
    }
    std::string problem = CategoryNameProblem(to);
    if (!problem.empty()) return problem;
    c->Name = to;
    return Saved();
}

std::string PageCatalog::DeleteCategory(const std::string& name) {
    auto it = std::find_if(categories_.begin() + 1, categories_.end(),
                           [&](const CatalogCategory& c) { return c.Name == name; });
    if (it == categories_.end()) return "The category " + name + " cannot be deleted.";
    for (const std::string& page : it->Pages) AddRecent(page);
    categories_.erase(it);
    return Saved();
}

std::string PageCatalog::MoveCategory(const std::string& name, int index) {
    auto it = std::find_if(categories_.begin() + 1, categories_.end(),
                           [&](const CatalogCategory& c) { return c.Name == name; });
    if (it == categories_.end()) return "The category " + name + " cannot be moved.";
    CatalogCategory moved = std::move(*it);
    categories_.erase(it);
    int last = static_cast<int>(categories_.size()) - 1;
    categories_.insert(categories_.begin() + 1 + std::clamp(index, 0, last), std::move(moved));
    return Saved();
}

std::string PageCatalog::MovePage(const std::string& page, const std::string& toCategory) {
    CatalogCategory* to = Category(toCategory);
    CatalogCategory* from = Category(CategoryOf(page));
    if (!to || !from) return "The page " + page + " cannot be moved there.";
    if (from == to) return std::string();
    std::erase(from->Pages, page);
    if (to == &categories_.front()) {
        AddRecent(page);
    } else {
        to->Pages.push_back(page);
    }
    return Saved();
}

std::string PageCatalog::NewPage(const std::string& name, const PageClass& page) {
    std::string file;
    std::string problem = PageNameProblem(name, file);
    if (!problem.empty()) return problem;
    try {
        WritePageFile(PathOf(file), page);
    } catch (const RuntimeError& e) {
        return FileErrorText("Error whilst attempting to save page ", PathOf(file),
                             e.Description());
    }
    AddRecent(file);
    return Saved();
}

std::string PageCatalog::CopyPage(const std::string& page, const std::string& newName) {
    std::string file;
    std::string problem = PageNameProblem(newName, file);
    if (!problem.empty()) return problem;
    std::error_code error;
    fs::copy_file(PathOf(page), PathOf(file), error);
    if (error) return "The page " + page + " could not be copied: " + error.message();
    AddRecent(file);
    return Saved();
}

std::string PageCatalog::RenamePage(const std::string& page, const std::string& newName) {
    std::string file;
    std::string problem = PageNameProblem(newName, file);
    if (!problem.empty()) return problem;
    CatalogCategory* in = Category(CategoryOf(page));
    if (!in) return "The page " + page + " is not in the catalogue.";
    std::error_code error;
    fs::rename(PathOf(page), PathOf(file), error);
    if (error) return "The page " + page + " could not be renamed: " + error.message();
    std::replace(in->Pages.begin(), in->Pages.end(), page, file);
    if (PageFileGone) PageFileGone(PathOf(page));
    return Saved();
}

std::string PageCatalog::DeletePage(const std::string& page) {
    CatalogCategory* in = Category(CategoryOf(page));
    if (!in) return "The page " + page + " is not in the catalogue.";
    const std::string path = PathOf(page);
    if (!QFile::moveToTrash(QString::fromStdString(path))) {
        std::error_code error;
        fs::remove(path, error);
        if (error) return "The page " + page + " could not be deleted: " + error.message();
    }
    std::erase(in->Pages, page);
    if (PageFileGone) PageFileGone(path);
    return Saved();
}

}  // namespace paginox
