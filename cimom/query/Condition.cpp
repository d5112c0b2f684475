#include "cimom/query/Condition.h"

#include <algorithm>

#include "cimom/common/ObjectPath.h"
#include "cimom/common/Xml.h"

namespace cimom {
namespace {

Truth truthOf(bool yes) {
    return yes ? Truth::Yes : Truth::No;
}

bool ordered(const std::string& sign, int order) {
    if (sign == "=") {
        return order == 0;
    }
    if (sign == "<>" || sign == "!=") {
        return order != 0;
    }
    const bool strict = sign.size() == 1;
    return (order == 0 && !strict) || (sign.front() == '<' ? order < 0 : order > 0);
}

/// The class that the path in a VALUE.REFERENCE names.
std::string classNameIn(const std::string& referenceXml) {
    pugi::xml_document document;
    if (referenceXml.empty() || parseXml(referenceXml, document)) {
        return {};
    }
    return readObjectPath(firstElement(firstElement(document))).className;
}

}  // namespace

Condition both(Condition one, Condition other) {
    return [one = std::move(one), other = std::move(other)](const Instance& instance) {
        return std::min(one(instance), other(instance));
    };
}

Condition either(Condition one, Condition other) {
    return [one = std::move(one), other = std::move(other)](const Instance& instance) {
        return std::max(one(instance), other(instance));
    };
}

Condition negated(Condition condition) {
    return [condition = std::move(condition)](const Instance& instance) {
        const Truth truth = condition(instance);
        return truth == Truth::Unknown ? truth : truthOf(truth == Truth::No);
    };
}

Condition compared(Operand one, const std::string& sign, Operand other) {
    return [one = std::move(one), sign, other = std::move(other)](const Instance& instance) {
        const auto left = one.valueFor(instance);
        const auto right = other.valueFor(instance);
        return left && right ? truthOf(ordered(sign, compareValues(one.kind, *left, *right)))
                             : Truth::Unknown;
    };
}

Condition isNull(Operand operand) {
    return [operand = std::move(operand)](const Instance& instance) {
        return truthOf(!operand.valueFor(instance));
    };
}

Condition isLike(Operand operand, LikePattern pattern) {
    return [operand = std::move(operand), pattern = std::move(pattern)](const Instance& instance) {
        const auto text = operand.valueFor(instance);
        return text ? truthOf(pattern.matches(*text)) : Truth::Unknown;
    };
}

Condition isOfClass(const ClassView& type) {
    return [&type](const Instance& instance) { return truthOf(instance.type().isOrInherits(type)); };
}

Condition refersToClass(const std::string& property, const ClassView& type, const ClassStore& classes) {
    return [property, &type, &classes](const Instance& instance) {
        const std::string name = classNameIn(instance.valueXml(property));
        const ClassView* referred = classes.find(name);
        if (name.empty()) {
            return Truth::Unknown;
        }
        return truthOf(referred != nullptr && referred->isOrInherits(type));
    };
}

}  // namespace cimom
