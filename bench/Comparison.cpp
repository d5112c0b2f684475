#include "bench/Comparison.h"

#include <stdexcept>
#include <utility>

namespace bench {

void Comparison::Enter(const std::string& name, std::size_t count, const Prepare& prepare,
                       const Target& target) {
    contestants_.emplace_back(name, prepare);
    Row row;
    row.name = name;
    row.target = target;
    row.count = count;
    rows_.push_back(std::move(row));
}

void Comparison::MeasureMemoryBy(double bytes, const std::string& what) {
    memoryBytes_ = bytes;
    memoryMeasure_ = what;
}

void Comparison::MeasureMemoryByFirst() {
    MeasureMemoryBy(0, "the first row's");
}

void Comparison::Run(int rounds) {
    WarmUp();
    rounds_ = rounds;
    for (int round = 0; round < rounds; ++round) {
        for (Contestant& contestant : contestants_) {
            contestant.RunOnce();
        }
    }
    for (Contestant& contestant : contestants_) {
        contestant.Finish();
    }
    MakeRows();
}

void Comparison::WarmUp() {
    for (std::size_t i = 0; i < contestants_.size(); ++i) {
        contestants_[i].RunOnce();
        contestants_[i].Forget();
        if (contestants_[i].Count() != rows_[i].count) {
            throw std::runtime_error(rows_[i].name + ": counted " + std::to_string(contestants_[i].Count()) +
                                     ", not " + std::to_string(rows_[i].count));
        }
    }
}

void Comparison::MakeRows() {
    for (std::size_t i = 0; i < contestants_.size(); ++i) {
        const Contestant& contestant = contestants_[i];
        const double perItem = isPerItem_ ? 1.0 / static_cast<double>(rows_[i].count) : 1.0;
        rows_[i].seconds = contestant.Quickest() * perItem;
        rows_[i].processorRatio = contestant.LeastProcessorTime() * perItem;
        rows_[i].peakBytes = contestant.PeakBytes();
    }
    const double memory = memoryBytes_ > 0 ? memoryBytes_ : rows_.front().peakBytes;
    const double processor = rows_.front().processorRatio;
    for (Row& row : rows_) {
        row.ratio = row.seconds / rows_.front().seconds;
        row.processorRatio /= processor;
        row.memory = memoryMeasure_.empty() ? 0 : row.peakBytes / memory;
    }
}

}  // namespace bench
