// Reads arbitrary bytes as the body of an answer to each operation. What could be read is written again and
// read once more, which must work.

#include "cimxml/wire/ResponseReader.h"

#include <Pegasus/Common/Exception.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "cimxml/common/ObjectWriter.h"
#include "cimxml/wire/DecodeContext.h"
#include "cimxml/wire/InstanceReader.h"
#include "cimxml/wire/Limits.h"
#include "cimxml/wire/WireError.h"
#include "cimxml/wire/XmlDocument.h"

namespace {

using cimxml::ResponseReader;

void readAgain(const Pegasus::CIMInstance& instance) {
    std::string text;
    cimxml::ObjectWriter(text).write(instance);
    cimxml::Limits limits;
    // Embedded objects were read from below other elements, and are nested less deep now.
    cimxml::DecodeContext context(limits);
    const cimxml::XmlDocument document(text, context);
    const Pegasus::CIMInstance again = cimxml::InstanceReader(context).read(document.root());
    if (again.getPropertyCount() != instance.getPropertyCount()) {
        std::abort();
    }
}

void readInstances(ResponseReader& reader) {
    const auto instances = reader.readInstances();
    for (Pegasus::Uint32 i = 0; i < instances.size(); ++i) {
        readAgain(instances[i]);
    }
}

struct Operation {
    const char* method;
    bool intrinsic;
    void (*read)(ResponseReader&);
};

constexpr Operation operations[] = {
    {"GetClass", true, [](ResponseReader& reader) { reader.readClass(); }},
    {"GetInstance", true, [](ResponseReader& reader) { readAgain(reader.readInstance()); }},
    {"EnumerateClasses", true, [](ResponseReader& reader) { reader.readClasses(); }},
    {"EnumerateClassNames", true, [](ResponseReader& reader) { reader.readClassNames(); }},
    {"EnumerateInstances", true, readInstances},
    {"EnumerateInstanceNames", true, [](ResponseReader& reader) { reader.readInstanceNames(); }},
    {"Do", false,
     [](ResponseReader& reader) {
         Pegasus::Array<Pegasus::CIMParamValue> out;
         reader.readMethodResult(out);
     }},
};

void read(std::string_view body, const Operation& operation) {
    cimxml::Limits limits;
    limits.xmlNodes = 100000;
    try {
        ResponseReader reader(std::string(body), {"1001", operation.method, operation.intrinsic}, limits);
        operation.read(reader);
    } catch (const cimxml::WireError&) {
        // An answer that cannot be read.
    } catch (const Pegasus::CIMException&) {
        // An answer that tells an error.
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view body(reinterpret_cast<const char*>(data), size);
    for (const Operation& operation : operations) {
        if (body.find(operation.method) != std::string_view::npos) {
            read(body, operation);
        }
    }
    read(body, operations[0]);
    return 0;
}
