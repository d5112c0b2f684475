// scripts/check-layers on trees with one planted violation each.

#include <gtest/gtest.h>

#include <string>

#include "tests/scripts/PlantedTree.h"
#include "tests/support/Process.h"

namespace {

class CheckLayers : public ::testing::Test {
protected:
    void Write(const std::string& path, const std::string& text) const { tree_.Write(path, text); }

    /// What the script says of the tree; empty when it finds nothing. Its exit status has to agree.
    std::string Check() const {
        const auto result = support::runProcess({CHECK_LAYERS, tree_.Path()});
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.status, result.out.empty() ? 0 : 1);
        return result.out;
    }

    /// What it says of one file with one include.
    std::string CheckInclude(const std::string& path, const std::string& include) const {
        Write(path, include);
        return Check();
    }

    const PlantedTree tree_{"check-layers"};
};

TEST_F(CheckLayers, FindsNothingInThisProject) {
    const auto result = support::runProcess({CHECK_LAYERS, PROJECT_ROOT});
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.status, 0);
}

TEST_F(CheckLayers, AllowsWhatTheTableHas) {
    Write("model/NodeMark.h", "#include <string>\n#include \"vskcore/TCIMValue.h\"");
    Write("model/TCimHTTPClass.cpp",
          "#include <Pegasus/Common/CIMClass.h>\n#include \"cimhttp/PegClient.h\"\n"
          "#include \"connection/client/Nodes.h\"\n#include \"model/NodeMark.h\"");
    Write("tests/model/Anything.cpp", "#include \"model/NodeMark.h\"\n#include \"connection/State.h\"");
    EXPECT_EQ(Check(), "");
}

TEST_F(CheckLayers, RefusesAnArrowUpwardsInASource) {
    EXPECT_EQ(CheckInclude("model/TCimHTTPClass.cpp", "#include \"namespace/ClassCache.h\""),
              "model/TCimHTTPClass.cpp:1: model may not include namespace (namespace/ClassCache.h)\n");
}

TEST_F(CheckLayers, RefusesAnArrowUpwardsInAHeader) {
    EXPECT_EQ(CheckInclude("namespace/ClassCache.h", "\n#include \"connection/State.h\""),
              "namespace/ClassCache.h:2: namespace may not include connection (connection/State.h)\n");
}

TEST_F(CheckLayers, TellsARoomFromTheRoomAboveIt) {
    EXPECT_EQ(CheckInclude("connection/client/Nodes.cpp", "#include \"connection/State.h\""),
              "connection/client/Nodes.cpp:1: connection/client may not include connection "
              "(connection/State.h)\n");
}

TEST_F(CheckLayers, RefusesAPublicHeaderWhereTheRoomMayNotHaveIt) {
    EXPECT_EQ(CheckInclude("convert/ToCore.cpp", "#include \"cimhttp/PegClient.h\""),
              "convert/ToCore.cpp:1: convert may not include cimhttp (cimhttp/PegClient.h)\n");
}

TEST_F(CheckLayers, RefusesALibrarysHeaderByItsNameInAngleBrackets) {
    EXPECT_EQ(CheckInclude("provider/contract/Log.h", "#include <Pegasus/Common/String.h>"),
              "provider/contract/Log.h:1: provider/contract may not include Pegasus "
              "(Pegasus/Common/String.h)\n");
    Write("provider/contract/Log.h", "");
    EXPECT_EQ(CheckInclude("provider/contract/PegText.h", "#include <Pegasus/Common/String.h>"), "");
}

TEST_F(CheckLayers, RefusesTheHostsHeadersWhereTheyMayNotBe) {
    EXPECT_EQ(CheckInclude("cimxml/wire/Scalars.cpp", "#include \"vskcore/TCIMValue.h\""),
              "cimxml/wire/Scalars.cpp:1: cimxml/wire may not include vskcore (vskcore/TCIMValue.h)\n");
    Write("cimxml/wire/Scalars.cpp", "");
    EXPECT_EQ(CheckInclude("host/vskcore/TCIMCopy.cpp", "#include \"union/TUnionNamespace.h\""),
              "host/vskcore/TCIMCopy.cpp:1: host/vskcore may not include union (union/TUnionNamespace.h)\n");
}

