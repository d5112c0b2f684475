#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

#include <string>

namespace NQELVSK20 {

/// An ASCII letter in lower case, whatever locale the host has set: what CIM compares without regard to case
/// is not language. Any other character as it is.
inline char LowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// The same for every character of a text.
inline std::string LowerCase(std::string text) {
    for (char& c : text) {
        c = LowerCase(c);
    }
    return text;
}

/// Text of the remote library as UTF-8.
inline std::string ToText(const Pegasus::String& text) {
    return static_cast<const char*>(text.getCString());
}

inline std::string ToText(const Pegasus::CIMName& name) {
    return ToText(name.getString());
}

inline std::string ToText(const Pegasus::CIMNamespaceName& name) {
    return ToText(name.getString());
}

/// Message of a remote library's exception as UTF-8.
inline std::string ToText(const Pegasus::Exception& error) {
    return ToText(error.getMessage());
}

/// UTF-8 as text of the remote library.
inline Pegasus::String FromText(const std::string& text) {
    return Pegasus::String(text.c_str(), static_cast<Pegasus::Uint32>(text.size()));
}

/// A name of the remote library; empty text gives the null name, which stands for "no class".
inline Pegasus::CIMName FromName(const std::string& name) {
    return name.empty() ? Pegasus::CIMName() : Pegasus::CIMName(FromText(name));
}

/// The same for a namespace name.
inline Pegasus::CIMNamespaceName FromNamespace(const std::string& name) {
    return name.empty() ? Pegasus::CIMNamespaceName() : Pegasus::CIMNamespaceName(FromText(name));
}

}  // namespace NQELVSK20
