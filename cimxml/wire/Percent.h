#pragma once

#include <string>
#include <string_view>

namespace cimxml {

/// UTF-8 `text` with every byte escaped that is neither a letter, a digit nor one of !'()*-._~ (RFC 3986,
/// as DSP0200 wants it for CIMMethod and CIMObject).
std::string percentEncode(std::string_view text);

/// The inverse. An escape that is none ("%zz", "%4") stays as it stands: the text is meant for people.
std::string percentDecode(std::string_view text);

}  // namespace cimxml
