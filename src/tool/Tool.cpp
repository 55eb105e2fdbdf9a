// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/Tool.h"

#include <cerrno>
#include <cstring>
#include <functional>
#include <map>
#include <optional>
#include <ostream>
#include <sstream>

#include "persist/HostInstallation.h"
#include "tool/ToolCommands.h"

namespace paginox {

namespace {

const char* kUsage =
    "Usage: paginox-tool [--data DIR] [--host DIR] COMMAND [ARGS...]\n"
    "\n"
    "Commands:\n"
    "  classes          the object class catalogue as JSON\n"
    "  folders          the data folder table, the settings file path and the installation\n"
    "  path P           P as the other side names it: a Windows path as a file here, a\n"
    "                   file here as the host (under Wine) would name it\n"
    "  info PAGE        the summary of a page file\n"
    "  refs PAGE...     the definition files the pages refer to, one per line\n"
    "  xml PAGE [-o OUT]\n"
    "                   translates a page to XML (beside PAGE unless OUT is given)\n"
    "  convert IN OUT   reads a page file of any version and saves it as version 4\n"
    "  dump PAGE [--format K]\n"
    "                   the page as JSON, read with format K alone in full (default all)\n"
    "  render PAGE -o OUT.png|OUT.svg|OUT.pdf [--type png|svg|pdf] [--format K]\n"
    "         [--size WxH|N] [--interactive] [--no-labels] [--no-pictures]\n"
    "                   draws format K (default 1) at WxH (default its own size), or in its\n"
    "                   proportions with the longer side N: a thumbnail on white, or with\n"
    "                   --interactive as the editor's preview; PNG, SVG or PDF by OUT's\n"
    "                   extension or --type (a PDF page at the format's pixels per inch)\n"
    "  formats PAGE     the page's sizes as the editor's size list names them\n"
    "  add-size PAGE (--screen I | --user WxH | --printer WxH [--dpi N]) [--from K]\n"
    "         [-o OUT]\n"
    "                   adds a size made from format K (default 1): screen table entry I\n"
    "                   (0 to 10), a size of your own, or a printer page at N dots per\n"
    "                   inch (default 300); saves in place or to OUT, prints its index\n"
    "  library          the page library's categories and pages as JSON\n"
    "  thumbnails [--size WxH] [--clear]\n"
    "                   makes every missing or stale thumbnail of the library (160x120) and\n"
    "                   removes those of pages gone; --clear empties the cache\n"
    "\n"
    "Options:\n"
    "  --data DIR       read every definition file from DIR instead of the data folders\n"
    "  --host DIR       use the Veltrane installation in DIR: a Wine prefix, or a folder\n"
    "                   holding Veltrane9.ini\n"
    "  -h, --help       show this help\n"
    "  --version        show the version\n"
    "\n"
    "Options may stand before or after the command, as --name VALUE or --name=VALUE; after\n"
    "-- every word is a file name. OUT given as - is standard output.\n"
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
        {"path", CommandPath},
    };
    return commands;
}

// A usage error in one line, and where to learn more.
int UsageFailure(std::ostream& err, const std::string& message) {
    err << "paginox-tool: " << message << "\nTry 'paginox-tool --help' for more information.\n";
    return kExitUsage;
}

// The words as the commands read them: "--name=value" split in two, and after "--" every word
// taken as a name even when it starts with "-" (given as "./-name", the same file).
std::vector<std::string> Normalised(const std::vector<std::string>& args) {
    std::vector<std::string> words;
    bool options = true;
    for (const std::string& a : args) {
        if (options && a == "--") {
            options = false;
        } else if (options && a.starts_with("--") && a.find('=') != std::string::npos) {
            words.push_back(a.substr(0, a.find('=')));
            words.push_back(a.substr(a.find('=') + 1));
        } else if (!options && a.size() > 1 && a.front() == '-') {
            words.push_back("./" + a);
        } else {
            words.push_back(a);
        }
    }
    return words;
}

int RunCommand(const std::vector<std::string>& given, std::ostream& out, std::ostream& err) {
    const std::vector<std::string> args = Normalised(given);
    // The tool's own options, before or after the command.
    ToolOptions options;
    std::optional<std::string> name;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a == "--help" || a == "-h") {
            out << kUsage;
            return kExitOk;
        }
        if (a == "--version") {
            out << "paginox-tool " << PAGINOX_VERSION << '\n';
            return kExitOk;
        }
        if (a == "--data") {
            if (i + 1 == args.size()) return UsageFailure(err, "--data needs a folder");
            options.dataDir = args[++i];
        } else if (a == "--host") {
            if (i + 1 == args.size()) return UsageFailure(err, "--host needs a folder");
            SetChosenHost(args[++i]);
        } else if (!name) {
            if (a.starts_with("-")) return UsageFailure(err, "unknown option " + a);
            name = a;
        } else {
            options.args.push_back(a);
        }
    }
    if (!name) return UsageFailure(err, "no command given");
    auto command = Commands().find(*name);
    if (command == Commands().end()) return UsageFailure(err, "unknown command " + *name);
    try {
        return command->second(options, out);
    } catch (const UsageError& e) {
        return UsageFailure(err, e.message);
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
