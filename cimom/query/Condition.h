#pragma once

#include <functional>
#include <string>

#include "cimom/query/LikePattern.h"
#include "cimom/query/Operand.h"
#include "cimom/schema/ClassStore.h"

namespace cimom {

/// What a condition comes to: of what is null, nothing is known, nor of the opposite.
enum class Truth { No, Unknown, Yes };

/// What an instance has to fulfil.
using Condition = std::function<Truth(const Instance&)>;

Condition both(Condition one, Condition other);
Condition either(Condition one, Condition other);
Condition negated(Condition condition);

/// `sign` is one of = <> != < <= > >=; both operands are of one kind, which has an order.
Condition compared(Operand one, const std::string& sign, Operand other);
Condition isNull(Operand operand);
Condition isLike(Operand operand, LikePattern pattern);

/// Whether the instance is of `type` or a class below it. The class must outlive the condition.
Condition isOfClass(const ClassView& type);

/// Whether the object that a reference names is. The store must outlive the condition, too.
Condition refersToClass(const std::string& property, const ClassView& type, const ClassStore& classes);

}  // namespace cimom
