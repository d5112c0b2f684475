// Converts values of every type and any content from the remote library to the host and back, and from the
// host to the remote library and back; and the values of keys, as paths tell them.

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Exception.h>
#include <fuzzer/FuzzedDataProvider.h>

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

#include "cimhttp/TCimHTTPNamespaceProvider.h"
#include "convert/KeyToCore.h"
#include "convert/ToCore.h"
#include "convert/ToRemote.h"
#include "fuzz/CommonNamespace.h"
#include "provider/contract/PegText.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/ICIMNamespace.h"

namespace {

using namespace NQELVSK20;
using Type = TCIMValue::TCIMType;

constexpr unsigned kMostElements = 8;
constexpr std::size_t kLongestText = 64;

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// A namespace that nobody connects, and a class in it, for references to belong to.
struct Home {
    Home() {
        nameSpace->SetUpcallNamespace(CommonNamespace(), {});
        cimClass = nameSpace->AllocateClass("X_Class", nullptr, {});
    }

    boost::shared_ptr<ICIMNamespace> nameSpace = TCimHTTPNamespaceProvider::GetInstance()->AllocateNamespace(
        {{"pluginNameQualDeclValue", TCIMValue("cimhttp.nsp")}}, true, "root/cimv2");
    boost::shared_ptr<ICIMClass> cimClass;
};

const Home& TheHome() {
    static const Home home;
    return home;
}

/// The fuzzer's bytes as contents of each type.
class Contents {
public:
    Contents(const std::uint8_t* bytes, std::size_t size) : data_(bytes, size) {}

    bool Flag() { return data_.ConsumeBool(); }
    unsigned UpTo(unsigned most) { return data_.ConsumeIntegralInRange(0U, most); }
    std::string Bytes() { return data_.ConsumeRandomLengthString(kLongestText); }

