// Reads arbitrary bytes as the body of an answer to each operation. What could be read is written again and
// read once more, which must work.

#include "cimxml/wire/ResponseReader.h"

#include <Pegasus/Common/Exception.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
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

cimxml::Limits fewNodes() {
    cimxml::Limits limits;
    limits.xmlNodes = 100000;
    return limits;
}

/// What comes of an operation: nothing when the answer cannot be read, or tells an error.
template <typename Read>
auto outcomeOf(Read read) -> std::optional<decltype(read())> {
    try {
        return read();
    } catch (const cimxml::WireError&) {
        return std::nullopt;
    } catch (const Pegasus::CIMException&) {
        return std::nullopt;
    }
}

void read(std::string_view body, const Operation& operation) {
    outcomeOf([&] {
        ResponseReader reader(std::string(body), {"1001", operation.method, operation.intrinsic}, fewNodes());
        operation.read(reader);
        return true;
    });
}

/// The instances of an answer as text, its list parsed in pieces of that many bytes.
std::optional<std::string> instances(std::string_view body, std::size_t pieceBytes) {
    return outcomeOf([&] {
        cimxml::Limits limits = fewNodes();
        limits.pieceBytes = pieceBytes;
        ResponseReader reader(std::string(body), {"1001", "EnumerateInstances", true}, limits);
        const auto found = reader.readInstances();
        std::string text;
        for (Pegasus::Uint32 i = 0; i < found.size(); ++i) {
            text += found[i].getPath().toString().getCString();
            cimxml::ObjectWriter(text).write(found[i]);
        }
        return text;
    });
}

/// A list that is parsed in pieces gives what the whole gives.
void compareInPieces(std::string_view body) {
    const auto inPieces = instances(body, 64);
    const auto asWhole = instances(body, body.size() + 1);
    if (inPieces && asWhole && *inPieces != *asWhole) {
        std::abort();
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
    compareInPieces(body);
    return 0;
}
