#pragma once

#include <Pegasus/Common/Char16.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>

#include <iosfwd>
#include <utility>

namespace Pegasus {

struct StringRep;

/// A NUL-terminated UTF-8 text that its holder owns: what
/// String::getCString() returns.
class PEGASUS_COMMON_LINKAGE CString {
public:
    CString() noexcept = default;
    CString(const CString& other);
    CString(CString&& other) noexcept : _text(std::exchange(other._text, nullptr)) {}
    ~CString();

    CString& operator=(const CString& other);
    CString& operator=(CString&& other) noexcept {
        std::swap(_text, other._text);
        return *this;
    }

    /// The text, owned by this object; null when default-constructed.
    operator const char*() const noexcept { return _text; }

private:
    friend class String;
    explicit CString(char* text) noexcept : _text(text) {}

    char* _text = nullptr;
};

/// A text in UTF-16. Copies share their characters until one of them is
/// changed, so that copying costs no more than counting a reference. Texts of
/// `char` are UTF-8; a malformed one throws Exception. Null pointers throw
/// Exception. Different objects may be used in different threads.
class PEGASUS_COMMON_LINKAGE String {
public:
    static const String EMPTY;

    constexpr String() noexcept = default;
    String(const String& other) noexcept;
    String(String&& other) noexcept : _rep(std::exchange(other._rep, nullptr)) {}
    /// The first `n` characters of `other`.
    String(const String& other, Uint32 n);
    String(const Char16* str);
    String(const Char16* str, Uint32 n);
    String(const char* str);
    String(const char* str, Uint32 n);
    ~String();

    String& operator=(const String& other) noexcept;
    String& operator=(String&& other) noexcept {
        std::swap(_rep, other._rep);
        return *this;
    }

    String& assign(const String& other);
    String& assign(const Char16* str);
    String& assign(const Char16* str, Uint32 n);
    String& assign(const char* str);
    String& assign(const char* str, Uint32 n);

    void clear() noexcept;
    void reserveCapacity(Uint32 capacity);

    /// Number of UTF-16 code units.
    Uint32 size() const noexcept;

    /// The characters, followed by a NUL; valid until this object changes.
    const Char16* getChar16Data() const noexcept;

    /// The text in UTF-8; an unpaired surrogate becomes U+FFFD.
    CString getCString() const;

    /// The character at `index`, which may be size() to give NUL; beyond that
    /// IndexOutOfBoundsException.
    Char16& operator[](Uint32 index);
    const Char16 operator[](Uint32 index) const;

    String& append(const Char16& c);
    String& append(const Char16* str, Uint32 n);
    String& append(const String& str);

    /// Removes `n` characters from `index` on: to the end by default.
    void remove(Uint32 index, Uint32 n = PEG_NOT_FOUND);
    /// At most `n` characters from `index` on; empty when `index` is beyond the end.
    String subString(Uint32 index, Uint32 n = PEG_NOT_FOUND) const;

    /// The find operations return an index or PEG_NOT_FOUND.
    Uint32 find(Char16 c) const;
    Uint32 find(Uint32 index, Char16 c) const;
    Uint32 find(const String& s) const;
    Uint32 reverseFind(Char16 c) const;

    /// Changes the letters A to Z (and no others) to lower case.
    void toLower();

    void appendPrintf(const char* format, ...) PEGASUS_FORMAT(2, 3);

    /// Negative, zero or positive, as `s1` is less than, equal to or greater
    /// than `s2` by code units; of at most `n` characters in the first form.
    static int compare(const String& s1, const String& s2, Uint32 n);
    static int compare(const String& s1, const String& s2);
    static int compareNoCase(const String& s1, const String& s2);
    static Boolean equal(const String& s1, const String& s2);
    static Boolean equalNoCase(const String& s1, const String& s2);

private:
    StringRep* _rep = nullptr;  // null: the empty text
};

PEGASUS_COMMON_LINKAGE Boolean operator==(const String& s1, const String& s2);
PEGASUS_COMMON_LINKAGE Boolean operator==(const String& s1, const char* s2);
PEGASUS_COMMON_LINKAGE Boolean operator==(const char* s1, const String& s2);
PEGASUS_COMMON_LINKAGE Boolean operator!=(const String& s1, const String& s2);
PEGASUS_COMMON_LINKAGE Boolean operator<(const String& s1, const String& s2);
PEGASUS_COMMON_LINKAGE Boolean operator<=(const String& s1, const String& s2);
PEGASUS_COMMON_LINKAGE Boolean operator>(const String& s1, const String& s2);
PEGASUS_COMMON_LINKAGE Boolean operator>=(const String& s1, const String& s2);
PEGASUS_COMMON_LINKAGE String operator+(const String& s1, const String& s2);

/// Writes codes up to 255 as one byte each and others as \x and four digits.
PEGASUS_COMMON_LINKAGE std::ostream& operator<<(std::ostream& os, const String& str);

}  // namespace Pegasus
