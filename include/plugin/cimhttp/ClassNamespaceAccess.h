#pragma once

namespace NQELVSK20 {

class ClassNamespace;

/// The way from a namespace to what its classes see of it. Of no use to a host.
class ClassNamespaceAccess {
public:
    virtual ClassNamespace& ForClasses() = 0;

protected:
    ~ClassNamespaceAccess() = default;
};

}  // namespace NQELVSK20
