#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "inmem/TClassLayout.h"
#include "inmem/TInmemProperty.h"

namespace NQELVSK20 {

/// The properties of an instance in memory, each at the position that the layout of the class gives it. They
/// stay where they are when others are set.
class TInmemProperties {
public:
    /// None is set.
    explicit TInmemProperties(std::shared_ptr<TClassLayout> layout);

    /// A property, sought without regard to case; null when it was not set. Throws status 15 when no class of
    /// the chain declares it.
    TInmemProperty* Find(const std::string& name);

    /// Sets a property. Throws the same.
    void Set(const std::string& name, const TCIMValue& value);

    /// Those that were set, in the order of their normalised names.
    std::vector<TInmemProperty*> InOrder();

    /// Appends the bindings of the keys to an object path.
    void AppendKeys(std::string& path);

    const std::shared_ptr<TClassLayout>& Layout() const { return layout_; }

private:
    std::size_t PositionOf(const std::string& name);
    TInmemProperty* At(std::size_t position);

    std::shared_ptr<TClassLayout> layout_;
    std::deque<TInmemProperty> properties_;  // by position
    std::size_t expected_ = 0;               // the position after the one that was sought last
};

}  // namespace NQELVSK20
