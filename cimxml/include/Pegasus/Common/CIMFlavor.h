#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// A set of qualifier flavors (DSP0004, qualifier flavors): how a qualifier
/// is inherited, overridden and translated.
class PEGASUS_COMMON_LINKAGE CIMFlavor {
public:
    constexpr CIMFlavor() noexcept = default;

    void addFlavor(const CIMFlavor& flavor) noexcept { _bits |= flavor._bits; }
    void removeFlavor(const CIMFlavor& flavor) noexcept { _bits &= ~flavor._bits; }

    /// Whether all of `flavor` is in this set.
    Boolean hasFlavor(const CIMFlavor& flavor) const noexcept {
        return (_bits & flavor._bits) == flavor._bits;
    }
    Boolean equal(const CIMFlavor& flavor) const noexcept { return _bits == flavor._bits; }
    CIMFlavor operator+(const CIMFlavor& flavor) const noexcept { return CIMFlavor(_bits | flavor._bits); }

    /// The set flavors' keywords with a blank between.
    String toString() const;

    static const CIMFlavor NONE;
    static const CIMFlavor OVERRIDABLE;
    static const CIMFlavor ENABLEOVERRIDE;  ///< the same as OVERRIDABLE
    static const CIMFlavor DISABLEOVERRIDE;
    static const CIMFlavor TOSUBCLASS;
    static const CIMFlavor RESTRICTED;
    static const CIMFlavor TOINSTANCE;
    static const CIMFlavor TRANSLATABLE;
    static const CIMFlavor DEFAULTS;       ///< OVERRIDABLE and TOSUBCLASS
    static const CIMFlavor TOSUBELEMENTS;  ///< the same as TOSUBCLASS

private:
    explicit constexpr CIMFlavor(Uint32 bits) noexcept : _bits(bits) {}

    Uint32 _bits = 0;
};

}  // namespace Pegasus
