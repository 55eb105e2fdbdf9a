// SPDX-License-Identifier: GPL-3.0-or-later
#include <QGuiApplication>
#include <cstdlib>
#include <filesystem>
#include <ostream>

#include "core/AnsiText.h"
#include "model/DefinitionTables.h"
#include "model/PageObjectClasses.h"
#include "persist/BinaryFile.h"
#include "persist/DefinitionReaders.h"
#include "persist/DemoEnvironment.h"
#include "persist/FileIO_OClass.h"
#include "persist/Folders.h"
#include "persist/HostInstallation.h"
#include "persist/SpecialFolders.h"
#include "tool/Tool.h"
#include "tool/ToolCommands.h"

namespace paginox {

namespace {

std::string ProgramFolder() {
    std::error_code ec;
    auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    return ec ? std::string(".") : exe.parent_path().string();
}

// Every definition file from one folder, in the order start-up loads them.
void LoadDefinitionsFrom(const std::string& dir) {
    std::string folder = PathJoin(dir, kNativeSeparator);
    Definitions().DefinitionsFolder = folder;
    InstallDefinitionReaders();
    ReadRulerships(folder + "rulers2.fil");
    LoadCatalogue(folder + "objects.dfn");
    ReadAspectListDefs(folder + "Alist.dfn");
    ReadPointListDefs(folder + "plist.dfn");
}

}  // namespace

// The folder table as start-up fills it: the host's installation, or the demo environment.
// A table already filled (by an earlier command, or a test) is kept. True when neither was
// found (nor made, when seed is not set).
bool InitToolFolders(bool seed) {
    if (!AppFolders().Path(kPagesFolder).empty()) return false;
    bool demo = InitFolders(FindSampleFolder(ProgramFolder()), seed);
    return !demo && !FileExists(AppFolders().SettingsFile());
}

void LoadToolDefinitions(const ToolOptions& options) {
    if (options.dataDir) {
        if (!DirExists(*options.dataDir)) throw UsageError{"no such folder: " + *options.dataDir};
        LoadDefinitionsFrom(*options.dataDir);
        return;
    }
    // Reading or drawing a page makes no demo environment (a file manager's thumbnailer runs
    // this with a fresh home): without one, the bundled definitions are read where they lie.
    std::string sample = FindSampleFolder(ProgramFolder());
    if (InitToolFolders(false) && !sample.empty()) {
        LoadDefinitionsFrom(PathJoin(sample, kNativeSeparator) + "System");
        return;
    }
    LoadDefinitions(AppFolders(), LoadCatalogue);
}

int CommandFolders(const ToolOptions& options, std::ostream& out) {
    if (!options.args.empty()) throw UsageError{"folders takes no arguments"};
    InitToolFolders();
    const Folders& folders = AppFolders();
    for (int16_t i = 0; i < Folders::kCount; ++i) {
        out << i << '\t' << folders.Path(i) << '\t' << Cp1252ToUtf8(folders.DisplayName(i)) << '\n';
    }
    out << "Settings file\t" << folders.SettingsFile() << '\n';
    out << "Installation\t" << CurrentHost().Kind << '\t' << CurrentHost().Folder << '\n';
    return kExitOk;
}

int CommandPath(const ToolOptions& options, std::ostream& out) {
    if (options.args.size() != 1) throw UsageError{"path takes one path"};
    InitToolFolders(false);
    const std::string& given = options.args[0];
    const SpecialFolders& special = ProcessSpecialFolders();
    // A drive letter or a backslash: the host's form, turned into a file here; else the other
    // way round.
    bool windows = (given.size() >= 2 && given[1] == ':') || given.find('\\') != std::string::npos;
    out << (windows ? special.NativePath(given) : special.HostPath(given)) << '\n';
    return kExitOk;
}

namespace {
// Qt's notes about the desktop session (no runtime folder when offscreen, say) are no
// concern of the tool's user; everything else Qt says still reaches stderr.
QtMessageHandler gQtDefaultHandler = nullptr;
void QuietSessionNotes(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type == QtWarningMsg && text.startsWith("QStandardPaths: ")) return;
    if (gQtDefaultHandler) gQtDefaultHandler(type, context, text);
}
}  // namespace

void EnsureGuiApplication() {
    if (QGuiApplication::instance()) return;
    gQtDefaultHandler = qInstallMessageHandler(QuietSessionNotes);
    // The tool only writes files: it never needs a display, and one that is named but cannot
    // be reached (a stale ssh session, a file manager's sandbox, cron) must not stop it.
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    static int argc = 1;
    static char name[] = "paginox-tool";
    static char* argv[] = {name, nullptr};
    // Lives as long as the process: fonts stay in use until the very end.
    new QGuiApplication(argc, argv);
}

}  // namespace paginox
