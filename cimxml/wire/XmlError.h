#pragma once

#include <cstddef>
#include <string>

#include "cimxml/wire/WireError.h"

namespace cimxml {

/// BadXml at a place in a text.
class XmlError : public WireError {
public:
    /// `what` was found or expected at `offset`, in bytes.
    XmlError(std::ptrdiff_t offset, const std::string& what)
        : WireError(Kind::BadXml, "XML at offset " + std::to_string(offset) + what),
          offset_(offset),
          what_(what) {}

    /// The same error, as seen from a text in which this one begins at `begin`.
    XmlError within(std::size_t begin) const {
        return XmlError(offset_ + static_cast<std::ptrdiff_t>(begin), what_);
    }

private:
    std::ptrdiff_t offset_;
    std::string what_;
};

}  // namespace cimxml
