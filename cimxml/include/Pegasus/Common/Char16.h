#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>

namespace Pegasus {

/// One UTF-16 code unit; the CIM type char16.
class PEGASUS_COMMON_LINKAGE Char16 {
public:
    constexpr Char16() noexcept = default;
    constexpr Char16(Uint16 code) noexcept : _code(code) {}

    constexpr Char16& operator=(Uint16 code) noexcept {
        _code = code;
        return *this;
    }

    constexpr operator Uint16() const noexcept { return _code; }

private:
    Uint16 _code = 0;
};

constexpr Boolean operator==(const Char16& x, const Char16& y) noexcept {
    return Uint16(x) == Uint16(y);
}
constexpr Boolean operator==(const Char16& x, char y) noexcept {
    return Uint16(x) == Uint16(y);
}
constexpr Boolean operator==(char x, const Char16& y) noexcept {
    return Uint16(x) == Uint16(y);
}
constexpr Boolean operator!=(const Char16& x, const Char16& y) noexcept {
    return !(x == y);
}
constexpr Boolean operator!=(const Char16& x, char y) noexcept {
    return !(x == y);
}
constexpr Boolean operator!=(char x, const Char16& y) noexcept {
    return !(x == y);
}

}  // namespace Pegasus
