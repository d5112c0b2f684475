#include <gtest/gtest.h>

#include <boost/pointer_cast.hpp>
#include <string>
#include <vector>

#include "cimhttp/TCimHTTPNamespace.h"
#include "model/TCimHTTPQualifierDecl.h"
#include "tests/support/PluginTest.h"
#include "tests/support/TCimHTTPNamespaceTestAccess.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {
namespace {

using Lines = std::vector<RecordingLogger::Line>;
using Names = std::vector<std::string>;

class QualifierTableTest : public PluginTest {
protected:
    static boost::shared_ptr<TCimHTTPQualifierDecl> Allocate(TCimHTTPNamespace& nameSpace,
                                                             const std::string& name,
                                                             const std::string& value) {
        return boost::dynamic_pointer_cast<TCimHTTPQualifierDecl>(
            nameSpace.AllocateQualifierDecl(name, TCIMValue(value), ICIMQualifierDecl::eScopeClass,
                                            ICIMQualifierDecl::eFlavorToSubclass, TContext()));
    }

    static void Add(TCimHTTPNamespace& nameSpace, const std::string& name, const std::string& value) {
        TCimHTTPNamespaceTestAccess::AddQualifierDecl(nameSpace, Allocate(nameSpace, name, value));
    }

    static std::string ValueOf(const TCimHTTPNamespace& nameSpace, const std::string& name) {
        return nameSpace.GetQualifierDecl(name, TContext())->GetValue(TContext()).ToString(10);
    }
};

TEST_F(QualifierTableTest, AllocatedDeclarationIsNotYetInTheTable) {
    const auto nameSpace = MakeUninitNamespace();
    const auto declaration = Allocate(*nameSpace, "Units", "Volts");
    EXPECT_EQ(declaration->GetName(TContext()), "Units");
    EXPECT_EQ(declaration->GetScope(TContext()), 1U);
    EXPECT_EQ(declaration->GetFlavor(TContext()), 2U);
    EXPECT_EQ(declaration->GetNamespace(TContext()), nameSpace);
    EXPECT_FALSE(nameSpace->GetQualifierDecl("Units", TContext()));
}

TEST_F(QualifierTableTest, LowerCaseFormOfANameFindsTheDeclaration) {
    const auto declaration = MakeUninitNamespace()->GetQualifierDecl("pluginname", TContext());
    ASSERT_TRUE(declaration);
    EXPECT_EQ(declaration->GetName(TContext()), "PLUGINNAME");
}

TEST_F(QualifierTableTest, NameNeverAddedGivesNothingEvenWhenConnected) {
    TestMachine machine;
    const auto nameSpace = Connected(machine);
    EXPECT_FALSE(nameSpace->GetQualifierDecl("Description", TContext()));
    EXPECT_TRUE(log_.Lines().empty());
    EXPECT_TRUE(machine.Requests().empty());
}

TEST_F(QualifierTableTest, InvalidNameThrows) {
    const auto nameSpace = MakeUninitNamespace();
    EXPECT_THROW(nameSpace->GetQualifierDecl("no name", TContext()), TVSKException);
    EXPECT_EQ(log_.Lines(), (Lines{{0, "CimHTTP: CIM name 'no name' is invalid"}}));
    EXPECT_THROW(Add(*nameSpace, "no name", ""), TVSKException);
}

TEST_F(QualifierTableTest, EnumerationRunsInKeyOrderUntilTheCallbackSaysFalse) {
    const auto nameSpace = MakeUninitNamespace();
    Names all;
    nameSpace->EnumerateQualifierDecls(
        [&](boost::shared_ptr<ICIMQualifierDecl> declaration) {
            all.push_back(declaration->GetName(TContext()));
            return true;
        },
        TContext());
    EXPECT_EQ(all, (Names{"PLUGINNAME", "PLUGINVERSION"}));

    Add(*nameSpace, "abstract", "");
    Names first;
    nameSpace->EnumerateQualifierDecls(
        [&](boost::shared_ptr<ICIMQualifierDecl> declaration) {
            first.push_back(declaration->GetName(TContext()));
            return false;
        },
        TContext());
    EXPECT_EQ(first, (Names{"abstract"}));
}

TEST_F(QualifierTableTest, SecondDeclarationOfANameIsRefusedWithoutTheFlag) {
    const auto nameSpace = MakeUninitNamespace("root/cimv2", false);
    Add(*nameSpace, "Units", "Volts");
    try {
        Add(*nameSpace, "UNITS", "Watts");
        FAIL() << "no exception";
    } catch (const TVSKException& error) {
        EXPECT_EQ(error.GetStatusCode(), 16);
    }
    EXPECT_EQ(log_.Lines(), (Lines{{3, "CimHTTP: TCimHTTPNamespace: qualifier UNITS already defined"}}));
    EXPECT_EQ(ValueOf(*nameSpace, "Units"), "Volts");
}

TEST_F(QualifierTableTest, SecondDeclarationOfANameReplacesTheFirstWithTheFlag) {
    const auto nameSpace = MakeUninitNamespace("root/cimv2", true);
    Add(*nameSpace, "Units", "Volts");
    Add(*nameSpace, "UNITS", "Watts");
    EXPECT_TRUE(log_.Lines().empty());
    EXPECT_EQ(ValueOf(*nameSpace, "Units"), "Watts");
    EXPECT_EQ(nameSpace->GetQualifierDecl("units", TContext())->GetName(TContext()), "UNITS");
}

TEST_F(QualifierTableTest, CommitEntersADeclaration) {
    const auto nameSpace = MakeUninitNamespace();
    const auto declaration = Allocate(*nameSpace, "Units", "Volts");
    declaration->Commit(TContext());
    EXPECT_EQ(nameSpace->GetQualifierDecl("units", TContext()), declaration);
}

}  // namespace
}  // namespace NQELVSK20
