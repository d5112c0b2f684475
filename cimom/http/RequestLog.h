#pragma once

#include <cstddef>
#include <functional>
#include <mutex>
#include <vector>

#include "cimom/http/SeenRequest.h"

namespace cimom {

/// What the server saw. May be used from several threads.
class RequestLog {
public:
    /// Says whether requests are kept from now on.
    void keep(bool on);
    void setObserver(std::function<void(const SeenRequest&)> observer);

    void add(SeenRequest request);
    std::vector<SeenRequest> all() const;
    void clear();

    void countConnection();
    std::size_t connections() const;

private:
    mutable std::mutex mutex_;
    std::vector<SeenRequest> requests_;
    std::function<void(const SeenRequest&)> observer_;
    std::size_t connections_ = 0;
    bool keep_ = true;
};

}  // namespace cimom
