#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

namespace NQELVSK20 {

class ICIMClass;
class TCimHTTPClass;
class TCimHTTPNamespace;
class TCimHTTPQualifierDecl;

/// The one gate through which the model's objects reach what a namespace keeps to itself: elements enter
/// themselves, and classes ask for the class at the top of every chain.
class TNamespaceMembers {
public:
    /// Enters a class into the cache; throws status 16 for a duplicate that may not replace the first. The
    /// class that was replaced; empty when there was none.
    static boost::shared_ptr<TCimHTTPClass> AddClass(TCimHTTPNamespace& nameSpace,
                                                     boost::shared_ptr<TCimHTTPClass> cimClass);

    /// Enters a qualifier declaration; throws status 16 likewise.
    static void AddQualifierDecl(TCimHTTPNamespace& nameSpace,
                                 boost::shared_ptr<TCimHTTPQualifierDecl> declaration);

    /// True while the class of a name, though the union namespace knows it, is to be read from the nodes.
    static bool IsReadFromNodes(const TCimHTTPNamespace& nameSpace, const std::string& name);

    /// The class "<root>"; empty while the namespace is being initialised.
    static boost::shared_ptr<ICIMClass> RootClass(const TCimHTTPNamespace& nameSpace);
};

}  // namespace NQELVSK20
