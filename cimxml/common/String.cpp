#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

#include <algorithm>
#include <atomic>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <ostream>
#include <string>
#include <vector>

#include "cimxml/common/Utf8.h"

namespace Pegasus {

/// Characters that any number of Strings share. They stand behind the header,
/// `capacity` of them and a NUL.
struct StringRep {
    std::atomic<Uint32> references{1};
    Uint32 size = 0;
    Uint32 capacity = 0;

    Char16* data() noexcept { return reinterpret_cast<Char16*>(this + 1); }

    static StringRep* allocate(Uint32 capacity) {
        const std::size_t bytes = sizeof(StringRep) + (std::size_t{capacity} + 1) * sizeof(Char16);
        auto* const rep = ::new (::operator new(bytes)) StringRep;
        rep->capacity = capacity;
        std::uninitialized_default_construct_n(rep->data(), std::size_t{capacity} + 1);
        return rep;
    }

    static StringRep* copy(const Char16* str, Uint32 n) {
        if (n == 0) {
            return nullptr;
        }
        StringRep* const rep = allocate(n);
        std::copy_n(str, n, rep->data());
        rep->resize(n);
        return rep;
    }

    static void release(StringRep* rep) noexcept {
        if (rep && rep->references.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            rep->~StringRep();
            ::operator delete(rep);
        }
    }

    void retain() noexcept { references.fetch_add(1, std::memory_order_relaxed); }
    bool isShared() const noexcept { return references.load(std::memory_order_acquire) != 1; }

