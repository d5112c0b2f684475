#pragma once

#include <optional>
#include <string>

#include "tools/health/Reading.h"
#include "tools/print/InstanceView.h"
#include "tools/values/ClassSchema.h"

namespace tool {

/// The column that shows what a sensor measures, though no class declares it.
constexpr const char* kReadingColumn = "Reading";

/// Whether a column of that name shows readings: the class is one of sensors and has no such property.
bool isReadingColumn(const std::string& column, const ClassSchema& schema);

/// What an instance measures; none when it is no sensor.
std::optional<Reading> readingOf(const InstanceView& instance);

}  // namespace tool
