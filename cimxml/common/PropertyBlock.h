#pragma once

#include <Pegasus/Common/CIMProperty.h>

#include <memory>
#include <utility>
#include <vector>

#include "cimxml/common/CIMPropertyRep.h"
#include "cimxml/common/HandleAccess.h"

namespace Pegasus {

/// The properties of one object, made together and side by side in one piece of memory, which lives as long
/// as a handle to any of them.
class PropertyBlock {
public:
    /// Has room for `capacity` properties.
    explicit PropertyBlock(std::size_t capacity)
        : _properties(std::make_shared<std::vector<CIMPropertyRep>>()) {
        _properties->reserve(capacity);
    }

    /// A new property; the arguments and exceptions are those of CIMProperty's constructor. Beyond the
    /// capacity it gets memory of its own.
    template <class... Arguments>
    CIMProperty make(Arguments&&... arguments) {
        if (_properties->size() == _properties->capacity()) {
            return HandleAccess::make<CIMProperty>(
                std::make_shared<CIMPropertyRep>(std::forward<Arguments>(arguments)...));
        }
        CIMPropertyRep& made = _properties->emplace_back(std::forward<Arguments>(arguments)...);
        return HandleAccess::make<CIMProperty>(std::shared_ptr<CIMPropertyRep>(_properties, &made));
    }

private:
    std::shared_ptr<std::vector<CIMPropertyRep>> _properties;
};

}  // namespace Pegasus
