#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

namespace NQELVSK20 {

class TCimHTTPNamespace;
class TUnionNamespace;

/// The union namespace behind a namespace's upcall namespace. A host sets both up before it asks for classes;
/// when one is missing, that is reported as a broken precondition of `where`, and there is none: empty.
boost::shared_ptr<TUnionNamespace> UnionNamespaceBehind(const TCimHTTPNamespace& nameSpace,
                                                        const std::string& where);

}  // namespace NQELVSK20
