#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "cimhttp/TCimHTTPNamespace.h"
#include "qelc/TQELCNamespace.h"
#include "tests/support/Declarations.h"
#include "tests/support/PluginTest.h"
#include "tests/support/TCimHTTPNamespaceTestAccess.h"
#include "tests/support/schema/TInmemUnion.h"

namespace NQELVSK20 {
namespace {

using Lines = std::vector<RecordingLogger::Line>;
using Names = std::vector<std::string>;

/// A union namespace that knows its classes at some questions only; what the last entry says holds from then
/// on.
class MoodyUnion : public TInmemUnion {
public:
    using TInmemUnion::operator=;

    boost::shared_ptr<ICIMClass> GetClass(const std::string& name, TContext context) override {
        const bool knows = asked_ < knows_.size() ? knows_[asked_] : knows_.back();
        ++asked_;
        return knows ? TInmemUnion::GetClass(name, std::move(context)) : boost::shared_ptr<ICIMClass>();
    }

    /// From now on answers so.
    void Answer(std::vector<bool> knows) {
        knows_ = std::move(knows);
        asked_ = 0;
    }
    std::size_t Asked() const { return asked_; }

private:
    std::vector<bool> knows_{true};
    std::size_t asked_ = 0;
};

/// A union namespace that knows one of its classes by another name too.
class AliasingUnion : public TInmemUnion {
public:
    using TInmemUnion::operator=;

    boost::shared_ptr<ICIMClass> GetClass(const std::string& name, TContext context) override {
        return TInmemUnion::GetClass(name == "T_Fan" ? "T_Other" : name, std::move(context));
    }
};

class UnionLookupTest : public PluginTest {
protected:
    UnionLookupTest() {
        machine_.Repository(0).addDeclarations(
            "root/cimv2",
            Declarations({ClassXml("T_Top", "", KeyXml("Id", "string")),
                          ClassXml("T_Fan", "T_Top", PropertyXml("OfFan", "string"))}),
            "union lookup");
        moody_->Answer({true});
        DeclareIn(*moody_, "T_Top");
        common_->SetUpcallNamespace(moody_, TContext());
        nameSpace_ = Connected(machine_);
    }

    static TestMachine::Options Bare() {
        TestMachine::Options options;
        options.sampleData = false;
        return options;
    }

    static void DeclareIn(TUnionNamespace& nameSpace, const std::string& name) {
        const auto cimClass = nameSpace.AllocateClass(name, boost::shared_ptr<ICIMClass>(), TContext());
        cimClass->AllocatePropertyDecl("FromUnion", TCIMValue("x"), TContext())->Commit(TContext());
        cimClass->Commit(TContext());
    }

    static Names PropertiesOf(const ICIMClass& cimClass) {
        Names names;
        cimClass.EnumeratePropertyDecls(
            [&](const boost::shared_ptr<ICIMPropertyDecl>& declaration) {
                names.push_back(declaration->GetName(TContext()));
                return true;
            },
            TContext());
        return names;
    }

    static RecordingLogger::Line Looked(const std::string& name, const std::string& what) {
        return {3, "TCimHTTPNamespace::GetClass " + name + what};
    }

