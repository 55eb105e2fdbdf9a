// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/PageClass.h"

#include <algorithm>
#include <utility>

#include "core/AnsiText.h"
#include "core/Checked.h"
#include "core/MessageService.h"
#include "core/NumberFormat.h"
#include "core/RuntimeError.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"
#include "model/PageObjectClass.h"

namespace paginox {

namespace {
template <typename T>
const T& Present(const std::shared_ptr<T>& p) {
    if (!p) Raise(kObjectNotSet);
    return *p;
}

void AddReference(int16_t& count, std::vector<std::string>& list, const std::string& name) {
    CheckIndex(count, 0, 32767);
    auto end = list.begin() + std::min<size_t>(size_t(count), list.size());
    if (std::find(list.begin(), end, name) != end) return;
    count = CheckedAdd<int16_t>(count, 1);
    list.resize(size_t(count));
    list[size_t(count) - 1] = name;
}

std::string WheelReference(const PageObject& obj) {
    return obj.WheelFile() + ".wh" + FormatZero(obj.NumCharts());
}

// Extension of the object's generic file by its class's bits; a later bit wins.
std::string GenericReference(const PageObject& obj) {
    static const std::pair<int32_t, const char*> kKinds[] = {
        {kOCUDignityFile, ".alm"},  {kOCUStarFile, ".fst"},        {kOCUArabicPartFile, ".arp"},
        {kOCUAsteroidFile, ".ast"}, {kOCUBodyElementFile, ".dat"}, {kOCUExtraRingFile, ".pte"},
    };
    const PageObjectClass& cls = obj.POClass();
    std::string extension;
    for (const auto& [bit, ext] : kKinds) {
        if (cls.OCUFlag(bit)) extension = ext;
    }
    return obj.GenericFile() + extension;
}

bool Blank(const std::string& s) {
    return Trim(s).empty();
}
}  // namespace

const std::string& PageClass::ChartPlacementDesc(int16_t c) const {
    CheckIndex(c, 1, kMaxCharts);
    return chartPlacementDesc_[c - 1];
}

void PageClass::SetChartPlacementDesc(int16_t c, const std::string& v) {
    CheckIndex(c, 1, kMaxCharts);
    chartPlacementDesc_[c - 1] = v;
}

std::shared_ptr<PageFormat> PageClass::GetFormat(int16_t i) const {
    CheckIndex(i, 1, FormatAllocation());
    return formats_[i - 1];
}

void PageClass::SetFormat(int16_t i, std::shared_ptr<PageFormat> f) {
    CheckIndex(i, 1, FormatAllocation());
    formats_[i - 1] = std::move(f);
}

void PageClass::SetNumFormats(int16_t n, bool create) {
    if (n == numFormats_) return;
    if (n > numFormats_) {
        if (n > FormatAllocation()) formats_.resize(size_t(CheckedAdd<int16_t>(n, 5)));
        if (create) {
            for (int i = numFormats_ + 1; i <= n; ++i)
                formats_[i - 1] = std::make_shared<PageFormat>();
        }
        numFormats_ = n;
        return;
    }
    CheckIndex(n, 0, numFormats_);
    for (int i = n + 1; i <= numFormats_; ++i) formats_[i - 1] = nullptr;
    numFormats_ = n;
}

void PageClass::AddFormat(std::shared_ptr<PageFormat> f) {
    SetNumFormats(CheckedAdd<int16_t>(numFormats_, 1), true);
    formats_[numFormats_ - 1] = std::move(f);
}

void PageClass::DeleteFormat(int16_t i) {
    if (i < 1 || i > numFormats_ || numFormats_ == 1) return;
    std::move(formats_.begin() + i, formats_.begin() + numFormats_, formats_.begin() + (i - 1));
    formats_[numFormats_ - 1] = nullptr;
    --numFormats_;
}

void PageClass::ClearFormats() {
    for (int i = 1; i <= numFormats_; ++i) formats_[i - 1] = nullptr;
    numFormats_ = 0;
}

void PageClass::InitNewPage() {
    description_ = "New Page";
    listAbbreviation_ = "New";
    numCharts_ = 1;
    for (int16_t c = 1; c <= kMaxCharts; ++c) chartPlacementDesc_[c - 1] = "Chart " + FormatZero(c);
    ClearFormats();
    SetNumFormats(1, true);
    formats_[0]->InitNewFormat();
}

std::shared_ptr<PageClass> PageClass::Clone() const {
    auto copy = std::make_shared<PageClass>();
    copy->description_ = description_;
    copy->listAbbreviation_ = listAbbreviation_;
    copy->numCharts_ = numCharts_;
    copy->chartPlacementDesc_ = chartPlacementDesc_;
    copy->SetNumFormats(numFormats_, true);
    for (int i = 1; i <= numFormats_; ++i) copy->formats_[i - 1] = Present(formats_[i - 1]).Clone();
    return copy;
}

std::shared_ptr<PageClass> PageClass::Copy() const {
    std::shared_ptr<PageClass> copy = Clone();
    copy->title_ = title_;
    copy->readVersion_ = readVersion_;
    return copy;
}

bool PageClass::IsEqual(const PageClass* other) const {
    if (!other) return false;
    if (listAbbreviation_ != other->listAbbreviation_ || description_ != other->description_ ||
        numFormats_ != other->numFormats_ || numCharts_ != other->numCharts_ ||
        chartPlacementDesc_ != other->chartPlacementDesc_) {
        return false;
    }
    for (int i = 1; i <= numFormats_; ++i) {
        if (!Present(other->formats_[i - 1]).IsEqual(Present(formats_[i - 1]))) return false;
    }
    return true;
}

int16_t PageClass::MaxNumCharts() const {
    int16_t highest = 0;
    for (int i = 1; i <= numFormats_; ++i) {
        highest = std::max(highest, Present(formats_[i - 1]).MaxNumCharts());
    }
    return highest;
}

std::string PageClass::PageSummary(const std::string& fileName) const {
    std::string text = "File   : " + fileName + kCrLf;
    text += "Vers   : " + FormatZero(readVersion_) + kCrLf;
    text += "Abbr   : " + listAbbreviation_ + " - Desc : " + description_ + kCrLf;
    text += "Charts : " + FormatZero(numCharts_) + " - ";
    for (int16_t c = 1; c <= numCharts_; ++c) {
        text += (c == 1 ? " " : ", ") + ChartPlacementDesc(c);
    }
    text += kCrLf;

    // Collected in a different order and with other blank tests than PageReferences, and
    // from the first four points slots only: the summary has always listed them this way.
    int16_t count = 0;
    std::vector<std::string> files;
    for (int i = 1; i <= numFormats_; ++i) {
        const PageFormat& format = Present(formats_[i - 1]);
        text += "  Pixels : " + FormatZero(format.XPixels()) + "x" + FormatZero(format.YPixels()) +
                "  LogPixs=" + FormatZero(format.LogPixels()) +
                "  Printer=" + (format.ForPrinter() ? "True" : "False") + kCrLf;
        text += "    Objects : " + FormatZero(format.NumObjects()) + " - ";
        for (int16_t k = 1; k <= format.NumObjects(); ++k) {
            const PageObject& obj = Present(format.Object(k));
            // The page's own abbreviation for every object: the line counts objects.
            text += (k == 1 ? "  " : ", ") + listAbbreviation_;
            if (!obj.WheelFile().empty()) AddReference(count, files, WheelReference(obj));
            if (!obj.GenericFile().empty()) AddReference(count, files, GenericReference(obj));
            for (int16_t c = 1; c <= 4; ++c) {
                if (!Blank(obj.PointsFile(c)))
                    AddReference(count, files, obj.PointsFile(c) + ".pts");
            }
            if (!Blank(obj.AspectsFile())) AddReference(count, files, obj.AspectsFile() + ".asp");
        }
        text += kCrLf;
    }
    for (const std::string& file : files) text += std::string(kCrLf) + "File: " + file;
    return text;
}

void PageClass::PageReferences(int16_t& count, std::vector<std::string>& list) const {
    for (int i = 1; i <= numFormats_; ++i) {
        const PageFormat& format = Present(formats_[i - 1]);
        for (int16_t k = 1; k <= format.NumObjects(); ++k) {
            const PageObject& obj = Present(format.Object(k));
            if (!obj.WheelFile().empty()) AddReference(count, list, WheelReference(obj));
            if (!Blank(obj.AspectsFile())) AddReference(count, list, obj.AspectsFile() + ".asp");
            if (!obj.GenericFile().empty()) AddReference(count, list, GenericReference(obj));
            for (int16_t c = 1; c <= PageObject::kMaxCharts; ++c) {
                if (!obj.PointsFile(c).empty())
                    AddReference(count, list, obj.PointsFile(c) + ".pts");
            }
        }
    }
}

}  // namespace paginox
