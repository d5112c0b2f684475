#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace cimom {

/// Whether a file starts as one that is compressed with gzip does.
bool isGzip(std::string_view bytes);

/// What a gzip file holds. Throws std::runtime_error that names the byte where the file is damaged or ends,
/// and when there are more than `limit` bytes in it.
std::string gunzipped(std::string_view bytes, std::size_t limit);

}  // namespace cimom
