#pragma once

namespace cimom::test {

/// CIM status codes (DSP0200) that tests expect.
constexpr int kInvalidParameter = 4;
constexpr int kInvalidClass = 5;
constexpr int kNotFound = 6;
constexpr int kNotSupported = 7;
constexpr int kClassHasChildren = 8;
constexpr int kClassHasInstances = 9;
constexpr int kInvalidSuperclass = 10;
constexpr int kAlreadyExists = 11;
constexpr int kNoSuchProperty = 12;
constexpr int kTypeMismatch = 13;
constexpr int kQueryLanguageNotSupported = 14;
constexpr int kInvalidQuery = 15;
constexpr int kInvalidEnumerationContext = 21;
constexpr int kInvalidOperationTimeout = 22;
constexpr int kFilteredEnumerationNotSupported = 25;
constexpr int kContinuationOnErrorNotSupported = 26;
constexpr int kServerLimitsExceeded = 27;
constexpr int kMethodNotAvailable = 16;
constexpr int kMethodNotFound = 17;

}  // namespace cimom::test
