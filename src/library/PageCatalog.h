// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The page library's catalogue: the categories of the Pages folder in the user's order, each
// with its page files, kept in "PageCatalog.txt" in that folder so that it travels with the
// pages (docs/page-catalogue.md describes the file). "Added Recently" comes first and holds
// every page no category lists: it is worked out on each load, never stored. Every command
// keeps the files on disk and the catalogue in step and saves the catalogue at once.

#include <functional>
#include <string>
#include <vector>

namespace paginox {

class PageClass;

struct CatalogCategory {
    std::string Name;
    std::vector<std::string> Pages;  // file names inside the Pages folder, as on disk
};

class PageCatalog {
  public:
    static constexpr const char* kFileName = "PageCatalog.txt";
    static constexpr const char* kLegacyFileName = "pages.ini";
    static constexpr const char* kAddedRecently = "Added Recently";

    // Loads the catalogue of folder (ending with the path separator). Without a catalogue, a
    // legacy "pages.ini" there is imported once (and left alone); a damaged catalogue is kept
    // beside it as "PageCatalog.bad.txt" and rebuilt from the folder, and Problem() says so.
    // Entries whose file is gone are dropped; pages nobody filed go to Added Recently.
    static PageCatalog Load(const std::string& folder);

    const std::string& Folder() const { return folder_; }
    // Added Recently first (in name order), then the user's categories in their order.
    const std::vector<CatalogCategory>& Categories() const { return categories_; }
    const CatalogCategory* Find(const std::string& category) const;
    // The category a page is filed in.
    std::string CategoryOf(const std::string& page) const;
    // What the user should be told once about the last load; empty when all was well.
    const std::string& Problem() const { return problem_; }
    // The page file's native path.
    std::string PathOf(const std::string& page) const;

    // The commands. Each returns an empty text on success, else the message to show (and
    // then changes nothing). Names are checked first: not empty, no path separator or
    // character a file name cannot hold, not taken.
    std::string AddCategory(const std::string& name);
    std::string RenameCategory(const std::string& from, const std::string& to);
    // Its pages go back to Added Recently; none is deleted.
    std::string DeleteCategory(const std::string& name);
    // Moves the category to position index among the user's categories (0 the first).
    std::string MoveCategory(const std::string& name, int index);
    std::string MovePage(const std::string& page, const std::string& toCategory);
    // name is the new page's name without folder or extension; the page is saved as given.
    std::string NewPage(const std::string& name, const PageClass& page);
    std::string CopyPage(const std::string& page, const std::string& newName);
    std::string RenamePage(const std::string& page, const std::string& newName);
    // Moves the file to the desktop's trash where there is one, else deletes it.
    std::string DeletePage(const std::string& page);

    // Told the path of each page file a command renamed, deleted or replaced (so that its
    // cached thumbnails go).
    std::function<void(const std::string& path)> PageFileGone;

    // Writes the catalogue (without Added Recently) atomically; false when it could not.
    bool Save() const;

  private:
    CatalogCategory* Category(const std::string& name);
    std::string PageNameProblem(const std::string& name, std::string& file) const;
    std::string CategoryNameProblem(const std::string& name) const;
    void FileUnlisted(const std::vector<std::string>& onDisk);
    // Added Recently is kept in name order.
    void AddRecent(const std::string& page);
    std::string Saved();

    std::string folder_;
    std::vector<CatalogCategory> categories_;
    std::string problem_;
};

// The catalogue file's text for these categories (Added Recently left out).
std::string CatalogText(const std::vector<CatalogCategory>& categories);
// Reads a catalogue file's text; false when it is damaged (a line that is neither a
// category, a page file nor a note, a page before any category, a NUL byte).
bool ParseCatalog(const std::string& text, std::vector<CatalogCategory>& into);
// Reads the legacy INI: its sections are the categories, its values the page files.
std::vector<CatalogCategory> ParseLegacyCatalog(const std::string& text);

}  // namespace paginox
