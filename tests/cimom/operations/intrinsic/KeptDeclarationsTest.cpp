// What a server that runs for long keeps of declarations that came and went.

#include <gtest/gtest.h>

#include <cstdlib>
#include <pugixml.hpp>

#include "tests/cimom/support/SmallNameSpace.h"
#include "tests/cimom/support/StatusCodes.h"

namespace cimom {
namespace {

int blocksInUse = 0;

void* takeBlock(std::size_t size) {
    ++blocksInUse;
    return std::malloc(size);
}

void giveBlockBack(void* block) {
    --blocksInUse;
    std::free(block);
}

class KeptDeclarationsTest : public testing::Test {
protected:
    KeptDeclarationsTest() { pugi::set_memory_management_functions(takeBlock, giveBlockBack); }
    ~KeptDeclarationsTest() override { pugi::set_memory_management_functions(std::malloc, std::free); }

    /// How many blocks of memory there are more after a thousand times than after one.
    template <typename Task>
    static int growthOver(const Task& task) {
        task();
        const int before = blocksInUse;
        for (int i = 0; i < 1000; ++i) {
            task();
        }
        return blocksInUse - before;
    }

    test::SmallNameSpace space_;
};

/// A text so long that a thousand of them take many blocks.
std::string longQualifier() {
    return "<QUALIFIER NAME=\"Text\" TYPE=\"string\"><VALUE>" + std::string(1000, 'x') +
           "</VALUE></QUALIFIER>";
}

TEST_F(KeptDeclarationsTest, AreNoMoreThanThereAreQualifiers) {
    const std::string declaration = "<QUALIFIER.DECLARATION NAME=\"Long\" TYPE=\"string\"><VALUE>" +
                                    std::string(1000, 'x') + "</VALUE></QUALIFIER.DECLARATION>";
    EXPECT_LT(growthOver([&] { space_.run("SetQualifier", {{"QualifierDeclaration", declaration}}); }), 5);
    EXPECT_LT(growthOver([&] {
                  space_.run("SetQualifier", {{"QualifierDeclaration", declaration}});
                  space_.run("DeleteQualifier", {{"QualifierName", test::valueXml("Long")}});
              }),
              5);
}

TEST_F(KeptDeclarationsTest, AreNoMoreThanThereAreClasses) {
    const std::string view = "<CLASS NAME=\"Long\">" + longQualifier() + "</CLASS>";
    const std::string orphan =
        "<CLASS NAME=\"Orphan\" SUPERCLASS=\"Nothing\">" + longQualifier() + "</CLASS>";
    EXPECT_LT(growthOver([&] {
                  space_.run("CreateClass", {{"NewClass", view}});
                  space_.run("ModifyClass", {{"ModifiedClass", view}});
                  space_.run("DeleteClass", {{"ClassName", test::classNameXml("Long")}});
              }),
              5);
    EXPECT_LT(growthOver([&] {
                  EXPECT_EQ(test::errorOf([&] {
                                space_.run("CreateClass", {{"NewClass", orphan}});
                            }),
                            test::kInvalidSuperclass);
              }),
              5);
}

}  // namespace
}  // namespace cimom
