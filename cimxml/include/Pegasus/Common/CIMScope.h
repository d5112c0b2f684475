#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// The set of element kinds that a qualifier may stand on (DSP0004,
/// qualifier scopes).
class PEGASUS_COMMON_LINKAGE CIMScope {
public:
    constexpr CIMScope() noexcept = default;

    void addScope(const CIMScope& scope) noexcept { _bits |= scope._bits; }

    /// Whether all of `scope` is in this set.
    Boolean hasScope(const CIMScope& scope) const noexcept { return (_bits & scope._bits) == scope._bits; }
    Boolean equal(const CIMScope& scope) const noexcept { return _bits == scope._bits; }
    CIMScope operator+(const CIMScope& scope) const noexcept { return CIMScope(_bits | scope._bits); }

    /// The set scopes' keywords with a blank between.
    String toString() const;

    static const CIMScope NONE;
    static const CIMScope CLASS;
    static const CIMScope ASSOCIATION;
    static const CIMScope INDICATION;
    static const CIMScope PROPERTY;
    static const CIMScope REFERENCE;
    static const CIMScope METHOD;
    static const CIMScope PARAMETER;
    static const CIMScope ANY;  ///< all of them

private:
    explicit constexpr CIMScope(Uint32 bits) noexcept : _bits(bits) {}

    Uint32 _bits = 0;
};

}  // namespace Pegasus
