#include <Pegasus/Common/CIMObjectPath.h>

#include "ApiTesting.h"

using namespace Pegasus;

TEST(ModelCIMObjectPath, SortsNoArrayButItsOwn) {
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(CIMName("b"), String("1"), CIMKeyBinding::NUMERIC));
    keys.append(CIMKeyBinding(CIMName("a"), String("2"), CIMKeyBinding::NUMERIC));
    CIMObjectPath path(String(), CIMNamespaceName(), CIMName("A"), keys);
    EXPECT_EQ(utf8(path.toString()), "A.a=2,b=1");
    EXPECT_EQ(utf8(keys[0].getName().getString()), "b");
}

TEST(ModelCIMObjectPath, FailedSetChangesNothing) {
    CIMObjectPath path(String("root:A.k=1"));
    messageThrownBy<MalformedObjectNameException>([&] { path.set(String("//h1/root:B.k=?")); });
    EXPECT_EQ(utf8(path.toString()), "root:A.k=1");
}

TEST(ModelCIMObjectPath, LinkLocalAddressesNeedAZone) {
    const CIMObjectPath path(String("//[fe80::1%eth0]:5989/root:A"));
    EXPECT_EQ(utf8(path.getHost()), "[fe80::1%eth0]:5989");
    messageThrownBy<MalformedObjectNameException>([] { CIMObjectPath(String("//[fe80::1%]/root:A")); });
    messageThrownBy<MalformedObjectNameException>([] { CIMObjectPath(String("//[::1%eth0]/root:A")); });
}
