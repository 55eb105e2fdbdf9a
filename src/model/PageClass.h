// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One page layout: its texts, how many charts it shows and what each chart slot is, and its
// formats (one per page size), which hold the placed objects.

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace paginox {

class PageFormat;

class PageClass {
  public:
    static constexpr int16_t kMaxCharts = 12;

    const std::string& Description() const { return description_; }
    const std::string& Title() const { return title_; }
    const std::string& ListAbbreviation() const { return listAbbreviation_; }
    int16_t ReadVersion() const { return readVersion_; }
    int16_t NumCharts() const { return numCharts_; }
    void SetDescription(const std::string& v) { description_ = v; }
    void SetTitle(const std::string& v) { title_ = v; }
    void SetListAbbreviation(const std::string& v) { listAbbreviation_ = v; }
    void SetReadVersion(int16_t v) { readVersion_ = v; }
    void SetNumCharts(int16_t v) { numCharts_ = v; }
    // Chart slot c in 1..12.
    const std::string& ChartPlacementDesc(int16_t c) const;
    void SetChartPlacementDesc(int16_t c, const std::string& v);

    int16_t NumFormats() const { return numFormats_; }
    // Slots of storage; grows to the needed count plus 5 spare and never shrinks.
    int16_t FormatAllocation() const { return static_cast<int16_t>(formats_.size()); }
    // Any slot of storage is accepted; one beyond NumFormats or emptied reads as nullptr.
    std::shared_ptr<PageFormat> GetFormat(int16_t i) const;
    void SetFormat(int16_t i, std::shared_ptr<PageFormat> f);
    // Growing puts new formats into the new slots when create, else leaves them as they are.
    void SetNumFormats(int16_t n, bool create);
    void AddFormat(std::shared_ptr<PageFormat> f);
    // Never deletes the last remaining format; a position outside 1..NumFormats does nothing.
    void DeleteFormat(int16_t i);
    void ClearFormats();
    void InitNewPage();

    // Title and ReadVersion are neither copied nor compared, deliberately. An empty format
    // slot within NumFormats is "Object variable not set" here and below.
    std::shared_ptr<PageClass> Clone() const;
    // A whole copy, Title and ReadVersion included: what the editor keeps to put the page back.
    std::shared_ptr<PageClass> Copy() const;
    bool IsEqual(const PageClass* other) const;
    int16_t MaxNumCharts() const;
    // A plain-text description of the page, lines joined by CR LF, no final line break.
    std::string PageSummary(const std::string& fileName) const;
    // Appends the definition files the objects refer to, each name once; count is raised by
    // one for each name added and list is kept at count entries.
    void PageReferences(int16_t& count, std::vector<std::string>& list) const;

  private:
    std::string description_;
    std::string title_;
    std::string listAbbreviation_;
    int16_t numCharts_ = 0;
    std::array<std::string, kMaxCharts> chartPlacementDesc_;
    int16_t readVersion_ = 0;
    int16_t numFormats_ = 0;
    std::vector<std::shared_ptr<PageFormat>> formats_;  // slot i is formats_[i - 1]
};

}  // namespace paginox
