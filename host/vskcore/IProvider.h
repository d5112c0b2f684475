#pragma once

namespace NQELVSK20 {

/// A data provider of the host; this contract needs nothing of it but its identity.
class IProvider {
public:
    virtual ~IProvider() = default;
};

}  // namespace NQELVSK20
