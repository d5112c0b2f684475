#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tools/values/ValueMap.h"
#include "vskcore/ICIMMethodDecl.h"
#include "vskcore/TCIMReference.h"
#include "vskcore/TCIMValue.h"
#include "vskcore/TContext.h"

namespace tool {

/// Turns what a person typed for a method's parameters into values of the declared types, or throws
/// UsageError that says which argument is wrong and what is expected: nothing may be sent then.
class ArgumentParser {
public:
    using MakeReference = std::function<NQELVSK20::TCIMReference(const std::string& path)>;

    /// Tells what the values of a parameter mean; null when nothing does. Holds until the next question.
    using MeaningsOf = std::function<const ValueMap*(const std::string& parameter)>;

    /// `makeReference` binds a path to the namespace.
    ArgumentParser(const NQELVSK20::ICIMMethodDecl& method, MakeReference makeReference,
                   MeaningsOf meaningsOf = nullptr);

    /// NAME=VALUE each, names without regard to case. A number may be given by the name that a ValueMap has
    /// for it.
    NQELVSK20::TContext parse(const std::vector<std::string>& arguments) const;

    /// A value of a type, scalar or array (`[a,b]`, elements with commas or quotes as `"a,b"`). `name` is for
    /// the message; with `meanings`, which may be null, a number can be given by its name.
    NQELVSK20::TCIMValue value(const std::string& name, NQELVSK20::TCIMValue::TCIMType type,
                               const std::string& text, const ValueMap* meanings = nullptr) const;

private:
    NQELVSK20::TCIMValue scalar(const std::string& name, NQELVSK20::TCIMValue::TCIMType type,
                                const std::string& text, const ValueMap* meanings) const;
    NQELVSK20::TCIMValue array(const std::string& name, NQELVSK20::TCIMValue::TCIMType type,
                               const std::string& text, const ValueMap* meanings) const;

    const NQELVSK20::ICIMMethodDecl& method_;
    MakeReference makeReference_;
    MeaningsOf meaningsOf_;
};

/// A value of a scalar type other than a reference. `name` is for the message of the UsageError that is
/// thrown when the text is none. With `meanings`, which may be null, a number can be given by its name.
NQELVSK20::TCIMValue parseScalar(const std::string& name, NQELVSK20::TCIMValue::TCIMType type,
                                 const std::string& text, const ValueMap* meanings = nullptr);

/// The elements of `[a, "b,c", d]`: blanks around an element are left out, inside quotes `\` escapes. Throws
/// UsageError for text that is no such list.
std::vector<std::string> parseList(const std::string& text);

}  // namespace tool
