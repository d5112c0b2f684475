#include "bench/Report.h"

#include <fmt/format.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <thread>

namespace bench {

namespace {

std::string FormatTime(double seconds) {
    if (seconds < 1e-6) {
        return fmt::format("{:.1f} ns", seconds * 1e9);
    }
    return seconds < 1e-3 ? fmt::format("{:.2f} us", seconds * 1e6) : fmt::format("{:.1f} ms", seconds * 1e3);
}

std::string FormatTarget(double target, double reached) {
    return target == 0 ? std::string() : fmt::format("{:.1f}{}", target, reached > target ? " !" : "");
}

std::string FormatTimeTarget(const Row& row) {
    if (row.target.secondsPerItem == 0) {
        return FormatTarget(row.target.ratio, row.ratio);
    }
    return FormatTime(row.target.secondsPerItem) + (row.seconds > row.target.secondsPerItem ? " !" : "");
}

void PrintRow(const Row& row) {
    fmt::print("  {:<36} {:>10} {:>8.2f} {:>10} {:>8.2f} {:>8} {:>8}\n", row.name, FormatTime(row.seconds),
               row.ratio, FormatTimeTarget(row), row.processorRatio,
               row.memory == 0 ? "" : fmt::format("{:.2f}", row.memory),
               FormatTarget(row.target.memory, row.memory));
}

nlohmann::json RowToJson(const Row& row) {
    nlohmann::json json{{"name", row.name},
                        {"count", row.count},
                        {"seconds", row.seconds},
                        {"ratio", row.ratio},
                        {"processorRatio", row.processorRatio},
                        {"peakBytes", row.peakBytes}};
    const auto addIfSet = [&](const char* name, double value) {
        if (value != 0) {
            json[name] = value;
        }
    };
    addIfSet("memory", row.memory);
    addIfSet("targetRatio", row.target.ratio);
    addIfSet("targetMemory", row.target.memory);
    addIfSet("targetSeconds", row.target.secondsPerItem);
    return json;
}

std::string ProcessorModel() {
    std::ifstream info("/proc/cpuinfo");
    for (std::string line; std::getline(info, line);) {
        if (line.rfind("model name", 0) == 0) {
            return line.substr(line.find(':') + 2);
        }
    }
    return "unknown processor";
}

}  // namespace

void Print(const std::string& key, const Comparison& comparison) {
    fmt::print("\n{}: {}\n", key, comparison.Title());
    if (!comparison.Skipped().empty()) {
        fmt::print("  skipped: {}\n", comparison.Skipped());
        return;
    }
    fmt::print("  {:<36} {:>10} {:>8} {:>10} {:>8} {:>8} {:>8}\n", "",
               comparison.IsPerItem() ? "one call" : "quickest", "ratio", "target", "CPU",
               comparison.MemoryMeasure().empty() ? "" : "memory",
               comparison.MemoryMeasure().empty() ? "" : "target");
    for (const Row& row : comparison.Rows()) {
        PrintRow(row);
    }
    std::fflush(stdout);
}

nlohmann::json ToJson(const std::string& key, const Comparison& comparison) {
    nlohmann::json json{{"key", key}, {"title", comparison.Title()}};
    if (!comparison.Skipped().empty()) {
        json["skipped"] = comparison.Skipped();
        return json;
    }
    json["rounds"] = comparison.Rounds();
    json["secondsAreOf"] = comparison.IsPerItem() ? "one call" : "one round";
    if (!comparison.MemoryMeasure().empty()) {
        json["memoryIsMultipleOf"] = comparison.MemoryMeasure();
    }
    for (const Row& row : comparison.Rows()) {
        json["rows"].push_back(RowToJson(row));
    }
    return json;
}

std::string DescribeRun() {
    double load = 0;
    getloadavg(&load, 1);
    return fmt::format("{}, {} cores, load average {:.1f}; client library: {}", ProcessorModel(),
                       std::thread::hardware_concurrency(), load, BENCH_CLIENT_LIBRARY);
}

}  // namespace bench
