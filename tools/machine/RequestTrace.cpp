#include "tools/machine/RequestTrace.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <chrono>
#include <nlohmann/json.hpp>

#include "tools/config/PrivateFile.h"

namespace tool {

namespace {

using NQELVSK20::ClientFailure;
using NQELVSK20::ClientRequest;
using OrderedJson = nlohmann::ordered_json;

std::string timeNow() {
    using std::chrono::system_clock;
    const auto now = system_clock::now();
    const auto ms =
        std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
    return fmt::format("{:%Y-%m-%dT%H:%M:%S}.{:03}Z", fmt::gmtime(system_clock::to_time_t(now)), ms);
}

}  // namespace

/// One line of the trace.
class RequestTrace::Line {
public:
    explicit Line(const char* event) : json_{{"time", timeNow()}, {"event", event}} {}

    Line(const char* event, const ClientRequest& request) : Line(event) {
        add("node", request.node + 1);
        add("operation", request.operation);
        add("subject", request.subject);
    }

    template <typename VALUE>
    void add(const char* key, const VALUE& value) {
        json_[key] = value;
    }

    // What came from a server need not be UTF-8.
    std::string text() const { return json_.dump(-1, ' ', true, OrderedJson::error_handler_t::replace); }

private:
    OrderedJson json_;
};

RequestTrace::RequestTrace(const std::string& path, Notices& notices) : path_(path), notices_(notices) {
    makePrivateFile(path);
    file_.open(path, std::ios::binary | std::ios::app);
}

void RequestTrace::write(const Line& line) {
    file_ << line.text() << '\n' << std::flush;  // what was asked stays known however the program ends
    if (!file_) {
        notices_.say("'" + path_ + "' cannot be written any more: the trace is not complete");
    }
}

void RequestTrace::begun(const ClientRequest& request, Clock::time_point when) {
    open_.push_back(when);
    write(Line("begin", request));
}

void RequestTrace::failed(const ClientFailure& failure) {
    Line line("failure", failure);
    line.add("text", failure.text);
    write(line);
}

// Told when the request is over, and before another begins: the line is about the one above.
void RequestTrace::received(std::size_t instances) {
    Line line("received");
    line.add("instances", instances);
    write(line);
}

void RequestTrace::defined(const std::string& className) {
    Line line("received");
    line.add("definition", className);
    write(line);
}

void RequestTrace::ended(const ClientRequest& request, bool answered, Clock::time_point when) {
    if (open_.empty()) {
        return;
    }
    const Clock::time_point since = open_.back();
    open_.pop_back();
    Line line("end", request);
    line.add("answered", answered);
    line.add("seconds", std::chrono::duration<double>(when - since).count());
    write(line);
}

}  // namespace tool
