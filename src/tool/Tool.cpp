#include "tool/Tool.h"

#include <cerrno>
#include <cstring>
#include <functional>
#include <map>
#include <ostream>
#include <sstream>

#include "tool/ToolCommands.h"

namespace paginox {

namespace {

const char* kUsage =
    "Usage: paginox-tool [--data DIR] COMMAND [ARGS...]\n"
    "\n"
    "Commands:\n"
    "  classes          the object class catalogue as JSON\n"
    "  folders          the data folder table and the settings file path\n"
    "  info PAGE        the summary of a page file\n"
    "  refs PAGE...     the definition files the pages refer to, one per line\n"
    "  xml PAGE [-o OUT]\n"
    "                   translates a page to XML (beside PAGE unless OUT is given)\n"
    "  convert IN OUT   reads a page file of any version and saves it as version 4\n"
    "  dump PAGE [--format K]\n"
    "                   the page as JSON, read with format K alone in full (default all)\n"
    "  render PAGE -o OUT.png|OUT.svg|OUT.pdf [--format K] [--size WxH|N] [--interactive]\n"
    "         [--no-labels] [--no-pictures]\n"
    "                   draws format K (default 1) at WxH (default its own size), or in its\n"
    "                   proportions with the longer side N: a thumbnail on white, or with\n"
    "                   --interactive as the editor's preview; PNG, SVG or PDF by OUT's\n"
    "                   extension (a PDF page at the format's pixels per inch)\n"
    "  formats PAGE     the page's sizes as the editor's size list names them\n"
    "  add-size PAGE (--screen I | --user WxH | --printer WxH [--dpi N]) [--from K]\n"
    "         [-o OUT]\n"
    "                   adds a size made from format K (default 1): screen table entry I\n"
    "                   (0 to 10), a size of your own, or a printer page at N dots per\n"
    "                   inch (default 300); saves in place or to OUT, prints its index\n"
    "  library          the page library's categories and pages as JSON\n"
    "  thumbnails [--size WxH]\n"
    "                   makes every missing or stale thumbnail of the library (160x120)\n"
    "\n"
    "Options:\n"
    "  --data DIR       read every definition file from DIR instead of the data folders\n"
    "  --help           show this help\n"
    "  --version        show the version\n"
    "\n"
    "Exit status: 0 success, 1 failure, 2 usage error.\n";

using Command = std::function<int(const ToolOptions&, std::ostream&)>;

const std::map<std::string, Command>& Commands() {
    static const std::map<std::string, Command> commands = {
        {"classes", CommandClasses}, {"folders", CommandFolders},
        {"info", CommandInfo},       {"refs", CommandRefs},
        {"xml", CommandXml},         {"convert", CommandConvert},
        {"dump", CommandDump},       {"render", CommandRender},
        {"formats", CommandFormats}, {"add-size", CommandAddSize},
        {"library", CommandLibrary}, {"thumbnails", CommandThumbnails},
    };
    return commands;
}

int RunCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    ToolOptions options;
    size_t i = 0;
    for (; i < args.size() && args[i].starts_with("--"); ++i) {
        if (args[i] == "--help") {
            out << kUsage;
            return kExitOk;
        }
        if (args[i] == "--version") {
            out << "paginox-tool " << PAGINOX_VERSION << '\n';
            return kExitOk;
        }
        if (args[i] == "--data" && i + 1 < args.size()) {
            options.dataDir = args[++i];
            continue;
        }
        err << "paginox-tool: unknown option " << args[i] << "\n\n" << kUsage;
        return kExitUsage;
    }
    if (i == args.size()) {
        err << kUsage;
        return kExitUsage;
    }
    auto command = Commands().find(args[i]);
    if (command == Commands().end()) {
        err << "paginox-tool: unknown command " << args[i] << "\n\n" << kUsage;
        return kExitUsage;
    }
    options.args.assign(args.begin() + i + 1, args.end());
    try {
        return command->second(options, out);
    } catch (const UsageError& e) {
        err << "paginox-tool: " << e.message << "\n\n" << kUsage;
        return kExitUsage;
    }
}

}  // namespace

// The output is gathered first and written in one go, so that the check after it sees the
// failure of every write and errno still tells its cause (a full disk, say).
int RunTool(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    std::ostringstream gathered;
    int status = RunCommand(args, gathered, err);
    errno = 0;
    const std::string text = gathered.str();
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    out.flush();
    if (out) return status;
    const int cause = errno;
    err << "paginox-tool: cannot write to standard output";
    if (cause) err << ": " << std::strerror(cause);
    err << '\n';
    return kExitFailure;
}

}  // namespace paginox
