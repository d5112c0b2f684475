// watch SECONDS COMMAND...: the same question again and again, and what changed since the last answer.

#include <fmt/format.h>

#include <chrono>
#include <ctime>
#include <iomanip>
#include <sstream>
#include <thread>

#include "tools/commands/Commands.h"
#include "tools/common/Failure.h"
#include "tools/common/SafeText.h"
#include "tools/console/Terminal.h"
#include "tools/watch/RowCollector.h"
#include "tools/watch/WatchedRows.h"

namespace tool {

namespace {

constexpr const char* kClearScreen = "\033[H\033[2J";

std::string timeNow() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::ostringstream text;
    text << std::put_time(std::localtime(&now), "%Y-%m-%d %H:%M:%S");
    return text.str();
}

std::vector<std::string> headingOf(const Options& options) {
    if (options.question == Question::kHealth) {
        return {"Node", "Element", "State", "Now"};
    }
    std::vector<std::string> heading = options.columns;
    if (!heading.empty()) {
        heading.insert(heading.begin(), "Node");
    }
    return heading;
}

/// Asks once a round, keeps the connections and classes, and shows what came of it.
class Watch {
public:
    explicit Watch(const CommandContext& context)
        : context_(context),
          collector_(*context.schemas, context.options.columns),
          rows_(headingOf(context.options)) {}

    bool run() {
        const auto pause = std::chrono::duration<double>(context_.options.watchSeconds.value_or(0));
        const std::size_t rounds = context_.options.rounds.value_or(0);
        terminal::endOnInterrupt();
        bool isAnswered = askAndShow();
        while (rounds == 0 || round_ < rounds) {
            std::this_thread::sleep_for(pause);
            isAnswered = askAndShow();
        }
        return isAnswered;
    }

private:
    bool askAndShow() {
        ++round_;
        context_.notices.forget();
        const std::size_t failuresBefore = context_.session.failures();
        std::string reason;
        const Rows rows = ask(reason);
        if (reason.empty() && context_.session.failures() != failuresBefore) {
            reason = context_.notices.last();
        }
        if (reason.empty()) {
            show(rows_.compare(rows));
        } else {
            showHead("failed: " + safeText(reason));
        }
        context_.output.flush();
        return reason.empty();
    }

    // What the command answers, as rows; the lines of an answer that has no parts to compare.
    Rows ask(std::string& reason) {
        std::ostringstream text;
        Output captured(text, context_.progress, false);
        try {
            runCommand({context_.options, context_.session, captured, context_.progress, context_.notices,
                        context_.schemas, &collector_});
        } catch (const Failure& failure) {
            context_.session.sayFailure(failure);
            reason = *failure.what() == '\0' ? context_.notices.last() : failure.what();
        }
        Rows rows = collector_.take();
        return rows.empty() ? rowsOf(text.str()) : rows;
    }

    // On a terminal every round takes the place of the one before; else it follows.
    void show(const WatchedRows::Outcome& outcome) {
        const bool isWhole = context_.output.isTerminal() || round_ == 1;
        showHead(outcome.summary);
        for (const std::string& line : isWhole ? outcome.all : outcome.changed) {
            context_.output.line(cutTo(line, terminal::width()));
        }
    }

    void showHead(const std::string& what) {
        const std::string head = fmt::format("{}  round {}: {}", timeNow(), round_, what);
        context_.output.write(context_.output.isTerminal() ? kClearScreen : "");
        context_.output.line(cutTo(head, terminal::width()));
    }

    const CommandContext& context_;
    RowCollector collector_;
    WatchedRows rows_;
    std::size_t round_ = 0;
};

}  // namespace

bool runWatch(const CommandContext& context) {
    return Watch(context).run();
}

}  // namespace tool
