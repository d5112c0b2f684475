#pragma once

#include <string>
#include <vector>

#include "cimom/data/NameSpace.h"
#include "cimom/operations/CimRequest.h"
#include "cimom/schema/ValueCheck.h"

namespace cimom {

/// An argument after its type was checked, its value an XML element as this server writes it.
struct MethodArgument {
    const ParameterView* parameter = nullptr;  ///< Owned by the class.
    std::string valueXml;                      ///< Empty: null.
};

/// The call of an extrinsic method, target and arguments looked up and checked.
struct MethodCall {
    const ClassView* type = nullptr;     ///< Class of the target; owned by the namespace.
    const MemberView* method = nullptr;  ///< Owned by the class.
    Instance* instance = nullptr;        ///< Null: called on the class. Owned by the namespace.
    std::vector<MethodArgument> arguments;

    /// Finds target and method and checks every argument against its declaration. Throws CimError.
    static MethodCall prepare(const CimRequest& request, NameSpace& nameSpace);

    /// The value element of an argument; empty when it is null or was not given.
    std::string valueXml(const std::string& parameter) const;

    /// The text of a scalar argument; empty when it is null or was not given.
    std::string text(const std::string& parameter) const;

    /// The instance that the method is called on. Throws CimError (invalid parameter) when it is a class.
    Instance& requireInstance() const;
};

/// What a method gives back.
struct MethodResult {
    struct Out {
        std::string name;
        std::string valueXml;  ///< Empty: null.
    };

    std::string returnXml;  ///< VALUE element; empty: no return value.
    std::vector<Out> out;   ///< Names of out-parameters that the method declares.
};

}  // namespace cimom
