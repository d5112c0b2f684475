#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "bench/Contestant.h"

namespace bench {

/// What is to be reached; zero: nothing that was set.
struct Target {
    double ratio = 0;           ///< Time, as a multiple of the first contestant's.
    double memory = 0;          ///< Peak memory, as a multiple of what the comparison measures it by.
    double secondsPerItem = 0;  ///< Absolute.
};

/// What became of one contestant.
struct Row {
    std::string name;
    Target target;
    std::size_t count = 0;      ///< Items of one round, e.g. instances.
    double seconds = 0;         ///< The quickest round's.
    double ratio = 0;           ///< Of that to the first contestant's.
    double processorRatio = 0;  ///< The same of the least processor time.
    double peakBytes = 0;
    double memory = 0;  ///< Peak memory as a multiple; zero: not measured.
};

/// Ways of doing a piece of work, round by round in turn; the first is the measure of the others.
class Comparison {
public:
    using Prepare = std::function<Contestant::Work()>;

    explicit Comparison(std::string title) : title_(std::move(title)) {}

    /// Starts a contestant, whose rounds have to count `count`.
    void Enter(const std::string& name, std::size_t count, const Prepare& prepare, const Target& target = {});

    /// Peak memory is shown, as multiples of so many bytes, or of the first contestant's.
    void MeasureMemoryBy(double bytes, const std::string& what);
    void MeasureMemoryByFirst();

    /// The times that are shown are those of one item.
    void ShowPerItem() { isPerItem_ = true; }

    /// Says why there are no contestants.
    void Skip(const std::string& reason) { skipped_ = reason; }

    /// One round of each that does not count, then `rounds` of each. Throws std::runtime_error when one
    /// fails, or does another work than it should.
    void Run(int rounds);

    const std::string& Title() const { return title_; }
    const std::string& Skipped() const { return skipped_; }
    const std::string& MemoryMeasure() const { return memoryMeasure_; }  ///< In words; empty: none.
    bool IsPerItem() const { return isPerItem_; }
    int Rounds() const { return rounds_; }
    const std::vector<Row>& Rows() const { return rows_; }  ///< After Run, in the order of entering.

private:
    void WarmUp();
    void MakeRows();

    std::string title_;
    std::string skipped_;
    std::string memoryMeasure_;
    double memoryBytes_ = 0;  // zero: the first contestant's
    bool isPerItem_ = false;
    int rounds_ = 0;
    std::vector<Contestant> contestants_;
    std::vector<Row> rows_;
};

}  // namespace bench
