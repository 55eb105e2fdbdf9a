// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/TextRunCache.h"

#include <QFontMetricsF>
#include <unordered_map>

#include "core/AnsiText.h"

namespace paginox {

namespace {

// More runs than a page could show at once at a few sizes; past it the cache starts afresh.
constexpr size_t kMaxRuns = 1024;

struct Key {
    int PixelSize;
    QString Family;
    double PixelRatio;
    std::string Text;
    bool operator==(const Key&) const = default;
};

struct KeyHash {
    size_t operator()(const Key& k) const {
        return std::hash<std::string>()(k.Text) * 31 + size_t(k.PixelSize) * 7 +
               std::hash<double>()(k.PixelRatio);
    }
};

}  // namespace

const TextRunCache::Run& TextRunCache::Get(const QFont& font, double pixelRatio,
                                           const std::string& ansi) {
    // One cache per thread: a laid-out run holds font engines of the thread that made it, and
    // thumbnails are drawn on a worker while the window draws the preview.
    thread_local std::unordered_map<Key, Run, KeyHash> runs;
    // Surfaces vary their font by size only; the family completes the key all the same.
    Key key{font.pixelSize(), font.family(), pixelRatio, ansi};
    auto found = runs.find(key);
    if (found != runs.end()) return found->second;
    if (runs.size() >= kMaxRuns) runs.clear();

    QString text = QString::fromStdString(Cp1252ToUtf8(ansi));
    Run run;
    run.Text.setText(text);
    run.Text.setTextFormat(Qt::PlainText);
    run.Text.prepare(QTransform(), font);
    run.Width = QFontMetricsF(font).horizontalAdvance(text);
    return runs.emplace(std::move(key), std::move(run)).first->second;
}

}  // namespace paginox
