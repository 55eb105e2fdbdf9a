// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/ThumbnailQueue.h"

#include <algorithm>

namespace paginox {

ThumbnailQueue::ThumbnailQueue(int32_t width, int32_t height, QObject* parent)
    : QObject(parent), width_(width), height_(height) {
    cache_.PrepareForCaching();
    worker_ = std::thread([this] { Work(); });
}

ThumbnailQueue::~ThumbnailQueue() {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        stopping_ = true;
        waiting_.clear();
    }
    wake_.notify_all();
    worker_.join();
}

void ThumbnailQueue::Request(const std::vector<std::string>& paths) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        for (const std::string& p : paths) {
            if (queued_.insert(p).second) waiting_.push_back(p);
        }
    }
    wake_.notify_all();
}

void ThumbnailQueue::Prioritize(const std::vector<std::string>& paths) {
    std::lock_guard<std::mutex> lock(mutex_);
    // Those asked for first go to the front, in their order; the rest keep theirs.
    std::deque<std::string> first;
    std::unordered_set<std::string> moved;
    for (const std::string& p : paths) {
        if (queued_.count(p) && moved.insert(p).second) first.push_back(p);
    }
    if (first.empty()) return;
    for (std::string& p : waiting_) {
        if (!moved.count(p)) first.push_back(std::move(p));
    }
    waiting_ = std::move(first);
}

void ThumbnailQueue::Cancel() {
    std::lock_guard<std::mutex> lock(mutex_);
    waiting_.clear();
    queued_.clear();
}

int ThumbnailQueue::Waiting() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return static_cast<int>(waiting_.size());
}

QImage ThumbnailQueue::Thumbnail(const std::string& path) {
    const QString name = QString::fromStdString(cache_.GetCacheName(path, width_, height_));
    if (cache_.Contains(path, width_, height_)) {
        QImage cached(name);
        if (!cached.isNull()) return cached;
        // A cache file that does not read as a picture is made again.
    }
    if (!cache_.CreateCache(path, width_, height_)) return QImage();
    return QImage(name);
}

void ThumbnailQueue::Work() {
    for (;;) {
        std::string path;
        {
            std::unique_lock<std::mutex> lock(mutex_);
            wake_.wait(lock, [this] { return stopping_ || !waiting_.empty(); });
            if (stopping_) return;
            path = waiting_.front();
            waiting_.pop_front();
            queued_.erase(path);
        }
        QImage image = Thumbnail(path);
        // Handed over on the window's thread, where the signal's receivers live.
        QMetaObject::invokeMethod(
            this, [this, path, image] { emit ready(QString::fromStdString(path), image); },
            Qt::QueuedConnection);
    }
}

}  // namespace paginox
