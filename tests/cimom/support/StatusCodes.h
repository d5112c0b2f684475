#pragma once

namespace cimom::test {

/// CIM status codes (DSP0200) that tests expect.
constexpr int kInvalidParameter = 4;
constexpr int kInvalidClass = 5;
constexpr int kNotFound = 6;
constexpr int kNotSupported = 7;
constexpr int kNoSuchProperty = 12;
constexpr int kMethodNotAvailable = 16;
constexpr int kMethodNotFound = 17;

}  // namespace cimom::test
