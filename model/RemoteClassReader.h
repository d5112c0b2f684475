#pragma once

#include <Pegasus/Common/CIMClass.h>

#include <boost/shared_ptr.hpp>
#include <string>

#include "vskcore/ICIMQualifierDecl.h"

namespace NQELVSK20 {

class ClassMembers;
class ClassNamespace;
class ICIMMethodDecl;
class ICIMNamedElement;
class TCimHTTPClass;

/// Reads nodes' definitions of one class into the class object, and the declarations of the qualifiers that
/// they use into the namespace. Members that are there stay: of several definitions the first wins.
///
/// A qualifier that the remote library cannot read is logged and left out. A class qualifier that may be
/// overridden gives way to a later node's. Throws status 28 for one that may not and contradicts the one that
/// is there, and status 25 for a malformed name of a member.
class RemoteClassReader {
public:
    /// `members` are those of `target`; both outlive the reader.
    RemoteClassReader(boost::shared_ptr<ClassNamespace> nameSpace, boost::shared_ptr<TCimHTTPClass> target,
                      ClassMembers& members);

    /// Asks every node in turn. Throws, when there are nodes and none of them gave a definition, the remote
    /// library's ConnectionTimeoutException if the last attempt on one of them timed out, else its
    /// UninitializedObjectException.
    void ReadFromNodes(const std::string& remoteNamespace);

    /// Reads one node's definition.
    void Read(const Pegasus::CIMClass& definition);

private:
    template <class TRemote>
    void ReadQualifiers(const TRemote& remote, ICIMQualifierDecl::EScope scope, ICIMNamedElement& element);
    void ReadQualifier(const Pegasus::CIMConstQualifier& remote, ICIMQualifierDecl::EScope scope,
                       ICIMNamedElement& element);
    void AddQualifier(const std::string& name, const Pegasus::CIMConstQualifier& remote,
                      ICIMQualifierDecl::EScope scope, ICIMNamedElement& element);
    boost::shared_ptr<ICIMQualifierDecl> DeclarationOf(const std::string& name,
                                                       const Pegasus::CIMConstQualifier& remote,
                                                       ICIMQualifierDecl::EScope scope);
    void ReadProperty(const Pegasus::CIMConstProperty& remote);
    void ReadMethod(const Pegasus::CIMConstMethod& remote);
    void ReadParameter(const Pegasus::CIMConstParameter& remote, ICIMMethodDecl& method);

    boost::shared_ptr<ClassNamespace> namespace_;
    boost::shared_ptr<TCimHTTPClass> target_;
    ClassMembers& members_;
};

}  // namespace NQELVSK20
