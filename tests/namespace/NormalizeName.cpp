#include <gtest/gtest.h>

#include <clocale>

#include "cimhttp/TCimHTTPNamespace.h"
#include "tests/support/RecordingLogger.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {
namespace {

class NormalizeNameTest : public ::testing::Test {
protected:
    void ExpectInvalid(const std::string& name) {
        log_.Clear();
        try {
            TCimHTTPNamespace::NormalizeName(name);
            FAIL() << "no exception for '" << name << "'";
        } catch (const TVSKException& error) {
            EXPECT_EQ(error.GetStatusCode(), 25);
        }
        EXPECT_EQ(log_.Lines(),
                  (std::vector<RecordingLogger::Line>{{0, "CimHTTP: CIM name '" + name + "' is invalid"}}));
    }

    RecordingLogger log_;
};

TEST_F(NormalizeNameTest, EmptyNameStaysEmpty) {
    EXPECT_EQ(TCimHTTPNamespace::NormalizeName(""), "");
    EXPECT_TRUE(log_.Lines().empty());
}

TEST_F(NormalizeNameTest, LettersBecomeLowerCase) {
    EXPECT_EQ(TCimHTTPNamespace::NormalizeName("CIM_ComputerSystem"), "cim_computersystem");
    EXPECT_EQ(TCimHTTPNamespace::NormalizeName("_x1"), "_x1");
    EXPECT_EQ(TCimHTTPNamespace::NormalizeName("AZaz_09"), "azaz_09");
}

TEST_F(NormalizeNameTest, ArgumentIsNotChanged) {
    const std::string name = "CIM_Fan";
    TCimHTTPNamespace::NormalizeName(name);
    EXPECT_EQ(name, "CIM_Fan");
}

TEST_F(NormalizeNameTest, AnyLetterCaseGivesOneKey) {
    const std::string key = TCimHTTPNamespace::NormalizeName("QEL_RemoteNode");
    EXPECT_EQ(TCimHTTPNamespace::NormalizeName("qel_remotenode"), key);
    EXPECT_EQ(TCimHTTPNamespace::NormalizeName("QEL_REMOTENODE"), key);
}

TEST_F(NormalizeNameTest, NamesThatAreNoIdentifiersAreLoggedAsGivenAndThrown) {
    for (const char* name : {"1Fan", "CIM-Fan", "CIM Fan", "CIM.Fan",
                             "L\xc3\xbc"
                             "fter",
                             "\xc3\xbc", "<root>", "a/b"}) {
        ExpectInvalid(name);
    }
}

TEST_F(NormalizeNameTest, BlanksAreNeverStripped) {
    ExpectInvalid("CIM_Fan ");
    ExpectInvalid(" CIM_Fan");
    ExpectInvalid(" ");
}

TEST_F(NormalizeNameTest, ZeroByteIsInvalid) {
    ExpectInvalid(std::string("CIM\0Fan", 7));
}

TEST_F(NormalizeNameTest, TheHostsLocaleChangesNothing) {
    std::setlocale(LC_ALL, "C.UTF-8");
    ExpectInvalid("\xe4");
    EXPECT_EQ(TCimHTTPNamespace::NormalizeName("CIM_Fan"), "cim_fan");
    std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace NQELVSK20
