#include <Pegasus/Common/String.h>

#include <cstring>

namespace Pegasus {

namespace {

char* duplicate(const char* text) {
    if (!text) {
        return nullptr;
    }
    const std::size_t bytes = std::strlen(text) + 1;
    return static_cast<char*>(std::memcpy(new char[bytes], text, bytes));
}

}  // namespace

CString::CString(const CString& other) : _text(duplicate(other._text)) {}

CString::~CString() {
    delete[] _text;
}

CString& CString::operator=(const CString& other) {
    CString copy(other);
    std::swap(_text, copy._text);
    return *this;
}

}  // namespace Pegasus
