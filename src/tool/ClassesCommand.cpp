#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <ostream>

#include "core/AnsiText.h"
#include "model/PageObjectClasses.h"
#include "tool/JsonValues.h"
#include "tool/Tool.h"
#include "tool/ToolCommands.h"

namespace paginox {

namespace {
QJsonObject ClassJson(const PageObjectClass& c) {
    QJsonObject o;
    o["ClassID"] = c.ClassID();
    o["ObjectType"] = c.ObjectType();
    o["Abbreviation"] = JsonText(c.Abbreviation());
    o["FullName"] = JsonText(c.FullName());
    o["Description"] = JsonText(c.Description());
    o["Group"] = JsonText(c.Group());
    o["Order"] = c.Order();
    o["Shape"] = c.Shape();
    o["DefaultFixedLines"] = c.DefaultFixedLines();
    o["DefaultTextLines"] = c.DefaultTextLines();
    o["DefaultHorizontalBlocks"] = c.DefaultHorizontalBlocks();
    o["DefaultYRatio"] = JsonSingle(c.DefaultYRatio());
    o["NumCharts"] = c.NumCharts();
    o["DefaultFrameType"] = c.DefaultFrameType();
    o["OCUFlags"] = c.OCUFlags();
    return o;
}
}  // namespace

int CommandClasses(const ToolOptions& options, std::ostream& out) {
    if (!options.args.empty()) throw UsageError{"classes takes no arguments"};
    LoadToolDefinitions(options);
    QJsonArray all;
    const PageObjectClasses& classes = ObjectClasses();
    for (int16_t i = 1; i <= classes.Count(); ++i) {
        if (auto c = classes.Class(i)) all.append(ClassJson(*c));
    }
    out << QJsonDocument(all).toJson(QJsonDocument::Indented).toStdString();
    return kExitOk;
}

}  // namespace paginox
