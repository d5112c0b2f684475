#include "inmem/TClassLayout.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "vskcore/ICIMClass.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

namespace {

/// The layouts that were asked for, by the address of their class.
struct TCache {
    std::mutex mutex;
    std::unordered_map<const ICIMClass*, std::shared_ptr<TClassLayout>> layouts;
    std::size_t purgeAt = 64;
};

TCache& Cache() {
    static TCache cache;
    return cache;
}

std::mutex& LinkMutex() {
    static std::mutex mutex;
    return mutex;
}

bool Contains(const TClassLayout::Names& names, const std::string& name) {
    return std::any_of(names.begin(), names.end(),
                       [&name](const TClassLayout::Name& other) { return SameName(*other, name); });
}

}  // namespace

std::shared_ptr<TClassLayout> TClassLayout::Of(const boost::shared_ptr<ICIMClass>& cimClass) {
    TCache& cache = Cache();
    const std::lock_guard<std::mutex> lock(cache.mutex);
    std::shared_ptr<TClassLayout>& layout = cache.layouts[cimClass.get()];
    // An address may have been used by another class before; that one's weak pointer locks no more.
    const bool isOfThisClass = layout && layout->class_.lock() == cimClass;
    const bool isWorthKeeping = isOfThisClass && (layout.use_count() > 1 || !layout->IsChainBroken());
    if (!isWorthKeeping) {
        layout = std::make_shared<TClassLayout>(cimClass);
    }
    std::shared_ptr<TClassLayout> result = layout;
    if (cache.layouts.size() >= cache.purgeAt) {
        for (auto entry = cache.layouts.begin(); entry != cache.layouts.end();) {
            entry = entry->second->class_.expired() ? cache.layouts.erase(entry) : std::next(entry);
        }
        cache.purgeAt = std::max<std::size_t>(64, 2 * cache.layouts.size());
    }
    return result;
}

TClassLayout::TClassLayout(const boost::shared_ptr<ICIMClass>& cimClass) : class_(cimClass) {}

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
            const std::lock_guard<std::mutex> lock(mutex_);
            known_.insert(found);
            return found;
        }
    }
    return nullptr;
}

std::shared_ptr<const TClassLayout::Names> TClassLayout::Keys() {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (keys_) {
            return keys_;
        }
    }
    ReadMembersOnce();
    Names keys;
    for (TClassLayout* level = this; level != nullptr; level = Above(*level)) {
        for (const Name& key : level->OwnKeys()) {
            if (!Contains(keys, *key)) {
                keys.push_back(key);
            }
        }
    }
    std::sort(keys.begin(), keys.end(),
              [](const Name& left, const Name& right) { return TNameLess()(*left, *right); });
    const std::lock_guard<std::mutex> lock(mutex_);
    keys_ = std::make_shared<const Names>(std::move(keys));
    return keys_;
}

/// A property that was read before, here or higher up.
TClassLayout::Name TClassLayout::FindKnown(const std::string& name) const {
    const Name borrowed(Name(), &name);  // owns nothing
    const std::lock_guard<std::mutex> lock(mutex_);
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
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (membersRead_) {
            return;
        }
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
    const std::lock_guard<std::mutex> lock(mutex_);
    membersRead_ = true;
    known_.insert(properties.begin(), properties.end());
    ownKeys_ = std::move(keys);
    keys_.reset();
}

TClassLayout::Names TClassLayout::OwnKeys() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return ownKeys_;
}

/// The layout one level up from a layout of this one's chain; null where the chain ends.
TClassLayout* TClassLayout::Above(TClassLayout& level) {
    const auto known = [&level](TClassLayout*& superclass) {
        const std::lock_guard<std::mutex> lock(LinkMutex());
        superclass = level.superclass_.get();
        return level.superclassRead_;
    };
    TClassLayout* superclass = nullptr;
    if (known(superclass) || IsChainBroken()) {
        return superclass;
    }
    try {
        if (level.ReadSuperclass()) {
            known(superclass);
            return superclass;
        }
    } catch (...) {  // remote failures have no base class of their own
    }
    const std::lock_guard<std::mutex> lock(mutex_);
    chainBroken_ = true;
    return nullptr;
}

/// Asks the class for its superclass and reads that one's members; false when it cannot be told.
bool TClassLayout::ReadSuperclass() {
    const boost::shared_ptr<ICIMClass> cimClass = class_.lock();
    const boost::shared_ptr<ICIMClass> superclass = cimClass ? cimClass->GetSuperClass({}) : nullptr;
    if (!superclass) {
        return false;
    }
    if (superclass->GetName({}) == "<root>") {
        Link(nullptr);
        return true;
    }
    const std::shared_ptr<TClassLayout> layout = Of(superclass);
    layout->ReadMembersOnce();
    Link(layout);
    return true;
}

void TClassLayout::Link(std::shared_ptr<TClassLayout> superclass) {
    const std::lock_guard<std::mutex> lock(LinkMutex());
    if (superclassRead_) {
        return;
    }
    for (const TClassLayout* level = superclass.get(); level != nullptr; level = level->superclass_.get()) {
        if (level == this) {
            superclass.reset();  // a chain that leads back to its beginning ends before it does
            break;
        }
    }
    superclassRead_ = true;
    superclass_ = std::move(superclass);
}

bool TClassLayout::IsChainBroken() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return chainBroken_;
}

}  // namespace NQELVSK20
