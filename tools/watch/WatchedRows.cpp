#include "tools/watch/WatchedRows.h"

#include <algorithm>
#include <utility>

#include "tools/common/SafeText.h"
#include "tools/common/Utf8.h"

namespace tool {

namespace {

constexpr char kSame = ' ';
constexpr char kNew = '+';
constexpr char kChanged = '*';
constexpr char kGone = '-';

const Cell* cellNamed(const Row& row, const std::string& name) {
    const auto found =
        std::find_if(row.cells.begin(), row.cells.end(), [&](const Cell& cell) { return cell.name == name; });
    return found == row.cells.end() ? nullptr : &*found;
}

// What the cell was, if it was something else.
const Cell* otherBefore(const Cell& cell, const Row* before) {
    const Cell* old = before == nullptr ? nullptr : cellNamed(*before, cell.name);
    return old != nullptr && old->text != cell.text ? old : nullptr;
}

std::string changeText(const Cell& cell, const Row* before) {
    const Cell* old = otherBefore(cell, before);
    return old == nullptr ? cell.text : (old->text.empty() ? "nothing" : old->text) + " → " + cell.text;
}

std::string joinedTexts(const std::vector<std::string>& texts, const std::vector<std::size_t>& widths) {
    std::string line;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        line += (i == 0 ? "" : "  ") + padTo(texts[i], widths[i]);
    }
    return line.erase(line.find_last_not_of(' ') + 1);
}

template <typename LINES>
std::vector<std::size_t> widthsOf(const LINES& lines) {
    std::vector<std::size_t> widths;
    for (const auto& line : lines) {
        widths.resize(std::max(widths.size(), line.texts.size()));
        for (std::size_t i = 0; i < line.texts.size(); ++i) {
            widths[i] = std::max(widths[i], lengthOf(line.texts[i]));
        }
    }
    return widths;
}

std::string countOf(std::size_t count, const std::string& what) {
    return count == 0 ? std::string() : ", " + std::to_string(count) + ' ' + what;
}

}  // namespace

char WatchedRows::markOf(const Row& row, const Known* before) const {
    if (before == nullptr) {
        return hasStarted_ ? kNew : kSame;
    }
    const bool isOther = std::any_of(row.cells.begin(), row.cells.end(), [&](const Cell& cell) {
        return otherBefore(cell, &before->row) != nullptr;
    });
    return isOther ? kChanged : kSame;
}

WatchedRows::Line WatchedRows::lineOf(const Row& row, const Known* before, Known& now) const {
    const Row* old = before == nullptr ? nullptr : &before->row;
    Line line{markOf(row, before), {row.label}};
    std::string history;
    for (const Cell& cell : row.cells) {
        std::string bars;
        if (cell.number) {
            History& numbers = now.histories[cell.name];
            numbers.add(*cell.number);
            bars = numbers.line();
        }
        if (isTable()) {
            line.texts.push_back(changeText(cell, old));
            history = history.empty() ? bars : history;
        } else if (otherBefore(cell, old) != nullptr) {
            line.texts.push_back(cell.name + ' ' + changeText(cell, old) + (bars.empty() ? "" : " ") + bars);
        }
    }
    if (!history.empty()) {
        line.texts.push_back(history);
    }
    return line;
}

WatchedRows::Outcome WatchedRows::compare(const Rows& rows) {
    ByKey now;
    std::vector<Line> lines;
    for (const Row& row : rows) {
        const auto before = known_.find(row.key);
        const bool isKnown = before != known_.end();
        Known known{row, isKnown ? before->second.histories : std::map<std::string, History>()};
        lines.push_back(lineOf(row, isKnown ? &before->second : nullptr, known));
        now.insert_or_assign(row.key, std::move(known));
    }
    for (const auto& [key, known] : known_) {
        if (now.count(key) == 0) {
            Line line{kGone, {known.row.label}};
            for (const Cell& cell : known.row.cells) {
                line.texts.push_back(isTable() ? cell.text : "");
            }
            lines.push_back(line);
        }
    }
    known_ = std::move(now);
    hasStarted_ = true;
    return outcomeOf(lines);
}

WatchedRows::Outcome WatchedRows::outcomeOf(const std::vector<Line>& lines) const {
    std::vector<Line> withHeading = lines;
    withHeading.push_back({kSame, heading_});
    const std::vector<std::size_t> widths = widthsOf(withHeading);
    const auto textOf = [&](const Line& line) {
        return std::string(1, line.mark) + ' ' + joinedTexts(line.texts, widths);
    };
    std::map<char, std::size_t> counts;
    Outcome outcome;
    if (isTable()) {
        outcome.all.push_back(textOf(withHeading.back()));
    }
    for (const Line& line : lines) {
        ++counts[line.mark];
        outcome.all.push_back(textOf(line));
        if (line.mark != kSame) {
            outcome.changed.push_back(outcome.all.back());
        }
    }
    const std::size_t rows = lines.size() - counts[kGone];
    outcome.summary = std::to_string(rows) + (rows == 1 ? " row" : " rows") +
                      countOf(counts[kChanged], "changed") + countOf(counts[kNew], "new") +
                      countOf(counts[kGone], "gone");
    return outcome;
}

}  // namespace tool
