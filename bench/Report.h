#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "bench/Comparison.h"

namespace bench {

/// Prints a comparison as a table. A figure above its target is marked with an exclamation mark.
void Print(const std::string& key, const Comparison& comparison);

/// The same, and what was not rounded, for programs.
nlohmann::json ToJson(const std::string& key, const Comparison& comparison);

/// What machine, how busy, and which client library: one line for the head of a report.
std::string DescribeRun();

}  // namespace bench