    TestMachine machine_{Bare()};
    const boost::shared_ptr<MoodyUnion> moody_{new MoodyUnion};
    boost::shared_ptr<TCimHTTPNamespace> nameSpace_;
};

TEST_F(UnionLookupTest, ClassThatItsFirstAnswerAloneTellsComesFromTheNodes) {
    moody_->Answer({true, false});
    const auto found = nameSpace_->GetClass("T_Top", TContext());
    ASSERT_TRUE(found);
    EXPECT_EQ(PropertiesOf(*found), (Names{"Id", "NodeID"}));
    EXPECT_EQ(log_.Lines().back(), Looked("T_Top", " Now it is Found in TCimHTTPNamespace"));
}

TEST_F(UnionLookupTest, ClassThatItsSecondAnswerTellsIsCopied) {
    moody_->Answer({false, true});
    const auto found = nameSpace_->GetClass("T_Top", TContext());
    ASSERT_TRUE(found);
    EXPECT_EQ(PropertiesOf(*found), (Names{"FromUnion", "NodeID"}));
    EXPECT_EQ(log_.Lines().back(),
              Looked("T_Top", " Now it is Found in TCimHTTPNamespace from union namespace"));
}

TEST_F(UnionLookupTest, ClassWhoseCopyHasAnotherNameIsDefinedByTheNodes) {
    const boost::shared_ptr<AliasingUnion> aliasing(new AliasingUnion);
    DeclareIn(*aliasing, "T_Other");
    common_->SetUpcallNamespace(aliasing, TContext());
    const auto found = nameSpace_->GetClass("T_Fan", TContext());
    ASSERT_TRUE(found);
    EXPECT_EQ(found->GetName(TContext()), "T_Fan");
    EXPECT_EQ(PropertiesOf(*found), (Names{"NodeID", "OfFan"}));
}

TEST_F(UnionLookupTest, LogOfACopiedClassReadsSo) {
    ASSERT_TRUE(nameSpace_->GetClass("T_Top", TContext()));
    EXPECT_EQ(log_.Lines(),
              (Lines{{3, "TCimHTTPNamespace::GetClass from Pegasus for: T_Top"},
                     Looked("", " : return <root>"),  // where the copy is to be attached
                     Looked("T_Top", " Now it is Found in TCimHTTPNamespace from union namespace")}));
    EXPECT_EQ(machine_.Requests(), Names{"0 GetClass T_Top"}) << "for the superclass alone";
    log_.Clear();
    const std::size_t asked = moody_->Asked();
    ASSERT_TRUE(nameSpace_->GetClass("t_top", TContext()));
    EXPECT_EQ(log_.Lines(), (Lines{{3, "TCimHTTPNamespace::GetClass from Pegasus for: t_top"},
                                   Looked("t_top", " Found in TCimHTTPNamespace")}));
    EXPECT_EQ(moody_->Asked(), asked);
}

TEST_F(UnionLookupTest, LogOfAClassWhoseSuperclassIsCopiedReadsSo) {
    ASSERT_TRUE(nameSpace_->GetClass("T_Fan", TContext()));
    const RecordingLogger::Line superclass{3, "TCimHTTPNamespace::GetClass from Pegasus for: T_Top"};
    EXPECT_EQ(log_.Lines(),
              (Lines{{3, "TCimHTTPNamespace::GetClass from Pegasus for: T_Fan"},
                     superclass,
                     Looked("", " : return <root>"),
                     Looked("T_Top", " Now it is Found in TCimHTTPNamespace from union namespace"),
                     superclass,  // once more, to attach to
                     Looked("T_Top", " Found in TCimHTTPNamespace"),
                     Looked("T_Fan", " Now it is Found in TCimHTTPNamespace")}));
}

TEST_F(UnionLookupTest, HypervisorThatTheFirstMissDetectsIsReadFromTheNodesAtOnce) {
    machine_.Repository(0).addDeclarations(
        "root/cimv2",
        Declarations(
            {ClassXml("VMware_HypervisorSoftwareIdentity", "", KeyXml("InstanceID", "string")),
             InstanceXml("VMware_HypervisorSoftwareIdentity", PropertyXml("InstanceID", "string", "1"))}),
        "hypervisor");
    TCimHTTPNamespaceTestAccess::SetDetectionDone(false);
    ASSERT_FALSE(nameSpace_->getIsServeESXi());
    const auto found = nameSpace_->GetClass("T_Top", TContext());
    ASSERT_TRUE(found);
    EXPECT_TRUE(nameSpace_->getIsServeESXi());
    EXPECT_EQ(PropertiesOf(*found), (Names{"Id", "NodeID"}));
    EXPECT_EQ(moody_->Asked(), 0U);
    EXPECT_EQ(machine_.Requests(), (Names{"0 EnumerateInstances VMware_HypervisorSoftwareIdentity",
                                          "0 GetClass T_Top", "0 GetClass T_Top", "0 GetClass T_Top"}));
}

}  // namespace
}  // namespace NQELVSK20
