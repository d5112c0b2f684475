#include "tools/values/Qualifiers.h"

#include <algorithm>

#include "tools/common/Names.h"
#include "tools/values/ValueText.h"

namespace tool {

namespace {

using namespace NQELVSK20;

std::vector<std::string> textsOf(const QualifierValues& qualifiers, const std::string& name) {
    std::vector<std::string> texts;
    for (const QualifierValue& qualifier : qualifiers) {
        if (sameName(qualifier.name, name) && qualifier.value.IsArray()) {
            for (const TCIMValue& element : elementsOf(qualifier.value)) {
                texts.push_back(plainText(element));
            }
        }
    }
    return texts;
}

}  // namespace

QualifierValues valuesOf(const QualifierList& qualifiers) {
    QualifierValues values;
    for (const auto& qualifier : qualifiers) {
        values.push_back({qualifier->GetName(TContext()), qualifier->GetValue(TContext())});
    }
    return values;
}

QualifierList qualifiersOf(const ICIMNamedElement& element) {
    QualifierList qualifiers;
    element.EnumerateQualifiers(
        [&](const boost::shared_ptr<ICIMQualifier>& qualifier) {
            qualifiers.push_back(qualifier);
            return true;
        },
        TContext());
    return qualifiers;
}

QualifierList qualifiersOf(const ICIMClass& cimClass) {
    const auto* element = dynamic_cast<const ICIMNamedElement*>(&cimClass);
    return element == nullptr ? QualifierList() : qualifiersOf(*element);
}

const ICIMQualifier* findQualifier(const QualifierList& qualifiers, const std::string& name) {
    const auto found = std::find_if(qualifiers.begin(), qualifiers.end(), [&](const auto& qualifier) {
        return sameName(qualifier->GetName(TContext()), name);
    });
    return found == qualifiers.end() ? nullptr : found->get();
}

std::optional<ValueMap> valueMapIn(const QualifierList& qualifiers) {
    return valueMapIn(valuesOf(qualifiers));
}

std::optional<ValueMap> valueMapIn(const QualifierValues& qualifiers) {
    const std::vector<std::string> texts = textsOf(qualifiers, "Values");
    if (texts.empty()) {
        return std::nullopt;
    }
    return ValueMap(textsOf(qualifiers, "ValueMap"), texts);
}

}  // namespace tool
