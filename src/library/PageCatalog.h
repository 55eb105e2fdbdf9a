// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The page library's catalogue: the categories of the Pages folder in the user's order, each
// with its page files, kept in "PageCatalog.txt" in that folder so that it travels with the
// pages (docs/page-catalogue.md describes the file). "Added Recently" comes first and holds
// every page no category lists: it is worked out on each load, never stored. Every command
// keeps the files on disk and the catalogue in step and saves the catalogue at once.

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "persist/FileStatus.h"

namespace paginox {

class PageClass;

// Names are UTF-8: a page's is its file's name exactly as the folder lists it.
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
    // legacy "pages.ini" there is imported once (and left alone), and Problem() says what was
    // imported; a damaged catalogue is kept beside it as "PageCatalog.bad.txt" (then
    // "PageCatalog.bad-2.txt" and on: no copy is overwritten) and rebuilt from the folder.
    // Entries whose file is gone are dropped; pages nobody filed go to Added Recently.
    // Without write, nothing is written: no import, no copy, no save (for readers such as
    // paginox-tool library).
    static PageCatalog Load(const std::string& folder, bool write = true);
    // Takes in the catalogue file again when another program has written it since it was last
    // read or written here; true when it did. Every command does this first.
    bool Refresh();

    const std::string& Folder() const { return folder_; }
    // Added Recently first (in name order), then the user's categories in their order.
    const std::vector<CatalogCategory>& Categories() const { return categories_; }
    const CatalogCategory* Find(const std::string& category) const;
    // The category a page is filed in.
    std::string CategoryOf(const std::string& page) const;
    // What the user should be told once about the last load; empty when all was well.
    const std::string& Problem() const { return problem_; }
    // The same, handed over once: a reload by Refresh may bring a new one.
    std::string TakeProblem();
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
    // Told each rename, old path then new (so that an editor showing the page follows it).
    std::function<void(const std::string& from, const std::string& to)> PageRenamed;

    // Writes the catalogue (without Added Recently) atomically; false when it could not.
    bool Save();

  private:
    void Reload();
    std::vector<CatalogCategory> ImportLegacy();
    CatalogCategory* Category(const std::string& name);
    // renamed: the page or category being renamed, which the new name may match.
    std::string PageNameProblem(const std::string& name, std::string& file,
                                const std::string& renamed = "") const;
    std::string CategoryNameProblem(const std::string& name, const std::string& renamed = "") const;
    // Saves the change just made; when that fails, the catalogue goes back to before and
    // undoOnDisk takes back what the command did to the files.
    std::string Commit(std::vector<CatalogCategory> before,
                       const std::function<void()>& undoOnDisk = {});
    static void RemoveFile(const std::string& path);
    void FileUnlisted(const std::vector<std::string>& onDisk);
    // Added Recently is kept in name order.
    void AddRecent(const std::string& page);

    std::string folder_;
    bool write_ = true;
    std::vector<CatalogCategory> categories_;
    std::string problem_;
    std::optional<FileStamp> stamp_;  // the catalogue file as last read or written here
};

// The catalogue file's text for these categories (Added Recently left out).
std::string CatalogText(const std::vector<CatalogCategory>& categories);
// Reads a catalogue file's text; false when it is damaged (a line that is neither a
// category, a page file nor a note, a page before any category, a NUL byte).
bool ParseCatalog(const std::string& text, std::vector<CatalogCategory>& into);
// Reads the legacy INI (UTF-8 text): its sections are the categories, its values the page
// files; a section without a name becomes "Unnamed".
std::vector<CatalogCategory> ParseLegacyCatalog(const std::string& text);
// The legacy file's bytes as UTF-8: UTF-16 or UTF-8 after a byte order mark, else
// Windows-1252.
std::string LegacyText(const std::string& bytes);

}  // namespace paginox
