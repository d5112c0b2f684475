#pragma once

#include <optional>

#include "tools/console/Output.h"
#include "tools/values/Qualifiers.h"
#include "tools/values/ValueMap.h"
#include "vskcore/TCIMValue.h"
#include "vskcore/TContext.h"

namespace tool {

/// What a method returned, with its meaning where the method's qualifiers tell one, and what it handed back.
class MethodPrinter {
public:
    /// `method` are its qualifiers; `output` must outlive the printer.
    MethodPrinter(Output& output, const QualifierValues& method)
        : output_(output), meanings_(valueMapIn(method)) {}

    void printText(const NQELVSK20::TCIMValue& returned, const NQELVSK20::TContext& outputs);
    void printJson(const NQELVSK20::TCIMValue& returned, const NQELVSK20::TContext& outputs);

private:
    Output& output_;
    std::optional<ValueMap> meanings_;
};

}  // namespace tool
