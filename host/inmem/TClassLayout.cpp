#include "inmem/TClassLayout.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "vskcore/HostState.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

namespace {

bool Contains(const std::vector<TClassLayout::TKey>& keys, const std::string& name) {
    return std::any_of(keys.begin(), keys.end(),
                       [&name](const TClassLayout::TKey& key) { return SameName(key.name, name); });
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

std::size_t TClassLayout::PositionOf(const std::string& name, std::size_t expected) {
    if (IsAt(expected, name)) {
        return expected;
    }
    const std::string* declared = FindDeclared(name);
    return declared != nullptr ? GivePosition(*declared) : kNowhere;
}

bool TClassLayout::IsAt(std::size_t position, const std::string& name) const {
    // Plug-ins mostly give names in their normalised form, which is then the same text.
    return position < names_.size() && SameName(names_[position].normalized, name);
}

/// The position of a property that the chain declares, a new one unless it has one.
std::size_t TClassLayout::GivePosition(const std::string& declared) {
    std::size_t& position = known_.emplace(declared, kNowhere).first->second;
    if (position == kNowhere) {
        position = names_.size();
        names_.push_back({declared, NormalizedName(declared)});
    }
    return position;
}

const std::vector<std::size_t>& TClassLayout::InNameOrder() {
    if (inNameOrder_.size() < names_.size()) {
        inNameOrder_.resize(names_.size());
        std::iota(inNameOrder_.begin(), inNameOrder_.end(), 0);
        std::sort(inNameOrder_.begin(), inNameOrder_.end(), [this](std::size_t left, std::size_t right) {
            return names_[left].normalized < names_[right].normalized;
        });
    }
    return inNameOrder_;
}

const std::vector<TClassLayout::TKey>& TClassLayout::Keys() {
    if (keysRead_) {
        return keys_;
    }
    ReadMembersOnce();
    std::vector<TKey> keys;
    for (TClassLayout* level = this; level != nullptr; level = Above(*level)) {
        for (const std::string& name : level->ownKeys_) {
            if (!Contains(keys, name)) {
                keys.push_back({name, kNowhere});
            }
        }
    }
    std::sort(keys.begin(), keys.end(),
              [](const TKey& left, const TKey& right) { return TNameLess()(left.name, right.name); });
    for (TKey& key : keys) {
        const std::string* declared = FindRead(key.name);
        key.position = declared != nullptr ? GivePosition(*declared) : kNowhere;
    }
    keys_ = std::move(keys);
    keysRead_ = true;
    return keys_;
}

/// A property as the chain declares it; null when no class does.
const std::string* TClassLayout::FindDeclared(const std::string& name) {
    if (const std::string* known = FindKnown(name)) {
        return known;
    }
    ReadMembersOnce();
    for (TClassLayout* level = this; level != nullptr; level = Above(*level)) {
        const std::string* known = level->FindKnown(name);
        if (known == nullptr) {
            known = level->FindAdded(name);
        }
        if (known != nullptr) {
            return known;
        }
    }
    return nullptr;
}

/// The same among the members that have been read.
const std::string* TClassLayout::FindRead(const std::string& name) const {
    const std::string* known = nullptr;
    for (const TClassLayout* level = this; level != nullptr && known == nullptr;
         level = level->superclass_.get()) {
        known = level->FindKnown(name);
    }
    return known;
}

/// A property that was read before, here or higher up.
const std::string* TClassLayout::FindKnown(const std::string& name) const {
    const auto found = known_.find(name);
    return found != known_.end() ? &found->first : nullptr;
}

/// A property that was added to this class since its members were read.
const std::string* TClassLayout::FindAdded(const std::string& name) {
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
    cimClass.EnumeratePropertyDecls(
        [this](const boost::shared_ptr<ICIMPropertyDecl>& declaration) {
            known_.emplace(declaration->GetName({}), kNowhere);
            return true;
        },
        {});
    ownKeys_.clear();
    cimClass.EnumerateKeyPropertyNames(
        [this](const std::string& name) {
            ownKeys_.push_back(name);
            return true;
        },
        {});
    membersRead_ = true;
    keysRead_ = false;
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
