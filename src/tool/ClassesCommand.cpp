// SPDX-License-Identifier: GPL-3.0-or-later
#include <ostream>

#include "model/PageObjectClasses.h"
#include "persist/JsonWriter.h"
#include "tool/Tool.h"
#include "tool/ToolCommands.h"

namespace paginox {

namespace {
void WriteClass(JsonWriter& w, const PageObjectClass& c) {
    w.BeginObject();
    w.Key("ClassID").Int(c.ClassID());
    w.Key("ObjectType").Int(c.ObjectType());
    w.Key("Abbreviation").Ansi(c.Abbreviation());
    w.Key("FullName").Ansi(c.FullName());
    w.Key("Description").Ansi(c.Description());
    w.Key("Group").Ansi(c.Group());
    w.Key("Order").Int(c.Order());
    w.Key("Shape").Int(c.Shape());
    w.Key("DefaultFixedLines").Int(c.DefaultFixedLines());
    w.Key("DefaultTextLines").Int(c.DefaultTextLines());
    w.Key("DefaultHorizontalBlocks").Int(c.DefaultHorizontalBlocks());
    w.Key("DefaultYRatio").Single(c.DefaultYRatio());
    w.Key("NumCharts").Int(c.NumCharts());
    w.Key("DefaultFrameType").Int(c.DefaultFrameType());
    w.Key("OCUFlags").Int(c.OCUFlags());
    w.EndObject();
}
}  // namespace

int CommandClasses(const ToolOptions& options, std::ostream& out) {
    if (!options.args.empty()) throw UsageError{"classes takes no arguments"};
    LoadToolDefinitions(options);
    JsonWriter w;
    w.BeginArray();
    const PageObjectClasses& classes = ObjectClasses();
    for (int16_t i = 1; i <= classes.Count(); ++i) {
        if (auto c = classes.Class(i)) WriteClass(w, *c);
    }
    w.EndArray();
    out << w.Text();
    return kExitOk;
}

}  // namespace paginox
