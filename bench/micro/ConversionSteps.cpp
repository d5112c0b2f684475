#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Char16.h>

#include <stdexcept>

#include "bench/micro/Steps.h"
#include "convert/ToCore.h"
#include "convert/ToRemote.h"
#include "vskcore/TCIMValue.h"

namespace bench {

using namespace NQELVSK20;

namespace {

template <class TContent>
void AddValue(const std::string& type, const TContent& content) {
    const Pegasus::CIMValue remote(content);
    const auto toCore = [remote] {
        TCIMValue core;
        ConvertToCoreValue("Property", remote, remote.getType(), remote.isArray(), core, {});
        return core;
    };
    const TCIMValue core = toCore();
    const auto toRemote = [core] {
        Pegasus::CIMValue converted;
        ConvertToRemoteValue(core, converted);
        return converted;
    };
    if (core.IsNull() || toRemote().getType() != remote.getType()) {
        throw std::runtime_error(type + " is not converted");
    }
    AddStep("to host/" + type, toCore);
    AddStep("to server/" + type, toRemote);
}

template <class TElement>
Pegasus::Array<TElement> EightOf(const TElement& element) {
    Pegasus::Array<TElement> array;
    for (int i = 0; i < 8; ++i) {
        array.append(element);
    }
    return array;
}

}  // namespace

void AddConversions() {
    const Pegasus::String text("Processor Socket 3, upper row");
    AddValue("boolean", Pegasus::Boolean(true));
    AddValue("uint8", Pegasus::Uint8(200));
    AddValue("sint8", Pegasus::Sint8(-100));
    AddValue("uint16", Pegasus::Uint16(60000));
    AddValue("sint16", Pegasus::Sint16(-30000));
    AddValue("uint32", Pegasus::Uint32(4000000000U));
    AddValue("sint32", Pegasus::Sint32(-2000000000));
    AddValue("uint64", Pegasus::Uint64(10000000000000000000ULL));
    AddValue("sint64", Pegasus::Sint64(-9000000000000000000LL));
    AddValue("real32", Pegasus::Real32(1.5F));
    AddValue("real64", Pegasus::Real64(1.1));
    AddValue("char16", Pegasus::Char16('A'));
    AddValue("string of 29 letters", text);
    AddValue("datetime", Pegasus::CIMDateTime(Pegasus::String("20240229120000.000000+060")));
    AddValue("reference", Pegasus::CIMObjectPath("root/cimv2:OMC_Fan.DeviceID=\"1\""));
    AddValue("8 booleans", EightOf(Pegasus::Boolean(true)));
    AddValue("8 uint32", EightOf(Pegasus::Uint32(70000)));
    AddValue("8 strings", EightOf(text));
    AddValue("8 datetimes", EightOf(Pegasus::CIMDateTime(Pegasus::String("20240229120000.000000+060"))));
}

}  // namespace bench
