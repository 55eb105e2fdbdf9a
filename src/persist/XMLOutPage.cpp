// SPDX-License-Identifier: GPL-3.0-or-later
#include "persist/XMLOutPage.h"

#include "core/AnsiText.h"
#include "core/MessageService.h"
#include "core/NumberFormat.h"
#include "core/RuntimeError.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"
#include "model/PageObjectClasses.h"

namespace paginox {

namespace {
template <typename T>
const T& Present(const std::shared_ptr<T>& p) {
    if (!p) Raise(kObjectNotSet);
    return *p;
}

// An object whose class the catalogue does not hold is still exported, without a name.
std::string ClassName(const PageObject& obj) {
    return IsKnownClass(obj.ObjectClassID()) ? obj.POClass().FullName() : std::string();
}
}  // namespace

bool XMLOutPage::WriteToXML(const std::string& fileName, const PageClass& page) {
    const std::string failed = "Could not write to file " + Utf8ToCp1252(fileName);
    if (!xml_.OpenXML(fileName)) {
        ShowMessage(failed, "File Write Error");
        return false;
    }
    bool balanced = false;
    try {
        xml_.OpenNode("VeltranePageDesign");
        xml_.WriteString("NumFormats", FormatZero(page.NumFormats()), false);
        for (int16_t k = 1; k <= page.NumFormats(); ++k) {
            xml_.OpenNode("PageFormat");
            WriteFormat(Present(page.GetFormat(k)));
            xml_.CloseNode();
        }
        xml_.CloseNode();
        balanced = xml_.CloseXML();
    } catch (const RuntimeError&) {
        // A full disk, say: the file as it was before stays.
        xml_.AbandonXML();
        ShowMessage(failed, "File Write Error");
        return false;
    }
    if (!balanced) {
        ShowMessage("XML not completed correctly", "Diagnostic");
        return false;
    }
    return true;
}

void XMLOutPage::WriteFormat(const PageFormat& format) {
    xml_.WriteString("Dimensions",
                     FormatZero(format.XPixels()) + "," + FormatZero(format.YPixels()));
    xml_.WriteNumber("LogPixels", format.LogPixels(), "0");
    xml_.WriteBoolean("ForPrinter", format.ForPrinter());
    xml_.WriteNumber("NumObjects", format.NumObjects(), "0");
    for (int16_t i = 1; i <= format.NumObjects(); ++i) {
        xml_.OpenNode("Object");
        WriteObject(Present(format.Object(i)));
        xml_.CloseNode();
    }
}

void XMLOutPage::WriteObject(const PageObject& obj) {
    xml_.WriteNumber("ObjectClass", obj.ObjectClassID(), "0");
    xml_.WriteString("ObjectName", ClassName(obj));
    xml_.WriteNumber("NumCharts", obj.NumCharts(), "0");
    xml_.WriteSingle("Origin1", obj.Origin(1), "#.##");
    xml_.WriteSingle("Origin2", obj.Origin(2), "#.##");
    xml_.WriteSingle("Length1", obj.Length(1), "#.##");
    xml_.WriteSingle("Length2", obj.Length(2), "#.##");
    xml_.WriteNumber("TextJustify", obj.TextJustify(), "0");
    xml_.WriteNumber("TextBottomUp", obj.TextBottomUp(), "0");
    xml_.WriteNumber("TextLines", obj.TextLines(), "0");
    xml_.WriteNumber("HorizontalBlocks", obj.HorzBlocks(), "0");
    xml_.WriteSingle("YRatio", obj.YRatio(), "#.##");
    xml_.WriteNumber("FrameType", obj.FrameType(), "0");
    xml_.WriteNumber("Rulerships", obj.Rulerships(), "0");
    xml_.WriteSingle("Modulus", obj.Modulus(), "#.##");
    xml_.WriteSingle("Orb", obj.Orb(), "#.##");
    xml_.WriteSingle("FontSize", obj.FontSize(), "#.##");
    xml_.WriteBoolean("Weighted", obj.Weighted());
    xml_.WriteBoolean("TitleOn", obj.TitleOn());
    xml_.WriteString("UserCaption", obj.UserCaption());
    xml_.WriteNumber("Zodiac", obj.Zodiac(), "0");
    xml_.WriteNumber("ForceLineColor", obj.ForceLineColor(), "0");
    xml_.WriteString("WheelFile", obj.WheelFile());
    xml_.WriteString("GenericFile", obj.GenericFile());
    xml_.WriteString("AspectsFile", obj.AspectsFile());
    xml_.WriteBoolean("AnchorBottom", obj.AnchorBottom());

    xml_.OpenNode("Columns");
    for (int16_t i = 1; i <= PageObject::kMaxColumns; ++i) {
        // Zero columns are skipped, so the numbering has gaps.
        if (obj.PL_Columns(i) != 0) {
            xml_.WriteString("Col" + FormatZero(i), FormatZero(obj.PL_Columns(i)));
        }
    }
    xml_.CloseNode();

    xml_.OpenNode("Charts");
    for (int16_t i = 1; i <= obj.NumCharts(); ++i) {
        xml_.OpenNode("Chart" + FormatZero(i));
        xml_.WriteNumber("ChartNum", obj.ChartNum(i), "0");
        xml_.WriteString("PointsFile", obj.PointsFile(i));
        xml_.CloseNode();
    }
    xml_.CloseNode();
}

std::string XmlNameFor(const std::string& pageFileName) {
    if (pageFileName.ends_with(".pag")) {
        return pageFileName.substr(0, pageFileName.size() - 4) + ".xml";
    }
    return pageFileName + ".xml";
}

std::optional<std::string> TranslateToXML(const std::string& currentFile, const PageClass* page) {
    if (!page || currentFile.empty()) {
        ShowMessage("No current file loaded", "Cannot translate");
        return std::nullopt;
    }
    std::string name = XmlNameFor(currentFile);
    if (!XMLOutPage().WriteToXML(name, *page)) return std::nullopt;
    return name;
}

}  // namespace paginox
