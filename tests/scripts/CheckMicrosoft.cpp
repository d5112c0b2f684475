// scripts/check-microsoft on trees of an interface and a source.

#include <gtest/gtest.h>

#include <string>

#include "tests/scripts/PlantedTree.h"
#include "tests/support/Process.h"

namespace {

class CheckMicrosoft : public ::testing::Test {
protected:
    CheckMicrosoft() {
        WriteSource("#include <string>\nstd::string text() { return {}; }");
        WriteInterface("virtual void Start() = 0;\nvirtual void Stop(int code) = 0;");
        WriteSlots("Start\nStop");
    }

    void WriteSource(const std::string& text) const { tree_.Write("model/A.cpp", text); }

    /// An interface with operations after its destructor.
    void WriteInterface(const std::string& operations) const {
        tree_.Write(
            "host/vskcore/IFan.h",
            "#pragma once\nnamespace NQELVSK20 {\nclass IFan {\npublic:\nvirtual ~IFan() = default;\n" +
                operations + "\n};\n}");
    }

    /// The table with the operations given, each in a line.
    void WriteSlots(const std::string& operations) const {
        std::string table = "IFan vskcore/IFan.h\n  1 destructor\n  2 ";
        int slot = 2;
        for (const char c : operations) {
            table += c;
            if (c == '\n') {
                table += "  " + std::to_string(++slot) + " ";
            }
        }
        tree_.Write("tests/host/slots.txt", table);
    }

    /// What the script finds; empty when that is nothing. Its exit status has to agree.
    std::string Check() const {
        const auto result = support::runProcess({CHECK_MICROSOFT, tree_.Path()});
        EXPECT_EQ(result.status, result.out.empty() ? 0 : 1) << result.err;
        return result.out;
    }

    void ExpectError(const std::string& place, const std::string& error) const {
        const std::string said = Check();
        EXPECT_NE(said.find(place), std::string::npos) << said;
        EXPECT_NE(said.find(error), std::string::npos) << said;
    }

    const PlantedTree tree_{"check-microsoft"};
};

TEST_F(CheckMicrosoft, TakesWhatBothKindsOfCompilersTake) {
    EXPECT_EQ(Check(), "");
}

TEST_F(CheckMicrosoft, TakesAClassThatBeginsWithTheSlotsOfItsInterfaceAndGoesOn) {
    tree_.Write(
        "model/TFan.h",
        "#pragma once\n#include \"vskcore/IFan.h\"\nnamespace NQELVSK20 {\nclass TFan : public IFan {\n"
        "public:\nvoid Start() override;\nvoid Stop(int code) override;\nvirtual void Turn();\n};\n}");
    tree_.Write("tests/host/slots.txt",
                "IFan vskcore/IFan.h\n  1 destructor\n  2 Start\n  3 Stop\nTFan model/TFan.h IFan");
    EXPECT_EQ(Check(), "");
}

TEST_F(CheckMicrosoft, ShowsSourcesMicrosoftsCompilerInsteadOfGnus) {
    WriteSource("#include <string>\n#if defined(_MSC_VER)\n#error Microsoft's\n#endif");
    ExpectError("model/A.cpp:3:", "Microsoft's");
    WriteSource("#include <string>\n#if defined(__GNUC__) || defined(__MINGW32__)\n#error GNU's\n#endif");
    EXPECT_EQ(Check(), "");
}

TEST_F(CheckMicrosoft, RefusesAnExtensionOfGnus) {
    WriteSource("int two() { return ({ 2; }); }");
    ExpectError("model/A.cpp:1:", "GNU statement expression");
}

TEST_F(CheckMicrosoft, RefusesAHeaderThatOnlyAnotherSystemHas) {
    WriteSource("#include <netinet/tcp.h>");
    ExpectError("model/A.cpp:1:", "netinet/tcp.h");
}

TEST_F(CheckMicrosoft, RefusesAHeaderThatNoSourceIncludes) {
    tree_.Write("include/plugin/cimhttp/Fan.h", "#pragma once\nint two() { return ({ 2; }); }");
    ExpectError("include/plugin/cimhttp/Fan.h:2:", "GNU statement expression");
}

TEST_F(CheckMicrosoft, RefusesOperationsThatHaveChangedPlaces) {
    WriteInterface("virtual void Stop(int code) = 0;\nvirtual void Start() = 0;");
    EXPECT_EQ(Check(),
              "IFan: Microsoft's ABI: slot 2 is Stop(int) instead of Start\n"
              "IFan: Microsoft's ABI: slot 3 is Start() instead of Stop\n"
              "IFan: the others' ABI: slot 2 is Stop(int) instead of Start\n"
              "IFan: the others' ABI: slot 3 is Start() instead of Stop\n");
}

TEST_F(CheckMicrosoft, RefusesAnOperationThatTheTableDoesNotHave) {
    WriteSlots("Start");
    EXPECT_EQ(Check(),
              "IFan: Microsoft's ABI: slot 3 is Stop(int) instead of nothing\n"
              "IFan: the others' ABI: slot 3 is Stop(int) instead of nothing\n");
}

TEST_F(CheckMicrosoft, RefusesOverloadsInOneOrderForBothKindsOfCompilers) {
    WriteInterface("virtual void Stop() = 0;\nvirtual void Stop(int code) = 0;");
    WriteSlots("Stop()\nStop(int)");
    EXPECT_EQ(Check(),
              "IFan: Microsoft's ABI: slot 2 is Stop(int) instead of Stop()\n"
              "IFan: Microsoft's ABI: slot 3 is Stop() instead of Stop(int)\n");
}

TEST_F(CheckMicrosoft, RefusesATreeWithoutATableOfSlots) {
    std::filesystem::remove(tree_.Path() + "/tests/host/slots.txt");
    ExpectError("tests/host/slots.txt", "No such file");
}

}  // namespace
