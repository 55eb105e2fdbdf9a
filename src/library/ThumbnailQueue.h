// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Makes the page browser's thumbnails off the user-interface thread: one worker takes the
// pages asked for, the ones on screen first, reuses a fresh bitmap of the cache or draws a
// new one into an image (safe away from the window's thread), and hands each back as it is
// ready. The window never waits for a page to be drawn.

#include <QImage>
#include <QObject>
#include <QString>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <thread>
#include <unordered_set>

#include "library/ImageCache.h"

namespace paginox {

class ThumbnailQueue : public QObject {
    Q_OBJECT

  public:
    ThumbnailQueue(int32_t width, int32_t height, QObject* parent = nullptr);
    ~ThumbnailQueue() override;

    // Asks for the thumbnail of each page path (native), after those already asked for.
    void Request(const std::vector<std::string>& paths);
    // These pages first (those on screen), in this order.
    void Prioritize(const std::vector<std::string>& paths);
    // Forgets what is still waiting (a category left, a page renamed).
    void Cancel();
    int Waiting() const;

  signals:
    // A page's thumbnail; a null image when the page cannot be read or drawn.
    void ready(const QString& path, const QImage& image);

  private:
    void Work();
    QImage Thumbnail(const std::string& path);

    const int32_t width_;
    const int32_t height_;
    ImageCache cache_;
    mutable std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<std::string> waiting_;
    std::unordered_set<std::string> queued_;  // the same paths, to find them at once
    bool stopping_ = false;
    std::thread worker_;
};

}  // namespace paginox
