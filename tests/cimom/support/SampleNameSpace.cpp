#include "tests/cimom/support/SampleNameSpace.h"

#include <stdexcept>

#include "cimom/common/Xml.h"
#include "cimom/data/RepositoryData.h"
#include "cimom/methods/MethodTable.h"
#include "cimom/operations/IntrinsicOperations.h"

namespace cimom::test {

SampleNameSpace::SampleNameSpace(unsigned node)
    : repository_(Repository::sampleNode(node)), nameSpace_(*repository_->data().find("root/cimv2")) {}

pugi::xml_node SampleNameSpace::parse(const std::string& result) {
    const std::string wrapped = "<Result>" + result + "</Result>";
    if (const auto defect = parseXml(wrapped, result_)) {
        throw std::runtime_error("the result is no XML: " + defect->what);
    }
    return firstElement(result_);
}

pugi::xml_node SampleNameSpace::run(const std::string& operation, const Arguments& arguments) {
    pugi::xml_document document;
    std::string result;
    runIntrinsicOperation(CimRequest::read(intrinsicMessage(operation, arguments), document), nameSpace_,
                          result);
    return parse(result);
}

pugi::xml_node SampleNameSpace::invoke(const std::string& method, const std::string& path,
                                       const Arguments& arguments) {
    pugi::xml_document document;
    std::string result;
    runExtrinsicMethod(CimRequest::read(extrinsicMessage(method, path, arguments), document), nameSpace_,
                       result);
    return parse(result);
}

std::string SampleNameSpace::pathOf(const std::string& className, std::size_t n) {
    return nameSpace_.instances.ofClassAndBelow(*nameSpace_.classes.find(className)).at(n)->nameXml();
}

std::string SampleNameSpace::valueOf(const std::string& className, std::size_t n,
                                     const std::string& property) {
    return nameSpace_.instances.ofClassAndBelow(*nameSpace_.classes.find(className)).at(n)->valueOf(property);
}

}  // namespace cimom::test
