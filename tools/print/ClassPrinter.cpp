#include "tools/print/ClassPrinter.h"

#include <fmt/format.h>

#include <algorithm>

#include "tools/common/SafeText.h"
#include "tools/machine/MethodQualifiers.h"
#include "tools/values/CimTypeName.h"
#include "tools/values/ValueText.h"
#include "vskcore/ICIMParameterDecl.h"

namespace tool {

namespace {

using namespace NQELVSK20;
using TType = TCIMValue::TCIMType;

constexpr std::size_t kLineWidth = 100;
constexpr const char* kMemberIndent = "    ";

// A long text as adjoining string literals, one a line, cut between words.
std::string wrappedLiteral(const std::string& text, std::size_t column) {
    const std::size_t room = kLineWidth > column + 20 ? kLineWidth - column : 20;
    std::string literals;
    for (std::size_t begin = 0; begin < text.size();) {
        std::size_t end = text.size();
        if (end - begin > room) {
            const std::size_t blank = text.rfind(' ', begin + room);
            end = blank == std::string::npos || blank < begin ? text.find(' ', begin + room) : blank;
            end = end == std::string::npos ? text.size() : end + 1;
        }
        literals += literals.empty() ? "" : "\n" + std::string(column, ' ');
        literals += mofString(text.substr(begin, end - begin));
        begin = end;
    }
    return literals.empty() ? "\"\"" : literals;
}

std::string qualifierText(const QualifierValue& qualifier, std::size_t column) {
    const std::string name = safeText(qualifier.name);
    const TCIMValue& value = qualifier.value;
    const TType::ECIMType type = value.GetType();
    if (value.IsNull() || (type == TType::eBoolean && !value.IsArray() && value.operator bool())) {
        return name;
    }
    if (value.IsArray()) {
        return name + mofText(value);
    }
    const bool isText = type == TType::eString;
    return name + '(' +
           (isText ? wrappedLiteral(plainText(value), column + name.size() + 1) : mofText(value)) + ')';
}

// The declaration's "TYPE NAME[]", in which a reference names the class that it points at, if it is known.
std::string declarationText(TType type, bool isArray, const std::string& name,
                            const std::string& referencedClass) {
    const bool isReference = scalarType(type) == TType::eReference;
    const std::string typeText =
        isReference && !referencedClass.empty() ? referencedClass + " REF" : cimTypeName(type);
    return fmt::format("{} {}{}", typeText, safeText(name), isArray ? "[]" : "");
}

std::string referencedClassOf(const ICIMPropertyDecl& declaration) {
    const auto referenced = declaration.GetValue(TContext()).GetReferencedClass();
    return referenced ? referenced->GetName(TContext()) : std::string();
}

std::string joined(const std::vector<std::string>& parts, const std::string& separator) {
    std::string text;
    for (const std::string& part : parts) {
        text += (&part == &parts.front() ? "" : separator) + part;
    }
    return text;
}

// With what it is for; a description would hide that.
std::string parameterText(const ICIMParameterDecl& parameter, const QualifierValues& qualifiers) {
    const TType type = parameter.GetType(TContext());
    std::vector<std::string> texts;
    for (const QualifierValue& qualifier : qualifiers) {
        if (!sameName(qualifier.name, "Description")) {
            texts.push_back(qualifierText(qualifier, 0));
        }
    }
    return (texts.empty() ? "" : '[' + joined(texts, ", ") + "] ") +
           declarationText(type, isArrayType(type) || parameter.IsArray(TContext()),
                           parameter.GetName(TContext()), {});
}

std::string originMark(const std::string& origin, const std::string& className) {
    return sameName(origin, className) ? "" : "  // from " + origin;
}

}  // namespace

void ClassPrinter::print(const ClassSchema& schema) {
    const std::string& name = schema.cimClass().GetName(TContext());
    printChain(schema);
    printQualifiers(valuesOf(qualifiersOf(schema.cimClass())), false, "");
    const bool isTop = schema.chain().size() == 1;
    output_.line("class " + name + (isTop ? "" : " : " + schema.chain()[1]->GetName(TContext())));
    output_.line("{");
    for (const ClassSchema::Property& property : schema.properties()) {
        printProperty(property, name);
    }
    for (const ClassSchema::Method& method : schema.methods()) {
        printMethod(method, name);
    }
    output_.line("};");
}

void ClassPrinter::printChain(const ClassSchema& schema) {
    std::vector<std::string> names;
    for (const auto& cimClass : schema.chain()) {
        names.push_back(cimClass->GetName(TContext()));
    }
    std::reverse(names.begin(), names.end());
    output_.line("// " + joined(names, " > "));
}

void ClassPrinter::printQualifiers(const QualifierValues& qualifiers, bool withoutValueMap,
                                   const std::string& indent) {
    std::vector<std::string> texts;
    for (const QualifierValue& qualifier : qualifiers) {
        const std::string& name = qualifier.name;
        if (!withoutValueMap || (!sameName(name, "ValueMap") && !sameName(name, "Values"))) {
            texts.push_back(qualifierText(qualifier, indent.size() + 1));
        }
    }
    if (texts.empty()) {
        return;
    }
    const std::string line = indent + '[' + joined(texts, ", ") + ']';
    const bool fits = line.size() <= kLineWidth && line.find('\n') == std::string::npos;
    output_.line(fits ? line : indent + '[' + joined(texts, ",\n " + indent) + ']');
}

void ClassPrinter::printProperty(const ClassSchema::Property& property, const std::string& className) {
    if (!all_ && !sameName(property.origin, className)) {
        return;
    }
    const ICIMPropertyDecl& declaration = *property.declaration;
    const QualifierList qualifiers = qualifiersOf(declaration);
    const auto meanings = valueMapIn(qualifiers);
    const TType type = declaration.GetType(TContext());
    const TCIMValue& initial = declaration.GetValue(TContext());
    printQualifiers(valuesOf(qualifiers), meanings.has_value(), kMemberIndent);
    output_.line(kMemberIndent +
                 declarationText(type, isArrayType(type) || declaration.IsArray(TContext()), property.name,
                                 referencedClassOf(declaration)) +
                 (initial.IsNull() ? "" : " = " + mofText(initial)) + ';' +
                 originMark(property.origin, className));
    if (meanings) {
        for (const ValueMap::Entry& entry : meanings->entries()) {
            output_.line(fmt::format("{0}{0}// {1} = {2}", kMemberIndent, safeText(entry.value),
                                     safeText(entry.text)));
        }
    }
}

void ClassPrinter::printMethod(const ClassSchema::Method& method, const std::string& className) {
    if (!all_ && !sameName(method.origin, className)) {
        return;
    }
    std::vector<std::string> parameters;
    method.declaration->EnumerateParameterDecls(
        [&](const boost::shared_ptr<ICIMParameterDecl>& parameter) {
            parameters.push_back(parameterText(
                *parameter, parameterQualifiers(method, parameter->GetName(TContext()), definitions_)));
            return true;
        },
        TContext());
    printQualifiers(methodQualifiers(method, definitions_), false, kMemberIndent);
    const std::string start =
        kMemberIndent + declarationText(method.declaration->GetType(TContext()), false, method.name, {}) +
        '(';
    const std::string end = ");" + originMark(method.origin, className);
    const std::string line = start + joined(parameters, ", ") + end;
    const std::string newLine = std::string("\n") + kMemberIndent + kMemberIndent;
    output_.line(line.size() <= kLineWidth ? line
                                           : start + newLine + joined(parameters, "," + newLine) + end);
}

}  // namespace tool