TEST_F(CheckLayers, RefusesTheFloorAboveInTheClientLibrary) {
    EXPECT_EQ(CheckInclude("cimxml/common/CIMValue.cpp", "#  include \"cimxml/wire/Scalars.h\""),
              "cimxml/common/CIMValue.cpp:1: cimxml/common may not include cimxml/wire "
              "(cimxml/wire/Scalars.h)\n");
}

TEST_F(CheckLayers, RefusesTheFloorAboveInTheEmbeddedServer) {
    EXPECT_EQ(CheckInclude("cimom/schema/ClassStore.cpp", "#include \"cimom/data/Instance.h\""),
              "cimom/schema/ClassStore.cpp:1: cimom/schema may not include cimom/data "
              "(cimom/data/Instance.h)\n");
    Write("cimom/schema/ClassStore.cpp", "");
    EXPECT_EQ(CheckInclude("cimom/http/RequestLog.h", "#include \"cimom/Server.h\""),
              "cimom/http/RequestLog.h:1: cimom/http may not include cimom (cimom/Server.h)\n");
}

TEST_F(CheckLayers, KeepsWhatIsBehindTheEmbeddedServersFaceFromItsProgramAndTheTools) {
    EXPECT_EQ(CheckInclude("cimom/program/main.cpp", "#include \"cimom/http/Listener.h\""),
              "cimom/program/main.cpp:1: cimom/program may not include cimom/http (cimom/http/Listener.h)\n");
    Write("cimom/program/main.cpp", "#include \"cimom/Server.h\"");
    EXPECT_EQ(CheckInclude("tools/machine/EmbeddedMachine.cpp", "#include \"cimom/data/Instance.h\""),
              "tools/machine/EmbeddedMachine.cpp:1: tools/machine may not include cimom/data "
              "(cimom/data/Instance.h)\n");
}

TEST_F(CheckLayers, RefusesTestsInTheProduct) {
    EXPECT_EQ(CheckInclude("cimom/Server.cpp", "#include \"tests/support/Process.h\""),
              "cimom/Server.cpp:1: cimom may not include tests (tests/support/Process.h)\n");
}

TEST_F(CheckLayers, RefusesAFileInARoomThatTheTableDoesNotHave) {
    EXPECT_EQ(CheckInclude("host/newroom/TThing.h", "#include <string>"),
              "host/newroom/TThing.h: stands in no room that the table has\n");
}

TEST_F(CheckLayers, RefusesACircleOfHeaders) {
    Write("model/A.h", "#include \"model/B.h\"");
    Write("model/B.h", "#include \"model/C.h\"");
    Write("model/C.h", "#include \"model/A.h\"");
    EXPECT_EQ(Check(), "a circle of headers and sources: model/A.h -> model/B.h -> model/C.h -> model/A.h\n");
}

TEST_F(CheckLayers, RefusesACircleOfRooms) {
    Write("host/inmem/TInmemInstance.h", "#include \"vskcore/ICIMClass.h\"");
    Write("host/vskcore/TCIMCopy.cpp", "#include \"inmem/TInmemInstance.h\"");
    const std::string said = Check();
    EXPECT_NE(said.find("a circle of rooms: host/inmem -> host/vskcore -> host/inmem\n"), std::string::npos)
        << said;
}

TEST_F(CheckLayers, RefusesAHostsEnumeratorOutsideTheRoomThatAdaptsThem) {
    Write("provider/contract/HostCodes.h",
          "constexpr auto kRemoteProvider = INamespaceProvider::eRemoteProvider;");
    Write("host/vskcore/TVSKStatusCode.h", "enum EVSKStatusCode { eVSKSuccess };");
    Write("model/TCimHTTPClass.cpp", "// as eVSKNotFound\nLog(\"eVSKNotFound\");\nRefuse(eVSKNotFound);");
    EXPECT_EQ(
        Check(),
        "model/TCimHTTPClass.cpp:3: eVSKNotFound is the host's name for it; provider/contract has one\n");
}

}  // namespace