    /// Numbers of every bit pattern.
    template <class T>
    T Any() {
        T number{};
        const std::string bytes = data_.ConsumeBytesAsString(sizeof number);
        std::memcpy(&number, bytes.data(), bytes.size());
        return number;
    }

private:
    FuzzedDataProvider data_;
};

template <>
bool Contents::Any() {
    return Flag();
}

template <>
Pegasus::Char16 Contents::Any() {
    return Pegasus::Char16(Any<Pegasus::Uint16>());
}

// UTF-16 as it comes, unpaired surrogates and NULs included.
template <>
Pegasus::String Contents::Any() {
    Pegasus::String text;
    for (unsigned left = UpTo(kLongestText / 4); left > 0; --left) {
        text.append(Any<Pegasus::Char16>());
    }
    return text;
}

template <>
Pegasus::CIMDateTime Contents::Any() {
    return Flag() ? Pegasus::CIMDateTime(Any<Pegasus::Uint64>(), Flag())
                  : Pegasus::CIMDateTime(FromText(Bytes()));
}

template <>
Pegasus::CIMObjectPath Contents::Any() {
    return Pegasus::CIMObjectPath(FromText(Bytes()));
}

template <class T>
Pegasus::CIMValue RemoteOf(Contents& contents, bool isArray) {
    if (!isArray) {
        return Pegasus::CIMValue(contents.Any<T>());
    }
    Pegasus::Array<T> elements;
    for (unsigned left = contents.UpTo(kMostElements); left > 0; --left) {
        elements.append(contents.Any<T>());
    }
    return Pegasus::CIMValue(elements);
}

using RemoteMaker = Pegasus::CIMValue (*)(Contents&, bool);

constexpr RemoteMaker kRemoteMakers[] = {
    RemoteOf<Pegasus::Boolean>, RemoteOf<Pegasus::Uint8>,       RemoteOf<Pegasus::Sint8>,
    RemoteOf<Pegasus::Uint16>,  RemoteOf<Pegasus::Sint16>,      RemoteOf<Pegasus::Uint32>,
    RemoteOf<Pegasus::Sint32>,  RemoteOf<Pegasus::Uint64>,      RemoteOf<Pegasus::Sint64>,
    RemoteOf<Pegasus::Real32>,  RemoteOf<Pegasus::Real64>,      RemoteOf<Pegasus::Char16>,
    RemoteOf<Pegasus::String>,  RemoteOf<Pegasus::CIMDateTime>, RemoteOf<Pegasus::CIMObjectPath>};
constexpr unsigned kRemoteTypes = sizeof kRemoteMakers / sizeof *kRemoteMakers;

Pegasus::CIMValue AnyRemote(Contents& contents) {
    const auto type = static_cast<Pegasus::CIMType>(contents.UpTo(Pegasus::CIMTYPE_INSTANCE));
    const bool isArray = contents.Flag();
    return type >= kRemoteTypes || contents.Flag() ? Pegasus::CIMValue(type, isArray)
                                                   : kRemoteMakers[type](contents, isArray);
}

template <class T>
TCIMValue HostOf(Contents& contents) {
    return TCIMValue(contents.Any<T>());
}

/// Of types that keep the text that they are given.
template <class T>
TCIMValue HostFromText(Contents& contents) {
    return TCIMValue(T(contents.Bytes()));
}

TCIMValue HostReference(Contents& contents) {
    TCIMReference reference(TheHome().nameSpace, TContext());
    reference.SetPath(contents.Bytes());
    TCIMValue value(reference);
    if (contents.Flag()) {
        value.SetReferencedClass(TheHome().cimClass);
    }
    return value;
}

using HostMaker = TCIMValue (*)(Contents&);

constexpr HostMaker kHostMakers[] = {HostOf<bool>,
                                     HostOf<unsigned char>,
                                     HostOf<signed char>,
                                     HostOf<unsigned short>,
                                     HostOf<short>,
                                     HostOf<unsigned int>,
                                     HostOf<int>,
                                     HostOf<unsigned long long>,
                                     HostOf<long long>,
                                     HostOf<float>,
                                     HostOf<double>,
                                     HostFromText<TCIMChar16>,
                                     HostFromText<std::string>,
                                     HostFromText<TCIMDateTime>,
                                     HostReference};
constexpr unsigned kLastHostMaker = sizeof kHostMakers / sizeof *kHostMakers - 1;

Type AnyHostType(Contents& contents) {
    return static_cast<Type::ECIMType>(contents.UpTo(Type::eReferenceArray));
}

// Arrays hold elements of any types: a host may build such.
TCIMValue AnyHost(Contents& contents, unsigned depth = 2) {
    const unsigned kind = contents.UpTo(kLastHostMaker + 2);
    if (kind <= kLastHostMaker) {
        return kHostMakers[kind](contents);
    }
    if (kind == kLastHostMaker + 1 || depth == 0) {
        return TCIMValue(AnyHostType(contents), contents.UpTo(kMostElements));
    }
    const Type type = AnyHostType(contents);
    const unsigned arraySize = contents.UpTo(kMostElements);
    std::vector<TCIMValue> elements;
    for (unsigned left = contents.UpTo(kMostElements); left > 0; --left) {
        elements.push_back(AnyHost(contents, depth - 1));
    }
    return TCIMValue(type, arraySize, elements);
}

template <class... TTargets>
void ConvertTo(const TCIMValue& value) {
    (static_cast<void>(value.operator TTargets()), ...);
}

void ReadAsEverything(const TCIMValue& value, Contents& contents) {
    ConvertTo<bool, signed char, unsigned char, short, unsigned short, int, unsigned int, long long,
              unsigned long long, float, double, std::string, TCIMChar16, TCIMDateTime, TCIMReference>(value);
    value.ToString(contents.Any<unsigned char>());
    TCIMValue copy(value);
    copy = value;
    copy.Set("text");
    copy.SetReferencedClass(TheHome().cimClass);
}

TCIMValue ToHost(const Pegasus::CIMValue& remote) {
    TCIMValue host;
    ConvertToCoreValue("Name", remote, remote.getType(), remote.isArray(), host, TheHome().cimClass);
    return host;
}

/// What a text is to the host, which ends it at a NUL and knows no half characters.
Pegasus::String HostsForm(const Pegasus::String& text) {
    return FromText(ToText(text));
}

/// A remote value in the form in which it comes back from the host.
Pegasus::CIMValue HostsForm(const Pegasus::CIMValue& value) {
    if (value.getType() != Pegasus::CIMTYPE_STRING) {
        return value;
    }
    if (!value.isArray()) {
        Pegasus::String text;
        value.get(text);
        return Pegasus::CIMValue(HostsForm(text));
    }
    Pegasus::Array<Pegasus::String> texts;
    value.get(texts);
    for (Pegasus::Uint32 i = 0; i < texts.size(); ++i) {
        texts[i] = HostsForm(texts[i]);
    }
    return Pegasus::CIMValue(texts);
}

void ThereAndBack(const Pegasus::CIMValue& remote) {
    const TCIMValue host = ToHost(remote);
    const bool isKnown = remote.getType() < Pegasus::CIMTYPE_REFERENCE ||
                         (remote.getType() == Pegasus::CIMTYPE_REFERENCE && !remote.isArray());
    if (!isKnown || remote.isNull()) {
        return;
    }
    Pegasus::CIMValue back;
    ConvertToRemoteValue(host, back);
    Require(back.getType() == remote.getType() && back.isArray() == remote.isArray());
    // As text, in which every NaN is the same.
    Require(back.toString() == HostsForm(remote).toString());
}

void RemoteToHost(Contents& contents) {
    const Pegasus::CIMValue remote = AnyRemote(contents);
    ReadAsEverything(ToHost(remote), contents);
    ThereAndBack(remote);
    // A server need not keep to the type that the class declares.
    TCIMValue host;
    const auto declared = static_cast<Pegasus::CIMType>(contents.UpTo(Pegasus::CIMTYPE_INSTANCE));
    ConvertToCoreValue("Name", remote, declared, contents.Flag(), host, TheHome().cimClass);
}

bool IsExact(Type type) {
    return type >= Type::eBoolean && type <= Type::eSint64;
}

void HostToRemote(Contents& contents) {
    const TCIMValue host = AnyHost(contents);
    ReadAsEverything(host, contents);
    const TCIMValue other = AnyHost(contents);
    Require((host != other) == (other != host));
    Pegasus::CIMValue remote;
    ConvertToRemoteValue(host, remote);
    if (IsExact(host.GetType()) && !host.IsNull() && !host.IsArray()) {
        Require(!(ToHost(remote) != host));
    }
}

void KeyToHost(Contents& contents) {
    const auto kind = static_cast<Pegasus::CIMKeyBinding::Type>(contents.UpTo(3));
    const Type declared = AnyHostType(contents);
    const Pegasus::String text =
        contents.Flag() ? FromText(contents.Bytes()) : contents.Any<Pegasus::String>();
    TCIMValue value;
    if (!ConvertKeyToCoreValue({"K", text, kind}, declared, TheHome().nameSpace, value)) {
        Require(value.GetType() == Type::eString);
        return;
    }
    ReadAsEverything(value, contents);
    if (declared == Type::eChar16) {
        return;  // printed as its code
    }
    TCIMValue again;
    const std::string printed = value.ToString(10);
    Require(ConvertKeyToCoreValue({"K", FromText(printed), kind}, declared, TheHome().nameSpace, again));
    Require(again.ToString(10) == printed);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr void (*kDirections[])(Contents&) = {RemoteToHost, HostToRemote, KeyToHost};
    Contents contents(data, size);
    try {
        kDirections[contents.UpTo(2)](contents);
    } catch (const Pegasus::Exception&) {
        // Text that is none of the type, a value of another type than declared, or a null embedded object.
    }
    return 0;
}