    void resize(Uint32 n) noexcept {
        size = n;
        data()[n] = 0;
    }
};

namespace {

constexpr Char16 kNul;

void requireText(const void* str) {
    if (!str) {
        throw Exception("null pointer");
    }
}

Uint32 checkedLength(const char* str) {
    requireText(str);
    return static_cast<Uint32>(std::strlen(str));
}

Uint32 checkedLength(const Char16* str) {
    requireText(str);
    const Char16* end = str;
    while (*end != kNul) {
        ++end;
    }
    return static_cast<Uint32>(end - str);
}

constexpr Uint16 toLowerAscii(Uint16 c) {
    return c >= 'A' && c <= 'Z' ? static_cast<Uint16>(c - 'A' + 'a') : c;
}

bool isTrail(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

/// Length of the UTF-8 sequence (Unicode, table 3-7) at `p`, of which `n` bytes
/// are there; 0 when it is malformed. Surrogates, though malformed, are let
/// through: decode() replaces them.
Uint32 sequenceLength(const unsigned char* p, Uint32 n) {
    const unsigned char lead = p[0];
    if (lead < 0x80) {
        return 1;
    }
    if (lead < 0xC2 || lead > 0xF4) {
        return 0;
    }
    const Uint32 length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (n < length || !std::all_of(p + 1, p + length, isTrail)) {
        return 0;
    }
    const bool isOverlong = (lead == 0xE0 && p[1] < 0xA0) || (lead == 0xF0 && p[1] < 0x90);
    const bool isBeyondUnicode = lead == 0xF4 && p[1] > 0x8F;
    return isOverlong || isBeyondUnicode ? 0 : length;
}

char32_t decode(const unsigned char* p, Uint32 length) {
    static constexpr unsigned char kLeadMask[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t c = p[0] & kLeadMask[length];
    for (Uint32 i = 1; i < length; ++i) {
        c = c << 6 | (p[i] & 0x3F);
    }
    const bool isSurrogate = c >= 0xD800 && c <= 0xDFFF;
    return isSurrogate ? 0xFFFD : c;
}

[[noreturn]] void throwMalformedUtf8(const char* str, Uint32 n, Uint32 index) {
    constexpr Uint32 kContext = 40;
    constexpr Uint32 kShownBytes = 11;
    Uint32 first = index > kContext ? index - kContext : 0;
    while (first < index && isTrail(static_cast<unsigned char>(str[first]))) {
        ++first;  // start with a whole character
    }
    std::string shown(str + first, index - first);
    for (Uint32 i = index; i < n && i < index + kShownBytes; ++i) {
        char hex[8];
        std::snprintf(hex, sizeof hex, " 0x%02X", static_cast<unsigned>(static_cast<unsigned char>(str[i])));
        shown += hex;
    }
    throw Exception(fromUtf8("The byte sequence starting at index " + std::to_string(index) +
                             " is not valid UTF-8 encoding: " + shown));
}

/// Number of bytes before the first that is not ASCII.
Uint32 countAscii(const char* str, Uint32 n) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    Uint32 i = 0;
    for (std::uint64_t block = 0; i + sizeof block <= n; i += sizeof block) {
        std::memcpy(&block, str + i, sizeof block);
        if ((block & kHighBits) != 0) {
            break;
        }
    }
    while (i < n && static_cast<unsigned char>(str[i]) < 0x80) {
        ++i;
    }
    return i;
}

/// Writes `n` bytes of UTF-8 as UTF-16 to `out`, which has room for `n` code
/// units, and returns their number.
Uint32 decodeUtf8(Char16* out, const char* str, Uint32 n) {
    const auto* const bytes = reinterpret_cast<const unsigned char*>(str);
    Uint32 i = countAscii(str, n);
    Char16* p = std::copy_n(bytes, i, out);
    while (i < n) {
        if (bytes[i] < 0x80) {
            *p++ = bytes[i++];
            continue;
        }
        const Uint32 length = sequenceLength(bytes + i, n - i);
        if (length == 0) {
            throwMalformedUtf8(str, n, i);
        }
        const char32_t c = decode(bytes + i, length);
        if (c < 0x10000) {
            *p++ = static_cast<Uint16>(c);
        } else {
            *p++ = static_cast<Uint16>(0xD800 + ((c - 0x10000) >> 10));
            *p++ = static_cast<Uint16>(0xDC00 + ((c - 0x10000) & 0x3FF));
        }
        i += length;
    }
    return static_cast<Uint32>(p - out);
}

StringRep* repFromUtf8(const char* str, Uint32 n) {
    requireText(str);
    if (n == 0) {
        return nullptr;
    }
    StringRep* const rep = StringRep::allocate(n);
    try {
        rep->resize(decodeUtf8(rep->data(), str, n));
    } catch (...) {
        StringRep::release(rep);
        throw;
    }
    return rep;
}

Uint32 sum(Uint32 a, Uint32 b) {
    if (b >= std::numeric_limits<Uint32>::max() - a) {
        throw std::bad_alloc();
    }
    return a + b;
}

template <class Fold>
int compareFolded(const Char16* p, const Char16* q, Uint32 n, Fold fold) {
    for (; n > 0; ++p, ++q, --n) {
        const int difference = int{fold(*p)} - int{fold(*q)};
        if (difference != 0 || *p == kNul) {
            return difference;
        }
    }
    return 0;
}

/// Of texts that agree as far as the shorter one goes, the longer is greater by one.
int compareSizes(const String& s1, const String& s2) {
    return s1.size() == s2.size() ? 0 : s1.size() < s2.size() ? -1 : 1;
}

template <class Fold>
int compareFolded(const String& s1, const String& s2, Fold fold) {
    const Uint32 common = std::min(s1.size(), s2.size());
    const int difference = compareFolded(s1.getChar16Data(), s2.getChar16Data(), common, fold);
    return difference != 0 ? difference : compareSizes(s1, s2);
}

}  // namespace

const String String::EMPTY;

String::String(const String& other) noexcept : _rep(other._rep) {
    if (_rep) {
        _rep->retain();
    }
}

String::String(const String& other, Uint32 n) {
    if (n > other.size()) {
        detail::throwIndexOutOfBounds();
    }
    _rep = StringRep::copy(other.getChar16Data(), n);
}

String::String(const Char16* str) : _rep(StringRep::copy(str, checkedLength(str))) {}

String::String(const Char16* str, Uint32 n) {
    requireText(str);
    _rep = StringRep::copy(str, n);
}

String::String(const char* str) : _rep(repFromUtf8(str, checkedLength(str))) {}

String::String(const char* str, Uint32 n) : _rep(repFromUtf8(str, n)) {}

String::~String() {
    StringRep::release(_rep);
}

String& String::operator=(const String& other) noexcept {
    return *this = String(other);
}

String& String::assign(const String& other) {
    return *this = other;
}

String& String::assign(const Char16* str) {
    return *this = String(str);
}

String& String::assign(const Char16* str, Uint32 n) {
    return *this = String(str, n);
}

String& String::assign(const char* str) {
    return *this = String(str);
}

String& String::assign(const char* str, Uint32 n) {
    return *this = String(str, n);
}

void String::clear() noexcept {
    StringRep::release(std::exchange(_rep, nullptr));
}

void String::reserveCapacity(Uint32 capacity) {
    const Uint32 needed = std::max(capacity, size());
    if (_rep && !_rep->isShared() && _rep->capacity >= needed) {
        return;
    }
    StringRep* const rep = StringRep::allocate(needed);
    std::copy_n(getChar16Data(), size(), rep->data());
    rep->resize(size());
    StringRep::release(std::exchange(_rep, rep));
}

Uint32 String::size() const noexcept {
    return _rep ? _rep->size : 0;
}

const Char16* String::getChar16Data() const noexcept {
    return _rep ? _rep->data() : &kNul;
}

CString String::getCString() const {
    if (isAscii(*this)) {
        char* const copy = new char[std::size_t{size()} + 1];
        copyAscii(copy, *this);
        copy[size()] = '\0';
        return CString(copy);
    }
    const std::string text = toUtf8(*this);
    char* const copy = new char[text.size() + 1];
    std::memcpy(copy, text.c_str(), text.size() + 1);
    return CString(copy);
}

Char16& String::operator[](Uint32 index) {
    if (index > size()) {
        detail::throwIndexOutOfBounds();
    }
    reserveCapacity(size());
    return _rep->data()[index];
}

const Char16 String::operator[](Uint32 index) const {
    if (index > size()) {
        detail::throwIndexOutOfBounds();
    }
    return getChar16Data()[index];
}

String& String::append(const Char16& c) {
    const Char16 copy = c;  // c may be one of our own characters
    return append(&copy, 1);
}

String& String::append(const Char16* str, Uint32 n) {
    requireText(str);
    if (n == 0) {
        return *this;
    }
    const Uint32 newSize = sum(size(), n);
    if (_rep && !_rep->isShared() && _rep->capacity >= newSize) {
        std::copy_n(str, n, _rep->data() + _rep->size);
        _rep->resize(newSize);
        return *this;
    }
    // str may lie within this text, so that the old characters go last.
    StringRep* const rep = StringRep::allocate(std::max({newSize, size() + size() / 2, 8u}));
    std::copy_n(getChar16Data(), size(), rep->data());
    std::copy_n(str, n, rep->data() + size());
    rep->resize(newSize);
    StringRep::release(std::exchange(_rep, rep));
    return *this;
}

String& String::append(const String& str) {
    return append(str.getChar16Data(), str.size());
}

void String::remove(Uint32 index, Uint32 n) {
    if (index > size()) {
        detail::throwIndexOutOfBounds();
    }
    if (n == PEG_NOT_FOUND) {
        n = size() - index;
    }
    if (n > size() - index) {
        detail::throwIndexOutOfBounds();
    }
    if (n == 0) {
        return;
    }
    reserveCapacity(size());
    Char16* const data = _rep->data();
    std::copy(data + index + n, data + _rep->size, data + index);
    _rep->resize(_rep->size - n);
}

String String::subString(Uint32 index, Uint32 n) const {
    if (index >= size()) {
        return String();
    }
    return String(getChar16Data() + index, std::min(n, size() - index));
}

Uint32 String::find(Char16 c) const {
    return find(0, c);
}

Uint32 String::find(Uint32 index, Char16 c) const {
    if (index > size()) {
        detail::throwIndexOutOfBounds();
    }
    const Char16* const first = getChar16Data();
    const Char16* const last = first + size();
    const Char16* const found = std::find(first + index, last, c);
    return found == last ? PEG_NOT_FOUND : static_cast<Uint32>(found - first);
}

Uint32 String::find(const String& s) const {
    if (s.size() == 0) {
        return PEG_NOT_FOUND;
    }
    const Char16* const first = getChar16Data();
    const Char16* const last = first + size();
    const Char16* const found = std::search(first, last, s.getChar16Data(), s.getChar16Data() + s.size());
    return found == last ? PEG_NOT_FOUND : static_cast<Uint32>(found - first);
}

Uint32 String::reverseFind(Char16 c) const {
    const Char16* const first = getChar16Data();
    for (Uint32 i = size(); i > 0; --i) {
        if (first[i - 1] == c) {
            return i - 1;
        }
    }
    return PEG_NOT_FOUND;
}

void String::toLower() {
    if (size() == 0) {
        return;
    }
    reserveCapacity(size());
    Char16* const data = _rep->data();
    std::transform(data, data + _rep->size, data, toLowerAscii);
}

void String::appendPrintf(const char* format, ...) {
    std::va_list arguments;
    std::va_list again;
    va_start(arguments, format);
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    std::vector<char> text(length > 0 ? static_cast<std::size_t>(length) + 1 : 1);
    std::vsnprintf(text.data(), text.size(), format, again);
    va_end(again);
    append(String(text.data()));
}

int String::compare(const String& s1, const String& s2, Uint32 n) {
    // The NUL at the end of the shorter text ends the comparison.
    const Uint32 limit = std::min(n, std::min(s1.size(), s2.size()) + 1);
    return compareFolded(s1.getChar16Data(), s2.getChar16Data(), limit, [](Uint16 c) { return c; });
}

int String::compare(const String& s1, const String& s2) {
    return compareFolded(s1, s2, [](Uint16 c) { return c; });
}

int String::compareNoCase(const String& s1, const String& s2) {
    return compareFolded(s1, s2, toLowerAscii);
}

Boolean String::equal(const String& s1, const String& s2) {
    if (s1._rep == s2._rep) {
        return true;
    }
    return s1.size() == s2.size() &&
           std::memcmp(s1.getChar16Data(), s2.getChar16Data(), s1.size() * sizeof(Char16)) == 0;
}

Boolean String::equalNoCase(const String& s1, const String& s2) {
    if (s1._rep == s2._rep) {
        return true;
    }
    const Char16* const p = s1.getChar16Data();
    const auto equalChars = [](Char16 x, Char16 y) { return x == y || toLowerAscii(x) == toLowerAscii(y); };
    return s1.size() == s2.size() && std::equal(p, p + s1.size(), s2.getChar16Data(), equalChars);
}

Boolean operator==(const String& s1, const String& s2) {
    return String::equal(s1, s2);
}

Boolean operator==(const String& s1, const char* s2) {
    return String::equal(s1, String(s2));
}

Boolean operator==(const char* s1, const String& s2) {
    return String::equal(String(s1), s2);
}

Boolean operator!=(const String& s1, const String& s2) {
    return !String::equal(s1, s2);
}

Boolean operator<(const String& s1, const String& s2) {
    return String::compare(s1, s2) < 0;
}

Boolean operator<=(const String& s1, const String& s2) {
    return String::compare(s1, s2) <= 0;
}

Boolean operator>(const String& s1, const String& s2) {
    return String::compare(s1, s2) > 0;
}

Boolean operator>=(const String& s1, const String& s2) {
    return String::compare(s1, s2) >= 0;
}

String operator+(const String& s1, const String& s2) {
    String result;
    result.reserveCapacity(sum(s1.size(), s2.size()));
    return result.append(s1).append(s2);
}

std::ostream& operator<<(std::ostream& os, const String& str) {
    const Char16* const data = str.getChar16Data();
    for (Uint32 i = 0; i < str.size(); ++i) {
        const Uint16 c = data[i];
        if (c > 0 && c <= 0xFF) {
            os << static_cast<char>(c);
        } else {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\x%04X", static_cast<unsigned>(c));
            os << escape;
        }
    }
    return os;
}

}  // namespace Pegasus
