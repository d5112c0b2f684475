// A host that remembers nothing of a class chain: it asks for the superclasses again for every instance.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

#include "tests/model/ModelTest.h"
#include "vskcore/THostSetup.h"

namespace NQELVSK20 {
namespace {

class ForgetfulHost : public ModelTest {
protected:
    /// What a host gets to see of an operation.
    struct Seen {
        Names instances;  // each with its path and its properties, in the order of delivery
        Lines lines;      // of the log, but for those about the classes that were looked up
        Names requests;
    };

    ForgetfulHost() : machine_(Nodes(2)) {
        Declare(machine_,
                {ClassXml("X_Top", "", KeyXml("InstanceID", "string")),
                 ClassXml("X_Middle", "X_Top", KeyXml("Zone", "uint8") + PropertyXml("Caption", "string")),
                 ClassXml("X_Leaf", "X_Middle", PropertyXml("Speed", "uint32"))});
        for (std::size_t node = 0; node < 2; ++node) {
            const std::string number = std::to_string(node);
            DeclareOn(machine_, node, {Leaf("c" + number), Leaf("a" + number), Leaf("b" + number)});
        }
    }

    static std::string Leaf(const std::string& id) {
        return InstanceXml("X_Leaf", PropertyXml("Zone", "uint8", "3") + PropertyXml("Speed", "uint32", "7") +
                                         PropertyXml("InstanceID", "string", id.c_str()) +
                                         PropertyXml("Caption", "string", "a fan"));
    }

    /// Runs an operation on a class, in a host that remembers class chains or in one that does not.
    Seen See(bool remembers, const std::string& className,
             const std::function<Instances(const Class&)>& operation) {
        THostSetup::SetRemembersLayouts(remembers);
        const Namespace nameSpace = Connected(machine_);
        const Class leaf = GetClass(nameSpace, "X_Leaf");
        const Class cimClass = GetClass(nameSpace, className);
        log_.Clear();
        machine_.ClearRequests();
        Seen seen;
        for (const Instance& instance : operation(cimClass)) {
            seen.instances.push_back(Described(instance));
        }
        for (const auto& line : log_.Lines()) {
            if (line.second.rfind("TCimHTTPNamespace::GetClass ", 0) != 0) {
                seen.lines.push_back(line);
            }
        }
        seen.requests = machine_.Requests();
        return seen;
    }

    /// Both kinds of host see the same of an operation; the forgetful one has asked for more classes.
    void ExpectSame(const std::string& className, std::size_t instances,
                    const std::function<Instances(const Class&)>& operation) {
        const Seen usual = See(true, className, operation);
        const Seen forgetful = See(false, className, operation);
        EXPECT_EQ(usual.instances.size(), instances);
        EXPECT_EQ(forgetful.instances, usual.instances);
        EXPECT_EQ(forgetful.lines, usual.lines);
        EXPECT_EQ(Operations(forgetful.requests), Operations(usual.requests));
        EXPECT_GT(forgetful.requests.size(), usual.requests.size()) << "or it is not forgetful";
    }

    TestMachine machine_;

private:
    static std::string Described(const Instance& instance) {
        std::string text = instance->GetReference(TContext()).GetPath();
        instance->EnumerateProperties(
            [&](const boost::shared_ptr<ICIMProperty>& property) {
                text +=
                    " " + property->GetName(TContext()) + "=" + property->GetValue(TContext()).ToString(10);
                return true;
            },
            TContext());
        return text;
    }

    /// The requests for anything but a class.
    static Names Operations(Names requests) {
        const auto isForAClass = [](const std::string& request) {
            return request.find(" GetClass ") != std::string::npos;
        };
        requests.erase(std::remove_if(requests.begin(), requests.end(), isForAClass), requests.end());
        return requests;
    }
};

TEST_F(ForgetfulHost, GetsTheSameInstancesInTheSameOrder) {
    ExpectSame("X_Leaf", 6, [](const Class& leaf) { return InstancesOf(leaf); });
}

TEST_F(ForgetfulHost, GetsTheSameInstancesBelowASuperclass) {
    ExpectSame("X_Top", 18, [](const Class& top) { return InstancesOf(top, true); });
}

TEST_F(ForgetfulHost, FindsTheSameInstanceByItsPath) {
    ExpectSame("X_Leaf", 1, [](const Class& leaf) {
        return Instances{leaf->FindInstance(Reference("X_Leaf.Zone=3,InstanceID=\"Node2:b1\""), TContext())};
    });
}

TEST_F(ForgetfulHost, IsRefusedTheSameProperties) {
    ExpectSame("X_Middle", 12, [this](const Class& middle) {
        const Instances instances = InstancesOf(middle, true);
        EXPECT_EQ(log_.LinesWith("4TCimHTTPClass").size(), 6U) << "the speeds, which the subclass declares";
        return instances;
    });
}

TEST_F(ForgetfulHost, MakesAndCommitsTheSameInstances) {
    ExpectSame("X_Leaf", 2, [](const Class& leaf) {
        Instances found;
        for (const char* id : {"e", "f"}) {
            const Instance made = leaf->CreateInstance(TContext());
            made->SetPropertyValue("caption", TCIMValue("made here"), TContext());
            made->SetPropertyValue("instanceid", TCIMValue(id), TContext());
            made->Commit(TContext());
            found.push_back(leaf->FindInstance(made->GetReference(TContext()), TContext()));
            EXPECT_EQ(found.back(), made);
        }
        return found;
    });
}

}  // namespace
}  // namespace NQELVSK20
