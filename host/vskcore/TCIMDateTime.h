#pragma once

#include <string>

namespace NQELVSK20 {

/// A CIM datetime, point in time or interval, kept as its text of 25 characters (DSP0004).
class TCIMDateTime {
public:
    /// The interval of length zero, "00000000000000.000000:000".
    TCIMDateTime();

    /// Keeps the text as it is; it is not checked, since servers send odd ones and losing them helps nobody.
    explicit TCIMDateTime(const std::string& text);

    const std::string& ToString() const { return text_; }

    bool operator==(const TCIMDateTime& other) const { return text_ == other.text_; }

private:
    std::string text_;
};

}  // namespace NQELVSK20
