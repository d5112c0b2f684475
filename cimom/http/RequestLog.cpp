#include "cimom/http/RequestLog.h"

#include <utility>

namespace cimom {

void RequestLog::keep(bool on) {
    const std::lock_guard<std::mutex> lock(mutex_);
    keep_ = on;
}

void RequestLog::setObserver(std::function<void(const SeenRequest&)> observer) {
    const std::lock_guard<std::mutex> lock(mutex_);
    observer_ = std::move(observer);
}

void RequestLog::add(SeenRequest request) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (observer_) {
        observer_(request);
    }
    if (keep_) {
        requests_.push_back(std::move(request));
    }
}

std::vector<SeenRequest> RequestLog::all() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return requests_;
}

void RequestLog::clear() {
    const std::lock_guard<std::mutex> lock(mutex_);
    requests_.clear();
}

void RequestLog::countConnection() {
    const std::lock_guard<std::mutex> lock(mutex_);
    ++connections_;
}

std::size_t RequestLog::connections() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return connections_;
}

}  // namespace cimom
