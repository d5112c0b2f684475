#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <map>
#include <string>
#include <vector>

#include "vskcore/ICIMNamespace.h"

namespace NQELVSK20 {

class TCimHTTPClass;
class TCimHTTPQualifierDecl;

/// The classes of a namespace: those that are cached, by normalised name, which it shares; the class "<root>"
/// at the top of their tree; and every other class that the namespace allocated, as long as somebody holds
/// it.
///
/// A class and the instances that it collected hold each other, and a host's references may hold the
/// namespace: without ForgetInstances and Forget, none of them would ever be freed.
class ClassCache {
public:
    /// `replaceDuplicates` says what a second class of a name does: replace the first, or be refused.
    explicit ClassCache(bool replaceDuplicates) : replaceDuplicates_(replaceDuplicates) {}

    /// A copy shares what is cached; the classes stay the original's, which decides when they let go.
    ClassCache(const ClassCache& other);
    ClassCache& operator=(const ClassCache& other);

    /// Notes a class that the namespace allocated.
    void Remember(const boost::shared_ptr<TCimHTTPClass>& cimClass);

    void SetRoot(const boost::shared_ptr<TCimHTTPClass>& root) { root_ = root; }
    const boost::shared_ptr<TCimHTTPClass>& Root() const { return root_; }

    /// Caches a class. The class that it replaced; empty when there was none. Throws status 16 for a
    /// duplicate that is refused.
    boost::shared_ptr<TCimHTTPClass> Add(const boost::shared_ptr<TCimHTTPClass>& cimClass);

    /// The cached class of a normalised name; empty when there is none.
    boost::shared_ptr<TCimHTTPClass> Find(const std::string& key) const;

    /// Takes a class that must not stay out of the cache and the class tree.
    void Discard(const std::string& key);

    /// Every class lets go of the instances that it collected.
    void ForgetInstances();

    /// Empties cache and class tree. Whoever still holds one of the classes may go on using it; nothing of
    /// the namespace refers to it any more.
    void Forget();

    /// The same for good: of the root class, too, no instances are kept from then on.
    void GiveUp();

private:
    bool replaceDuplicates_;
    boost::shared_ptr<TCimHTTPClass> root_;
    std::map<std::string, boost::shared_ptr<TCimHTTPClass>> classes_;
    std::vector<boost::weak_ptr<TCimHTTPClass>> own_;  // every one that the namespace allocated, the root too
};

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
