#pragma once

#include <cstdint>
#include <string>

namespace NQELVSK20 {

/// A CIM char16: one UCS-2 code unit (DSP0004).
class TCIMChar16 {
public:
    TCIMChar16() = default;

    /// Takes the code as unsigned decimal text ("65" is the letter A). Text that is no number in 0..65535
    /// gives the code 0.
    explicit TCIMChar16(const std::string& decimalCode);

    std::uint16_t GetCode() const { return code_; }

    /// The code as unsigned decimal text, the form that the constructor takes.
    std::string ToString() const;

    bool operator==(const TCIMChar16& other) const { return code_ == other.code_; }

private:
    std::uint16_t code_ = 0;
};

}  // namespace NQELVSK20
