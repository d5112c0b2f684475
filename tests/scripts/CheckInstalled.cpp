// scripts/check-installed on small projects, each with its installed headers.

#include <gtest/gtest.h>

#include <string>

#include "tests/scripts/PlantedTree.h"
#include "tests/support/Process.h"

namespace {

class CheckInstalled : public ::testing::Test {
protected:
    CheckInstalled() {
        tree_.Write("prefix/include/Pegasus/Common/String.h",
                    "#pragma once\n#include <string>\nstruct String {};");
        tree_.Write("root/tests/cimxml/ApiTesting.h", "#include <Pegasus/Common/String.h>");
    }

    void WriteApiTest(const std::string& text) const {
        tree_.Write("root/tests/cimxml/api_String.cpp", text);
    }

    /// What the script says; empty when it finds nothing. Its exit status has to agree.
    std::string Check() const {
        const auto result =
            support::runProcess({CHECK_INSTALLED, tree_.Path() + "/prefix", tree_.Path() + "/root"});
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.status, result.out.empty() ? 0 : 1);
        return result.out;
    }

    /// Expects one complaint, about `file`, that there is no such header as `missing`.
    void ExpectMissing(const std::string& file, const std::string& missing) const {
        const std::string said = Check();
        EXPECT_EQ(said.find(file + ": "), 0U) << said;
        EXPECT_NE(said.find(missing + ": No such file"), std::string::npos) << said;
        EXPECT_EQ(said.find('\n'), said.size() - 1) << said;
    }

    const PlantedTree tree_{"check-installed"};
};

TEST_F(CheckInstalled, TakesWhatNeedsTheInstalledHeadersAndTheTestsOwnOnly) {
    tree_.Write("prefix/include/cimhttp-host/vskcore/TCIMValue.h", "#include <string>");
    tree_.Write("prefix/include/cimhttp/PegClient.h",
                "#include \"vskcore/TCIMValue.h\"\n#include <Pegasus/Common/String.h>");
    tree_.Write("root/cimom/Server.h", "#include \"cimom/http/Fault.h\"");
    tree_.Write("root/cimom/http/Fault.h", "");
    tree_.Write("root/tests/cimxml/ClientTesting.h",
                "#include \"cimom/Server.h\"\n#include \"tests/cimxml/ApiTesting.h\"");
    WriteApiTest("#include \"ApiTesting.h\"\n#include \"tests/cimxml/ClientTesting.h\"\nString text;");
    EXPECT_EQ(Check(), "");
}

TEST_F(CheckInstalled, RefusesATestOfTheApiThatLooksBehindIt) {
    tree_.Write("root/cimxml/common/Rep.h", "");
    WriteApiTest("#include \"cimxml/common/Rep.h\"");
    ExpectMissing("tests/cimxml/api_String.cpp", "cimxml/common/Rep.h");
}

TEST_F(CheckInstalled, RefusesATestOfTheApiThatTakesAnotherTestsHeader) {
    tree_.Write("root/tests/cimxml/wire_Outcome.h", "");
    WriteApiTest("#include \"wire_Outcome.h\"");
    ExpectMissing("tests/cimxml/api_String.cpp", "wire_Outcome.h");
}

TEST_F(CheckInstalled, RefusesAHeaderThatNeedsOneThatStaysBehind) {
    tree_.Write("root/connection/State.h", "");
    tree_.Write("prefix/include/cimhttp/PegClient.h", "#include \"connection/State.h\"");
    ExpectMissing("cimhttp/PegClient.h", "connection/State.h");
}

TEST_F(CheckInstalled, RefusesAHeaderThatCannotStandFirst) {
    tree_.Write("prefix/include/cimhttp-host/union/TUnionNamespace.h", "inline std::string name;");
    const std::string said = Check();
    EXPECT_EQ(said.find("union/TUnionNamespace.h: "), 0U) << said;
}

TEST_F(CheckInstalled, RefusesAHeaderThatCannotBeIncludedTwice) {
    tree_.Write("prefix/include/cimhttp/Export.h", "struct Twice {};");
    const std::string said = Check();
    EXPECT_EQ(said.find("cimhttp/Export.h: "), 0U) << said;
}

TEST_F(CheckInstalled, RefusesATestThatUsesWhatNoInstalledHeaderDeclares) {
    WriteApiTest("#include \"ApiTesting.h\"\nPrivateString text;");
    const std::string said = Check();
    EXPECT_NE(said.find("PrivateString"), std::string::npos) << said;
}

TEST_F(CheckInstalled, RefusesAPlaceWhereNothingIsInstalled) {
    const auto result =
        support::runProcess({CHECK_INSTALLED, tree_.Path() + "/elsewhere", tree_.Path() + "/root"});
    EXPECT_EQ(result.out, tree_.Path() + "/elsewhere/include: no headers\n");
    EXPECT_EQ(result.status, 1);
}

}  // namespace
