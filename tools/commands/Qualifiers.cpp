// qualifiers [CLASS...]: the qualifier declarations that the namespace knows after fetching some classes.

#include "tools/values/Qualifiers.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "tools/commands/Commands.h"
#include "tools/common/SafeText.h"
#include "tools/print/JsonArray.h"
#include "tools/values/CimTypeName.h"
#include "tools/values/JsonValue.h"
#include "tools/values/ValueText.h"

namespace tool {

namespace {

using nlohmann::ordered_json;
using namespace NQELVSK20;

using Words = std::vector<std::string>;

/// A bit and its word.
struct Word {
    unsigned int bit;
    const char* text;
};

constexpr std::array<Word, 7> kScopes = {Word{ICIMQualifierDecl::eScopeClass, "class"},
                                         {ICIMQualifierDecl::eScopeAssociation, "association"},
                                         {ICIMQualifierDecl::eScopeIndication, "indication"},
                                         {ICIMQualifierDecl::eScopeProperty, "property"},
                                         {ICIMQualifierDecl::eScopeReference, "reference"},
                                         {ICIMQualifierDecl::eScopeMethod, "method"},
                                         {ICIMQualifierDecl::eScopeParameter, "parameter"}};

constexpr std::array<Word, 3> kFlavors = {Word{ICIMQualifierDecl::eFlavorEnableOverride, "enableoverride"},
                                          {ICIMQualifierDecl::eFlavorToSubclass, "tosubclass"},
                                          {ICIMQualifierDecl::eFlavorTranslatable, "translatable"}};

template <std::size_t SIZE>
Words wordsFor(unsigned int bits, const std::array<Word, SIZE>& words) {
    Words found;
    for (const Word& word : words) {
        if ((bits & word.bit) != 0) {
            found.emplace_back(word.text);
        }
    }
    return found;
}

Words scopeWords(const ICIMQualifierDecl& declaration) {
    const unsigned int scope = declaration.GetScope(TContext());
    return scope == ICIMQualifierDecl::eScopeAny ? Words{"any"} : wordsFor(scope, kScopes);
}

Words flavorWords(const ICIMQualifierDecl& declaration) {
    return wordsFor(declaration.GetFlavor(TContext()), kFlavors);
}

std::string joined(const Words& words) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : ", ") + word;
    }
    return text.empty() ? "none" : text;
}

bool isArray(const ICIMQualifierDecl& declaration) {
    return declaration.IsArray(TContext()) || isArrayType(declaration.GetType(TContext()));
}

std::string textOf(const ICIMQualifierDecl& declaration) {
    const TCIMValue& initial = declaration.GetValue(TContext());
    return fmt::format("qualifier {} : {}{}{}, scope({}), flavor({});",
                       safeText(declaration.GetName(TContext())),
                       cimTypeName(declaration.GetType(TContext())), isArray(declaration) ? "[]" : "",
                       initial.IsNull() ? "" : " = " + mofText(initial), joined(scopeWords(declaration)),
                       joined(flavorWords(declaration)));
}

ordered_json jsonOf(const ICIMQualifierDecl& declaration) {
    ordered_json json;
    json["name"] = declaration.GetName(TContext());
    json["type"] = cimTypeName(declaration.GetType(TContext()));
    json["array"] = isArray(declaration);
    json["default"] = jsonValue(declaration.GetValue(TContext()));
    json["scope"] = scopeWords(declaration);
    json["flavor"] = flavorWords(declaration);
    return json;
}

}  // namespace

bool runQualifiers(const CommandContext& context) {
    for (const std::string& className : context.options.classNames) {
        context.session.getClass(className);
    }
    const auto declarations = context.session.qualifierDecls();
    if (!context.isJson()) {
        for (const auto& declaration : declarations) {
            context.output.line(textOf(*declaration));
        }
        return !declarations.empty();
    }
    JsonArray array(context.output);
    for (const auto& declaration : declarations) {
        array.add(jsonOf(*declaration));
    }
    array.end();
    return !declarations.empty();
}

}  // namespace tool
