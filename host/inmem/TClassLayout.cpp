#include "inmem/TClassLayout.h"

#include <algorithm>
#include <utility>

#include "vskcore/HostState.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

namespace {

bool Contains(const TClassLayout::Names& names, const std::string& name) {
    return std::any_of(names.begin(), names.end(),
                       [&name](const TClassLayout::Name& other) { return SameName(*other, name); });
}

}  // namespace

std::shared_ptr<TClassLayout> TClassLayout::Of(const boost::shared_ptr<ICIMClass>& cimClass) {
    if (!HostState().remembersLayouts) {
        return std::make_shared<TClassLayout>(cimClass);
    }
    thread_local std::shared_ptr<TClassLayout> latest;
    const bool isUnused = latest.use_count() == 1;
    if (!latest || !latest->IsOf(cimClass) || (isUnused && latest->isChainBroken_) ||
        latest->HasLostASuperclass()) {
        auto layout = std::make_shared<TClassLayout>(cimClass);
        layout->former_ = std::move(latest);
        if (layout->former_) {
            layout->former_->former_.reset();
        }
        latest = std::move(layout);
    }
    return latest;
}

TClassLayout::TClassLayout(const boost::shared_ptr<ICIMClass>& cimClass)
    : class_(cimClass), address_(cimClass.get()) {}

bool TClassLayout::IsOf(const boost::shared_ptr<ICIMClass>& cimClass) const {
    // An address may have been another class's before. Its owner tells them apart.
    return address_ == cimClass.get() && !class_.owner_before(cimClass) && !cimClass.owner_before(class_);
}

TClassLayout::Name TClassLayout::FindProperty(const std::string& name) {
    if (Name known = FindKnown(name)) {
        return known;
    }
    ReadMembersOnce();
    for (TClassLayout* level = this; level != nullptr; level = Above(*level)) {
        Name found = level->FindKnown(name);
        if (!found) {
            found = level->FindAdded(name);
        }
        if (found) {
            known_.insert(found);
            return found;
        }
    }
    return nullptr;
}

std::shared_ptr<const TClassLayout::Names> TClassLayout::Keys() {
    if (keys_) {
        return keys_;
    }
    ReadMembersOnce();
    Names keys;
    for (TClassLayout* level = this; level != nullptr; level = Above(*level)) {
        for (const Name& key : level->ownKeys_) {
            if (!Contains(keys, *key)) {
                keys.push_back(key);
            }
        }
    }
    std::sort(keys.begin(), keys.end(),
              [](const Name& left, const Name& right) { return TNameLess()(*left, *right); });
    keys_ = std::make_shared<const Names>(std::move(keys));
    return keys_;
}

/// A property that was read before, here or higher up.
TClassLayout::Name TClassLayout::FindKnown(const std::string& name) const {
    const Name borrowed(Name(), &name);  // owns nothing
    const auto found = known_.find(borrowed);
    return found != known_.end() ? *found : nullptr;
}

/// A property that was added to this class since its members were read.
TClassLayout::Name TClassLayout::FindAdded(const std::string& name) {
    const boost::shared_ptr<ICIMClass> cimClass = class_.lock();
    try {
        if (!cimClass || !cimClass->GetPropertyDecl(name, {})) {
            return nullptr;
        }
    } catch (const TVSKException&) {
        return nullptr;  // the contract's way to say that there is none
    }
    ReadMembers(*cimClass);
    return FindKnown(name);
}

void TClassLayout::ReadMembersOnce() {
    if (membersRead_) {
        return;
    }
    if (const boost::shared_ptr<ICIMClass> cimClass = class_.lock()) {
        ReadMembers(*cimClass);
    }
}

void TClassLayout::ReadMembers(ICIMClass& cimClass) {
    Names properties;
    Names keys;
    cimClass.EnumeratePropertyDecls(
        [&properties](const boost::shared_ptr<ICIMPropertyDecl>& declaration) {
            properties.push_back(std::make_shared<const std::string>(declaration->GetName({})));
            return true;
        },
        {});
    cimClass.EnumerateKeyPropertyNames(
        [&keys](const std::string& name) {
            keys.push_back(std::make_shared<const std::string>(name));
            return true;
        },
        {});
    membersRead_ = true;
    known_.insert(properties.begin(), properties.end());
    ownKeys_ = std::move(keys);
    keys_.reset();
}

/// The layout one level up from a layout of this one's chain; null where the chain ends.
TClassLayout* TClassLayout::Above(TClassLayout& level) {
    if (level.superclassRead_ || isChainBroken_) {
        return level.superclass_.get();
    }
    bool isTold = false;
    try {
        isTold = ReadSuperclass(level);
    } catch (...) {  // remote failures have no base class of their own
    }
    isChainBroken_ = !isTold;
    return level.superclass_.get();
}

/// Asks the class of a level for its superclass and reads that one's members; false when it cannot be told.
bool TClassLayout::ReadSuperclass(TClassLayout& level) {
    const boost::shared_ptr<ICIMClass> cimClass = level.class_.lock();
    const boost::shared_ptr<ICIMClass> superclass = cimClass ? cimClass->GetSuperClass({}) : nullptr;
    if (!superclass) {
        return false;
    }
    if (superclass->GetName({}) == "<root>" || IsInChain(superclass)) {
        level.Link(nullptr);
        return true;
    }
    std::shared_ptr<TClassLayout> layout = FindFormer(superclass);
    if (!layout) {
        layout = std::make_shared<TClassLayout>(superclass);
    }
    layout->ReadMembersOnce();
    level.Link(layout);
    return true;
}

/// True for a class of the chain as far as it was read: one that leads back to itself ends before it does.
bool TClassLayout::IsInChain(const boost::shared_ptr<ICIMClass>& cimClass) const {
    const TClassLayout* level = this;
    while (level != nullptr && !level->IsOf(cimClass)) {
        level = level->superclass_.get();
    }
    return level != nullptr;
}

/// The layout of a superclass where the chain that was used before this one has it, too; null where not.
std::shared_ptr<TClassLayout> TClassLayout::FindFormer(const boost::shared_ptr<ICIMClass>& superclass) const {
    std::shared_ptr<TClassLayout> layout = former_;
    while (layout && !layout->IsOf(superclass)) {
        layout = layout->superclass_;
    }
    return layout && !layout->HasLostASuperclass() ? layout : nullptr;
}

void TClassLayout::Link(std::shared_ptr<TClassLayout> superclass) {
    if (superclassRead_) {
        return;  // the class was asked, and meanwhile asked for an instance itself
    }
    for (const TClassLayout* level = superclass.get(); level != nullptr; level = level->superclass_.get()) {
        if (level == this) {
            superclass.reset();  // the chains have parts in common, and those must not lead back either
            break;
        }
    }
    superclassRead_ = true;
    superclass_ = std::move(superclass);
}

/// True when a class higher up is gone: another one may have taken its place.
bool TClassLayout::HasLostASuperclass() const {
    for (const TClassLayout* level = superclass_.get(); level != nullptr; level = level->superclass_.get()) {
        if (level->class_.expired()) {
            return true;
        }
    }
    return false;
}

}  // namespace NQELVSK20
