#ifdef __linux__

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>

#include "cimhttp/PegClient.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "tests/support/PluginTest.h"

namespace NQELVSK20 {
namespace {

class ThreadsTest : public PluginTest {
protected:
    static std::ptrdiff_t Threads() {
        using std::filesystem::directory_iterator;
        return std::distance(directory_iterator("/proc/self/task"), directory_iterator());
    }
};

TEST_F(ThreadsTest, ThePluginStartsNone) {
    TestMachine machine(3);  // one thread of the embedded server's own
    const auto before = Threads();
    const auto nameSpace = MakeNamespace();
    ConnectTo(*nameSpace, machine);
    EXPECT_EQ(Threads(), before) << "connect";

    EXPECT_TRUE(nameSpace->GetClass("OMC_NumericSensor", TContext()));
    std::vector<std::string> names;
    EXPECT_TRUE(nameSpace->EnumerateInstanceNames("root/cimv2", "OMC_NumericSensor", names));
    EXPECT_EQ(Threads(), before) << "requests";

    cimom::Fault silence;
    silence.kind = cimom::Fault::Kind::NoAnswer;
    machine.Server().inject(silence);
    EXPECT_TRUE(nameSpace->getPegClient()->EnumerateClassNames("root/cimv2", "", false, 50).empty());
    EXPECT_TRUE(nameSpace->getPegClient()->LastRequestTimedOut());
    EXPECT_EQ(Threads(), before) << "time-outs";

    nameSpace->disconnect();
    EXPECT_FALSE(nameSpace->getPegClient()->Connect("localhost.invalid", "", ""));
    EXPECT_EQ(Threads(), before) << "a host that does not resolve";
}

}  // namespace
}  // namespace NQELVSK20

#endif
