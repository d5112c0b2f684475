#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tools/watch/History.h"
#include "tools/watch/Row.h"

namespace tool {

/// Compares each round's rows with those of the round before.
class WatchedRows {
public:
    /// With a `heading`, of the label and of each cell, a row shows all its cells, else its label and the
    /// cells that changed.
    explicit WatchedRows(std::vector<std::string> heading) : heading_(std::move(heading)) {}

    /// What there is to say of a round.
    struct Outcome {
        std::vector<std::string>
            all;  ///< The heading and every row, a mark before it: `+` new, `*` changed, `-` gone.
        std::vector<std::string> changed;  ///< Only those with a mark.
        std::string summary;               ///< `29 rows, 2 changed, 1 new, 1 gone`.
    };

    Outcome compare(const Rows& rows);

private:
    struct Known {
        Row row;
        std::map<std::string, History> histories;  // by cell
    };
    struct Line {
        char mark;
        std::vector<std::string> texts;
    };
    using ByKey = std::map<std::string, Known>;

    Line lineOf(const Row& row, const Known* before, Known& now) const;
    char markOf(const Row& row, const Known* before) const;
    bool isTable() const { return !heading_.empty(); }
    Outcome outcomeOf(const std::vector<Line>& lines) const;

    std::vector<std::string> heading_;
    bool hasStarted_ = false;
    ByKey known_;
};

}  // namespace tool
