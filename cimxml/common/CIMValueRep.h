#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMValue.h>

#include <memory>
#include <type_traits>
#include <utility>
#include <variant>

#include "cimxml/common/ValueType.h"

namespace Pegasus {

/// The content of a value that is neither number nor text. It never changes, so that values can share it.
class CIMValueRep {
public:
    using Content =
        std::variant<CIMDateTime, CIMObjectPath, CIMObject, CIMInstance, Array<Boolean>, Array<Uint8>,
                     Array<Sint8>, Array<Uint16>, Array<Sint16>, Array<Uint32>, Array<Sint32>, Array<Uint64>,
                     Array<Sint64>, Array<Real32>, Array<Real64>, Array<Char16>, Array<String>,
                     Array<CIMDateTime>, Array<CIMObjectPath>, Array<CIMObject>, Array<CIMInstance>>;

    template <class T>
    explicit CIMValueRep(T x) : content(std::in_place_type<T>, std::move(x)) {}

    const Content content;
};

/// The library's own way to what a value holds.
struct ValueAccess {
    using Shared = std::shared_ptr<const CIMValueRep>;

    /// Gives a value new content.
    template <class T>
    static void set(CIMValue& value, T x) {
        if constexpr (std::is_constructible_v<CIMValueRep::Content, std::in_place_type_t<T>, T>) {
            value._content = std::make_shared<const CIMValueRep>(std::move(x));
        } else {
            value._content.template emplace<T>(std::move(x));
        }
        value._type = ValueType<T>::type;
        value._isArray = ValueType<T>::isArray;
        value._nullSize = 0;
    }

    /// Calls `visitor` with the content, with std::monostate for null.
    template <class Visitor>
    static auto visit(const CIMValue& value, Visitor&& visitor) {
        return std::visit(
            [&visitor](const auto& content) {
                if constexpr (std::is_same_v<std::decay_t<decltype(content)>, Shared>) {
                    return std::visit(visitor, content->content);
                } else {
                    return visitor(content);
                }
            },
            value._content);
    }

    /// The content when it is a T, else null; valid as long as the value is not changed.
    template <class T>
    static const T* find(const CIMValue& value) noexcept {
        if constexpr (std::is_constructible_v<CIMValueRep::Content, std::in_place_type_t<T>, T>) {
            const Shared* const shared = std::get_if<Shared>(&value._content);
            return shared == nullptr ? nullptr : std::get_if<T>(&(*shared)->content);
        } else {
            return std::get_if<T>(&value._content);
        }
    }
};

}  // namespace Pegasus
