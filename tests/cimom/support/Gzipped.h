#pragma once

#include <string>

namespace cimom::test {

/// A text compressed with gzip.
std::string gzipped(const std::string& text);

}  // namespace cimom::test
