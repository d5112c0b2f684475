#pragma once

#include <pugixml.hpp>
#include <string>

#include "cimom/data/NameSpace.h"
#include "cimom/data/Repository.h"
#include "tests/cimom/support/Requests.h"

namespace cimom::test {

/// The namespace "root/cimv2" of a node of the sample machine.
class SampleNameSpace {
public:
    explicit SampleNameSpace(unsigned node = 0);

    NameSpace* operator->() { return &nameSpace_; }

    /// As those of SmallNameSpace.
    pugi::xml_node run(const std::string& operation, const Arguments& arguments);
    pugi::xml_node invoke(const std::string& method, const std::string& path, const Arguments& arguments);

    /// INSTANCENAME of the n-th instance of a class.
    std::string pathOf(const std::string& className, std::size_t n = 0);

    /// Value of a property of that instance.
    std::string valueOf(const std::string& className, std::size_t n, const std::string& property);

private:
    pugi::xml_node parse(const std::string& result);

    std::shared_ptr<Repository> repository_;
    NameSpace& nameSpace_;
    pugi::xml_document result_;
};

}  // namespace cimom::test
