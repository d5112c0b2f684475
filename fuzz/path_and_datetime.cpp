// Reads arbitrary text as an object path and as a datetime. What could be read is written, and what was
// written reads as the same again.

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Exception.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>

namespace {

using Pegasus::CIMDateTime;
using Pegasus::CIMObjectPath;
using Pegasus::String;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

template <typename Value>
std::optional<Value> parse(const String& text) {
    try {
        return Value(text);
    } catch (const Pegasus::Exception&) {
        return std::nullopt;
    }
}

/// Calls what may refuse its operand.
template <typename Call>
void attempt(Call call) {
    try {
        call();
    } catch (const Pegasus::Exception&) {
        // Bytes that are no UTF-8, a kind of time that has no such operation, or a result out of range.
    }
}

void readPath(const String& text) {
    const auto path = parse<CIMObjectPath>(text);
    if (!path) {
        return;
    }
    const String written = path->toString();
    const CIMObjectPath again(written);
    require(again.toString() == written);
    require(again.identical(*path));
    require(again.makeHashCode() == path->makeHashCode());
}

void calculate(const CIMDateTime& time) {
    const CIMDateTime hour("00000000010000.000000:000");
    attempt([&] { (time + hour).toString(); });
    attempt([&] { (time - hour).toString(); });
    attempt([&] { (time * 3).toString(); });
    attempt([&] { (time / 3).toString(); });
    attempt([&] { time / hour; });
    attempt([&] { CIMDateTime::getDifference(hour, time); });
    attempt([&] { CIMDateTime::getDifference(CIMDateTime(0, false), time); });
    attempt([&] { time.toMicroSeconds(); });
}

void readDateTime(const String& text) {
    const auto time = parse<CIMDateTime>(text);
    if (!time) {
        return;
    }
    const String written = time->toString();
    const CIMDateTime again(written);
    require(again.toString() == written);
    require(again.equal(*time));
    require(again.isInterval() == time->isInterval());
    calculate(*time);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    attempt([&] {
        const String text(reinterpret_cast<const char*>(data), static_cast<Pegasus::Uint32>(size));
        readPath(text);
        readDateTime(text);
    });
    return 0;
}
