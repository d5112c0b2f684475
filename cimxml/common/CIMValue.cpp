#include <Pegasus/Common/CIMValue.h>

#include <algorithm>
#include <string>
#include <type_traits>

#include "cimxml/common/CIMValueRep.h"
#include "cimxml/common/Utf8.h"
#include "cimxml/common/ValueText.h"

namespace Pegasus {

namespace {

/// What leaves or enters a value: the same for plain data, a clone for
/// embedded objects, which their holder could change otherwise.
template <class T>
const T& detached(const T& x) {
    return x;
}

CIMObject detached(const CIMObject& x) {
    return x.clone();
}

CIMInstance detached(const CIMInstance& x) {
    return x.clone();
}

template <class T>
Array<T> detachedEach(const Array<T>& x) {
    Array<T> result;
    result.reserveCapacity(x.size());
    for (Uint32 i = 0; i < x.size(); ++i) {
        result.append(x[i].clone());
    }
    return result;
}

Array<CIMObject> detached(const Array<CIMObject>& x) {
    return detachedEach(x);
}

Array<CIMInstance> detached(const Array<CIMInstance>& x) {
    return detachedEach(x);
}

template <class T>
void read(const CIMValue& value, T& x) {
    if (value.getType() != ValueType<T>::type || value.isArray() != ValueType<T>::isArray) {
        throw TypeMismatchException();
    }
    if (const T* const content = ValueAccess::find<T>(value)) {
        x = detached(*content);
    }
}

template <class T>
bool equalContent(const T& x, const T& y) {
    return x == y;
}

bool equalContent(const std::monostate&, const std::monostate&) {
    return true;
}

bool equalContent(const CIMObject& x, const CIMObject& y) {
    return x.identical(y);
}

bool equalContent(const CIMInstance& x, const CIMInstance& y) {
    return x.identical(y);
}

template <class T>
bool equalContent(const Array<T>& x, const Array<T>& y) {
    const T* const first = x.getData();
    const auto equalItems = [](const T& a, const T& b) { return equalContent(a, b); };
    return x.size() == y.size() && std::equal(first, first + x.size(), y.getData(), equalItems);
}

struct SizeReader {
    template <class T>
    Uint32 operator()(const T&) const {
        return 0;
    }
    template <class T>
    Uint32 operator()(const Array<T>& x) const {
        return x.size();
    }
};

/// Appends the text of a value.
struct TextAppender {
    std::string& out;

    void operator()(const std::monostate&) const {}
    void operator()(const Boolean& x) const { appendBoolean(out, x); }
    void operator()(const Real32& x) const { appendReal(out, Real64{x}, kReal64Digits); }
    void operator()(const Real64& x) const { appendReal(out, x, kReal64Digits); }
    void operator()(const Char16& x) const { appendUtf8(out, x); }
    void operator()(const String& x) const { appendUtf8(out, x); }

    template <class T>
    void operator()(const T& x) const {
        if constexpr (std::is_integral_v<T>) {
            out += std::to_string(x);
        } else {
            appendUtf8(out, x.toString());
        }
    }

    template <class T>
    void operator()(const Array<T>& x) const {
        for (Uint32 i = 0; i < x.size(); ++i) {
            (*this)(x[i]);
            out += ' ';
        }
    }
};

}  // namespace

CIMValue::CIMValue(CIMType type, Boolean isArray, Uint32 arraySize)
    : _type(type), _isArray(isArray), _nullSize(isArray ? arraySize : 0) {}

void CIMValue::setNullValue(CIMType type, Boolean isArray, Uint32 arraySize) {
    *this = CIMValue(type, isArray, arraySize);
}

// Every type has its own constructor, setter and getter in the API; they all
// do the same.
// NOLINTBEGIN(bugprone-macro-parentheses): the arguments are types
#define CIMXML_DEFINE_ACCESS(PARAMETER, TYPE)       \
    CIMValue::CIMValue(PARAMETER x) {               \
        ValueAccess::set(*this, TYPE(detached(x))); \
    }                                               \
    void CIMValue::set(PARAMETER x) {               \
        ValueAccess::set(*this, TYPE(detached(x))); \
    }                                               \
    void CIMValue::get(TYPE& x) const {             \
        read(*this, x);                             \
    }
#define CIMXML_DEFINE_SCALAR(TYPE)   \
    CIMXML_DEFINE_ACCESS(TYPE, TYPE) \
    CIMXML_DEFINE_ACCESS(const Array<TYPE>&, Array<TYPE>)
// NOLINTEND(bugprone-macro-parentheses)
#define CIMXML_DEFINE_OBJECT(TYPE)          \
    CIMXML_DEFINE_ACCESS(const TYPE&, TYPE) \
    CIMXML_DEFINE_ACCESS(const Array<TYPE>&, Array<TYPE>)

CIMXML_DEFINE_SCALAR(Boolean)
CIMXML_DEFINE_SCALAR(Uint8)
CIMXML_DEFINE_SCALAR(Sint8)
CIMXML_DEFINE_SCALAR(Uint16)
CIMXML_DEFINE_SCALAR(Sint16)
CIMXML_DEFINE_SCALAR(Uint32)
CIMXML_DEFINE_SCALAR(Sint32)
CIMXML_DEFINE_SCALAR(Uint64)
CIMXML_DEFINE_SCALAR(Sint64)
CIMXML_DEFINE_SCALAR(Real32)
CIMXML_DEFINE_SCALAR(Real64)
CIMXML_DEFINE_OBJECT(Char16)
CIMXML_DEFINE_OBJECT(String)
CIMXML_DEFINE_OBJECT(CIMDateTime)
CIMXML_DEFINE_OBJECT(CIMObjectPath)
CIMXML_DEFINE_OBJECT(CIMObject)
CIMXML_DEFINE_OBJECT(CIMInstance)

#undef CIMXML_DEFINE_OBJECT
#undef CIMXML_DEFINE_SCALAR
#undef CIMXML_DEFINE_ACCESS

Boolean CIMValue::typeCompatible(const CIMValue& x) const {
    return getType() == x.getType() && isArray() == x.isArray();
}

Uint32 CIMValue::getArraySize() const {
    return isNull() ? _nullSize : ValueAccess::visit(*this, SizeReader());
}

Boolean CIMValue::equal(const CIMValue& x) const {
    if (!typeCompatible(x)) {
        return false;
    }
    return ValueAccess::visit(*this, [&x](const auto& content) {
        const auto* const other = ValueAccess::find<std::decay_t<decltype(content)>>(x);
        return other && equalContent(content, *other);
    });
}

String CIMValue::toString() const {
    std::string text;
    ValueAccess::visit(*this, TextAppender{text});
    return fromUtf8(text);
}

Boolean operator==(const CIMValue& x, const CIMValue& y) {
    return x.equal(y);
}

Boolean operator!=(const CIMValue& x, const CIMValue& y) {
    return !x.equal(y);
}

}  // namespace Pegasus
