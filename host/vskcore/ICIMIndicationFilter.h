#pragma once

namespace NQELVSK20 {

/// What a subscription filters indications by; this contract needs nothing of it but its identity.
class ICIMIndicationFilter {
public:
    virtual ~ICIMIndicationFilter() = default;
};

}  // namespace NQELVSK20
