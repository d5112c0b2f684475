#pragma once

namespace NQELVSK20 {

/// A running subscription to indications; this contract needs nothing of it but its identity.
class ICIMSubscription {
public:
    virtual ~ICIMSubscription() = default;
};

}  // namespace NQELVSK20
