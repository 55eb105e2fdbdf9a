// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The commands of paginox-tool, each given its own arguments after the command name.

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace paginox {

class PageClass;
class RuntimeError;

struct ToolOptions {
    std::optional<std::string> dataDir;  // --data DIR: every definition file from DIR
    std::vector<std::string> args;       // the command's own arguments
};

// Raised for a command line that does not make sense; the tool exits with status 2.
struct UsageError {
    std::string message;
};

// Fills the folder table once, as the editor's start-up does.
bool InitToolFolders(bool seed = true);
// Fonts need a GUI application; without a display it runs on the offscreen platform.
void EnsureGuiApplication();
// A whole-number argument of option what; anything else is a usage error.
int WholeNumber(std::string_view text, const std::string& what);
// An image size "WxH" given to option what, each side from 1 to maxSide; else a usage error.
std::pair<int, int> ImageSizeArgument(std::string_view text, const std::string& what, int maxSide);

// The value of option name, taken out of args wherever it stands; nothing when absent, and a
// usage error when it has no value.
std::optional<std::string> TakeOption(std::vector<std::string>& args, const std::string& name);
// "-" as an output: standard output.
inline bool IsStandardOutput(const std::string& path) {
    return path == "-";
}

// Loads the object class catalogue and the definition lists, from --data or the folders.
void LoadToolDefinitions(const ToolOptions& options);

// Reads a page for a command, reporting every failure (a missing file too); null on failure.
std::shared_ptr<PageClass> ReadToolPage(const std::string& path, int16_t formatIndex);
// Reports a run-time error met while working on a page read from path; the failure status.
int ReportPageError(const std::string& path, const RuntimeError& e);

int CommandClasses(const ToolOptions& options, std::ostream& out);
int CommandPath(const ToolOptions& options, std::ostream& out);
int CommandFolders(const ToolOptions& options, std::ostream& out);
int CommandInfo(const ToolOptions& options, std::ostream& out);
int CommandRefs(const ToolOptions& options, std::ostream& out);
int CommandXml(const ToolOptions& options, std::ostream& out);
int CommandConvert(const ToolOptions& options, std::ostream& out);
int CommandDump(const ToolOptions& options, std::ostream& out);
int CommandRender(const ToolOptions& options, std::ostream& out);
int CommandLibrary(const ToolOptions& options, std::ostream& out);
int CommandThumbnails(const ToolOptions& options, std::ostream& out);
int CommandFormats(const ToolOptions& options, std::ostream& out);
int CommandAddSize(const ToolOptions& options, std::ostream& out);

}  // namespace paginox
