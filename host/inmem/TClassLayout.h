#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "vskcore/CimNames.h"

namespace NQELVSK20 {

class ICIMClass;

/// What a class's instances may hold: the properties and keys that the class and its superclasses declare.
///
/// A class object tells only the members that it declares itself, and asking for its superclass may be a
/// remote call. So the instances of a class share what was read, and it is read no sooner than it is needed:
/// no superclass for a property that the class itself declares, the whole chain for the keys. The chain ends
/// at a top-level class, whose superclass is the class "<root>". It ends early where a class cannot tell its
/// superclass (it throws, or gives an empty pointer).
///
/// Instances of one class are mostly made one after the other, and all that the contract gives them in common
/// is their class, which has no place for what the host knows. So each thread keeps the layout that it used
/// last. Another one is made
/// - for an instance of another class object, which takes over what the two chains have in common;
/// - when the chain ended early and no instance uses the layout any more, so that a server's short absence
///   spoils no paths for good;
/// - when a superclass is gone, since another class may have taken its place. One that somebody still holds
///   counts as the superclass: only a remote call could tell that it is that no more.
///
/// An instance keeps the layout that it was first used with. Like an instance, a layout is not to be used
/// from two threads at a time.
class TClassLayout {
public:
    static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

    struct TKey {
        std::string name;
        std::size_t position;
    };

    /// The layout of a class: the one used last on this thread, or a new one. Calls nothing of the class.
    static std::shared_ptr<TClassLayout> Of(const boost::shared_ptr<ICIMClass>& cimClass);

    explicit TClassLayout(const boost::shared_ptr<ICIMClass>& cimClass);

    /// The position of a property, sought without regard to case; kNowhere when no class of the chain
    /// declares it. A property that was added to a class after its members were read is found.
    ///
    /// Positions are given in the order in which properties are first sought. So instances that are filled in
    /// one order find each property at the position after the last one's: `expected` is looked at first.
    std::size_t PositionOf(const std::string& name, std::size_t expected = kNowhere);

    /// The name of the property at a position, as its class spells it. Lives as long as the layout.
    const std::string& NameAt(std::size_t position) const { return names_[position].declared; }

    /// All positions that were given, in the order of the properties' normalised names.
    const std::vector<std::size_t>& InNameOrder();

    /// The key properties of the whole chain, ordered without regard to case.
    const std::vector<TKey>& Keys();

private:
    struct TName {
        std::string declared;
        std::string normalized;
    };

    bool IsAt(std::size_t position, const std::string& name) const;
    std::size_t GivePosition(const std::string& declared);
    const std::string* FindDeclared(const std::string& name);
    const std::string* FindRead(const std::string& name) const;
    const std::string* FindKnown(const std::string& name) const;
    const std::string* FindAdded(const std::string& name);
    void ReadMembersOnce();
    void ReadMembers(ICIMClass& cimClass);
    TClassLayout* Above(TClassLayout& level);
    bool ReadSuperclass(TClassLayout& level);
    bool IsInChain(const boost::shared_ptr<ICIMClass>& cimClass) const;
    std::shared_ptr<TClassLayout> FindFormer(const boost::shared_ptr<ICIMClass>& superclass) const;
    void Link(std::shared_ptr<TClassLayout> superclass);
    bool HasLostASuperclass() const;
    bool IsOf(const boost::shared_ptr<ICIMClass>& cimClass) const;

    const boost::weak_ptr<ICIMClass> class_;
    const ICIMClass* const address_;        // of the class, which may be gone
    std::shared_ptr<TClassLayout> former_;  // used before this one: may have superclasses in common
    bool membersRead_ = false;
    std::unordered_map<std::string, std::size_t, TNameHash, TNameEqual>
        known_;                             // positions of what is declared here, or was found higher up
    std::deque<TName> names_;               // by position
    std::vector<std::size_t> inNameOrder_;  // the positions; outdated when there are more
    std::vector<std::string> ownKeys_;      // the keys that are declared here
    bool keysRead_ = false;
    std::vector<TKey> keys_;  // of the whole chain
    bool superclassRead_ = false;
    std::shared_ptr<TClassLayout> superclass_;  // null at the top
    bool isChainBroken_ = false;  // a superclass could not be told, and the chain was taken to end there
};

}  // namespace NQELVSK20
