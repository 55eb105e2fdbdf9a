#pragma once

// The commands of paginox-tool, each given its own arguments after the command name.

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace paginox {

struct ToolOptions {
    std::optional<std::string> dataDir;  // --data DIR: every definition file from DIR
    std::vector<std::string> args;       // the command's own arguments
};

// Raised for a command line that does not make sense; the tool exits with status 2.
struct UsageError {
    std::string message;
};

// Loads the object class catalogue and the definition lists, from --data or the folders.
void LoadToolDefinitions(const ToolOptions& options);

int CommandClasses(const ToolOptions& options, std::ostream& out);
int CommandFolders(const ToolOptions& options, std::ostream& out);

}  // namespace paginox
