#include "tools/health/Unit.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "tools/common/Integer.h"
#include "tools/values/NumberOf.h"
#include "tools/values/ValueText.h"

namespace tool {

namespace {

// By the number of BaseUnits; the first two are "unknown" and "other".
constexpr std::array<const char*, 67> kBaseUnits = {
    "",    "",   "°C",    "°F",     "K",      "V",   "A",   "W",     "J",     "C",  "VA",  "cd/m²",
    "lm",  "lx", "cd",    "kPa",    "psi",    "N",   "CFM", "RPM",   "Hz",    "s",  "min", "h",
    "d",   "wk", "mil",   "in",     "ft",     "in³", "ft³", "m",     "cm³",   "m³", "l",   "fl oz",
    "rad", "sr", "rev",   "cycles", "g",      "oz",  "lb",  "ft lb", "oz in", "G",  "Gb",  "H",
    "F",   "Ω",  "S",     "mol",    "Bq",     "ppm", "dB",  "dBA",   "dBC",   "Gy", "Sv",  "K",
    "bit", "B",  "words", "dwords", "qwords", "%",   "Pa"};

// By the number of RateUnits.
constexpr std::array<const char*, 10> kRateUnits = {"",   "/µs", "/ms", "/s",  "/min",
                                                    "/h", "/d",  "/wk", "/mo", "/yr"};

constexpr std::array<std::pair<const char*, const char*>, 20> kProgrammaticUnits = {{
    {"degree C", "°C"}, {"degree F", "°F"}, {"kelvin", "K"},   {"volt", "V"},   {"ampere", "A"},
    {"watt", "W"},      {"joule", "J"},     {"percent", "%"},  {"hertz", "Hz"}, {"second", "s"},
    {"minute", "min"},  {"hour", "h"},      {"meter", "m"},    {"liter", "l"},  {"pascal", "Pa"},
    {"byte", "B"},      {"bit", "bit"},     {"decibel", "dB"}, {"ohm", "Ω"},    {"revolution", "rev"},
}};

template <typename SYMBOLS>
std::string symbolAt(const SYMBOLS& symbols, const NQELVSK20::TCIMValue* code) {
    const auto number = numberOf(code);
    const auto index = number ? parseInteger(number->text()) : std::nullopt;
    const bool isKnown = index && !index->negative && index->size < symbols.size();
    return isKnown ? symbols[static_cast<std::size_t>(index->size)] : "";
}

std::optional<int> intOf(const std::string& text) {
    int number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isNumber = error == std::errc() && stop == text.data() + text.size();
    return isNumber ? std::optional(number) : std::nullopt;
}

std::string trimmed(const std::string& text) {
    const std::size_t begin = text.find_first_not_of(' ');
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

std::string symbolOf(const std::string& name) {
    const auto* const found = std::find_if(kProgrammaticUnits.begin(), kProgrammaticUnits.end(),
                                           [&](const auto& entry) { return name == entry.first; });
    return found == kProgrammaticUnits.end() ? name : found->second;
}

// "volt * 10^-3", "revolution / minute": units one after the other, and powers of ten.
Unit parseProgrammatic(const std::string& text) {
    Unit unit;
    char separator = '*';
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find_first_of("*/", at), text.size());
        const std::string factor = trimmed(text.substr(at, end - at));
        const auto power = factor.rfind("10^", 0) == 0 ? intOf(factor.substr(3)) : std::nullopt;
        if (power) {
            unit.powerOfTen = *power;
        } else if (!factor.empty()) {
            unit.symbol += (separator == '/' ? "/" : unit.symbol.empty() ? "" : " ") + symbolOf(factor);
        }
        separator = end < text.size() ? text[end] : '*';
        at = end + 1;
    }
    unit.symbol = unit.symbol == "rev/min" ? "RPM" : unit.symbol;
    return unit;
}

}  // namespace

Unit Unit::of(const PropertySource& properties) {
    const NQELVSK20::TCIMValue* programmatic = properties("ProgrammaticUnits");
    Unit unit;
    unit.symbol = symbolAt(kBaseUnits, properties("BaseUnits"));
    if (unit.symbol.empty() && programmatic != nullptr && !programmatic->IsArray()) {
        Unit told = parseProgrammatic(plainText(*programmatic));
        if (!told.symbol.empty()) {
            return told;
        }
    }
    unit.symbol += symbolAt(kRateUnits, properties("RateUnits"));
    const auto modifier = numberOf(properties("UnitModifier"));
    unit.powerOfTen = modifier ? intOf(modifier->text()).value_or(0) : 0;
    return unit;
}

}  // namespace tool
