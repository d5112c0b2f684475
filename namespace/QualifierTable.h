#pragma once

#include <boost/shared_ptr.hpp>
#include <map>
#include <string>

#include "vskcore/ICIMNamespace.h"

namespace NQELVSK20 {

class TCimHTTPQualifierDecl;

/// The qualifier declarations of a namespace by normalised name. Shares ownership of them.
class QualifierTable {
public:
    /// `replaceDuplicates` says what a second declaration of a name does: replace the first, or be refused.
    explicit QualifierTable(bool replaceDuplicates) : replaceDuplicates_(replaceDuplicates) {}

    /// Throws status 16 for a duplicate that is refused and status 25 for a malformed name.
    void Add(const boost::shared_ptr<TCimHTTPQualifierDecl>& declaration);

    /// Empty when there is none of that name, in any letter case. Throws status 25 for a malformed name.
    boost::shared_ptr<ICIMQualifierDecl> Find(const std::string& name) const;

    /// Calls back in the order of the normalised names until false. The callback may add declarations.
    void Enumerate(const ICIMNamespace::QualifierDeclCallback& callback) const;

private:
    bool replaceDuplicates_;
    std::map<std::string, boost::shared_ptr<TCimHTTPQualifierDecl>> declarations_;
};

}  // namespace NQELVSK20
