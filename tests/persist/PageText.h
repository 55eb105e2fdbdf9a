// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Every member of a page, of its formats and of their objects as text (a line for the page, one
// per format and two per object), to compare pages read from files with golden texts. Texts
// are quoted with control and non-ASCII bytes as \xNN; singles as their shortest decimal.

#include <cstdio>
#include <sstream>
#include <string>

#include "core/NumberFormat.h"
#include "model/PageClass.h"
#include "model/PageFormat.h"
#include "model/PageObject.h"

namespace paginox::test {

inline std::string Quoted(const std::string& text) {
    std::string q = "'";
    for (unsigned char c : text) {
        char hex[8];
        std::snprintf(hex, sizeof hex, "\\x%02X", c);
        q += c >= 0x20 && c < 0x7F ? std::string(1, char(c)) : hex;
    }
    return q + "'";
}

inline std::string PageText(const PageClass& p) {
    std::ostringstream s;
    auto n = [](float v) { return ShortestDecimal(v); };
    s << "page version " << p.ReadVersion() << " charts " << p.NumCharts() << " title "
      << Quoted(p.Title()) << " abbreviation " << Quoted(p.ListAbbreviation()) << " description "
      << Quoted(p.Description()) << "\n  slots";
    for (int16_t c = 1; c <= 12; ++c) s << " " << Quoted(p.ChartPlacementDesc(c));
    for (int16_t k = 1; k <= p.NumFormats(); ++k) {
        const PageFormat& f = *p.GetFormat(k);
        s << "\nformat " << k << ": " << f.XPixels() << "x" << f.YPixels() << " logpixels "
          << f.LogPixels() << " printer " << f.ForPrinter() << " yratio " << n(f.YRatio())
          << " notext " << n(f.NoTextYRatio()) << " margins " << n(f.Margin(1, 1)) << " "
          << n(f.Margin(2, 1)) << " " << n(f.Margin(1, 2)) << " " << n(f.Margin(2, 2))
          << " objects " << f.NumObjects();
        for (int16_t i = 1; i <= f.NumObjects(); ++i) {
            const PageObject* o = f.Object(i).get();
            s << "\n  object " << i << ":";
            if (!o) {
                s << " none";
                continue;
            }
            s << " class " << o->ObjectClassID() << " charts " << o->NumCharts() << " origin "
              << n(o->Origin(1)) << " " << n(o->Origin(2)) << " length " << n(o->Length(1)) << " "
              << n(o->Length(2)) << " justify " << o->TextJustify() << " bottomup "
              << o->TextBottomUp() << " lines " << o->TextLines() << " blocks " << o->HorzBlocks()
              << " yratio " << n(o->YRatio()) << " frame " << o->FrameType() << " rulerships "
              << o->Rulerships() << " modulus " << n(o->Modulus()) << " orb " << n(o->Orb())
              << " font " << n(o->FontSize()) << " weighted " << o->Weighted() << " title "
              << o->TitleOn() << " anchor " << o->AnchorBottom() << " zodiac " << o->Zodiac()
              << " force " << o->ForceLineColor() << "\n    columns";
            for (int16_t c = 1; c <= PageObject::kMaxColumns; ++c) {
                if (o->PL_Columns(c) != 0) s << " " << c << ":" << int(o->PL_Columns(c));
            }
            s << " caption " << Quoted(o->UserCaption()) << " wheel " << Quoted(o->WheelFile())
              << " generic " << Quoted(o->GenericFile()) << " aspects " << Quoted(o->AspectsFile())
              << " charts";
            for (int16_t c = 1; c <= PageObject::kMaxCharts; ++c) {
                s << " " << o->ChartNum(c) << ":" << Quoted(o->PointsFile(c));
            }
        }
    }
    return s.str() + "\n";
}

}  // namespace paginox::test
