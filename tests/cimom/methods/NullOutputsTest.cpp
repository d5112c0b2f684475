// Out-parameters without a value: as empty elements, or not at all.

#include <gtest/gtest.h>

#include <pugixml.hpp>

#include "cimom/data/RepositoryData.h"
#include "cimom/methods/MethodTable.h"
#include "tests/cimom/support/Requests.h"

namespace cimom {
namespace {

std::string echoOfNothing(bool sendNulls) {
    const auto repository = Repository::sampleNode(0);
    pugi::xml_document document;
    const std::string message =
        test::extrinsicMessage("EchoUint8", test::echoServiceXml(), {{"Values", test::arrayXml({"7"})}});
    std::string out;
    runExtrinsicMethod(CimRequest::read(message, document), *repository->data().find("root/cimv2"), out,
                       sendNulls);
    return out;
}

const char* const kValues =
    "<PARAMVALUE NAME=\"ValuesEcho\" PARAMTYPE=\"uint8\"><VALUE.ARRAY><VALUE>7</VALUE></VALUE.ARRAY>"
    "</PARAMVALUE>";

TEST(NullOutputs, AreElementsWithoutAValueOrNotThereAtAll) {
    EXPECT_EQ(echoOfNothing(true),
              std::string("<PARAMVALUE NAME=\"ValueEcho\" PARAMTYPE=\"uint8\"></PARAMVALUE>") + kValues);
    EXPECT_EQ(echoOfNothing(false), kValues);
}

}  // namespace
}  // namespace cimom
