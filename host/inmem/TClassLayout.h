#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_set>
#include <vector>

#include "vskcore/CimNames.h"

namespace NQELVSK20 {

class ICIMClass;

/// What a class's instances may hold: the properties and keys that the class and its superclasses declare.
///
/// A class object tells only the members that it declares itself, and asking for its superclass may be a
/// remote call. So what was read is kept for the process, once per class object, and read no sooner than it
/// is needed: no superclass for a property that the class itself declares, the whole chain for the keys.
/// The chain ends at a top-level class, whose superclass is the class "<root>". It ends early where a class
/// cannot tell its superclass (it throws, or gives an empty pointer); such a layout is given up for a new one
/// as soon as nobody uses it any more, so that a server's short absence spoils no paths for good.
///
/// Safe to use from several threads; calls into classes are made without a lock held.
class TClassLayout {
public:
    using Name = std::shared_ptr<const std::string>;
    using Names = std::vector<Name>;

    /// The layout of a class, shared by all who ask for it. Calls nothing of the class.
    static std::shared_ptr<TClassLayout> Of(const boost::shared_ptr<ICIMClass>& cimClass);

    explicit TClassLayout(const boost::shared_ptr<ICIMClass>& cimClass);

    /// The name of a property as its class spells it, sought without regard to case; null when no class of
    /// the chain declares it. A property that was added to a class after its members were read is found.
    Name FindProperty(const std::string& name);

    /// The names of the key properties of the whole chain, ordered without regard to case.
    std::shared_ptr<const Names> Keys();

private:
    // Hash and equality of names that are held by pointer, so that a lookup needs no copy of the text.
    struct THashOfPointed {
        std::size_t operator()(const Name& name) const { return TNameHash()(*name); }
    };
    struct TEqualPointed {
        bool operator()(const Name& left, const Name& right) const { return SameName(*left, *right); }
    };

    Name FindKnown(const std::string& name) const;
    Name FindAdded(const std::string& name);
    void ReadMembersOnce();
    void ReadMembers(ICIMClass& cimClass);
    Names OwnKeys() const;
    TClassLayout* Above(TClassLayout& level);
    bool ReadSuperclass();
    void Link(std::shared_ptr<TClassLayout> superclass);
    bool IsChainBroken() const;

    const boost::weak_ptr<ICIMClass> class_;

    mutable std::mutex mutex_;  // guards what follows
    bool membersRead_ = false;
    std::unordered_set<Name, THashOfPointed, TEqualPointed> known_;  // declared here, or found higher up
    Names ownKeys_;                                                  // the keys that are declared here
    std::shared_ptr<const Names> keys_;                              // of the whole chain; null until read
    bool chainBroken_ = false;  // a superclass could not be told, and the chain was taken to end there

    // Guarded by the one mutex of all links, so that no two threads can close a circle between them.
    bool superclassRead_ = false;
    std::shared_ptr<TClassLayout> superclass_;  // null at the top
};

}  // namespace NQELVSK20
