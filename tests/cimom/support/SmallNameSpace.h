#pragma once

#include <pugixml.hpp>
#include <string>

#include "cimom/data/NameSpace.h"
#include "cimom/operations/CimAnswer.h"
#include "tests/cimom/support/Requests.h"

namespace cimom::test {

/// A declaration text around VALUE.OBJECT contents and qualifier declarations.
std::string declarations(const std::string& content);
std::string object(const std::string& classOrInstance);

/// Four classes, Base (abstract) > Middle > Leaf and Other, with instances in the order leaf "a",
/// middle "m", leaf "b".
extern const char* const kSmallDeclarations;

/// A namespace "root/cimv2" that holds kSmallDeclarations.
class SmallNameSpace {
public:
    SmallNameSpace();

    NameSpace& operator*() { return nameSpace_; }
    NameSpace* operator->() { return &nameSpace_; }

    /// Adds further declarations.
    void add(const std::string& content);

    /// Carries out an intrinsic operation; its result is what is inside the returned node. Lives until the
    /// next call. Throws what the operation throws.
    pugi::xml_node run(const std::string& operation, const Arguments& arguments);

    /// What the answer to that operation has besides: its output parameters, and whether it returns a value.
    const AnswerExtras& extras() const { return extras_; }

    /// Value of an output parameter of that operation.
    std::string output(const std::string& name) const;

    /// Likewise a method; `path` is an INSTANCENAME or CLASSNAME element.
    pugi::xml_node invoke(const std::string& method, const std::string& path, const Arguments& arguments);

private:
    pugi::xml_node parse(const std::string& result);

    NameSpace nameSpace_;
    pugi::xml_document result_;
    AnswerExtras extras_;
};

/// The path of an instance of the small namespace.
std::string smallPath(const std::string& className, const std::string& id);

/// Values of an attribute of all element children, put together with blanks.
std::string attributesOf(pugi::xml_node parent, const char* attribute);

/// The child element with that NAME, or a null node.
pugi::xml_node named(pugi::xml_node parent, const char* name);

/// The XML of a node without anything between the elements.
std::string xmlOf(pugi::xml_node node);

/// Runs a task and returns the status code of the CimError that it throws; 0 when it throws none.
template <typename Task>
int errorOf(const Task& task);

}  // namespace cimom::test

#include "cimom/common/CimError.h"

template <typename Task>
int cimom::test::errorOf(const Task& task) {
    try {
        task();
    } catch (const CimError& error) {
        return static_cast<int>(error.status());
    }
    return 0;
}
