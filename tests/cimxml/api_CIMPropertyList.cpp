#include <Pegasus/Common/CIMPropertyList.h>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

Array<CIMName> names(std::initializer_list<const char*> texts) {
    Array<CIMName> result;
    for (const char* text : texts)
        result.append(CIMName(text));
    return result;
}

}  // namespace

TEST(CIMPropertyList, IsNullByDefault) {
    const CIMPropertyList list;
    EXPECT_TRUE(list.isNull());
    EXPECT_EQ(list.size(), 0u);
    EXPECT_EQ(utf8(list.toString()), "NULL");
}

TEST(CIMPropertyList, EmptyIsNotNull) {
    const CIMPropertyList list{Array<CIMName>()};
    EXPECT_FALSE(list.isNull());
    EXPECT_EQ(list.size(), 0u);
    EXPECT_EQ(utf8(list.toString()), "EMPTY");
}

TEST(CIMPropertyList, HoldsNamesInOrder) {
    const CIMPropertyList list(names({"B", "A", "b"}));
    EXPECT_FALSE(list.isNull());
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(utf8(list[0].getString()), "B");
    EXPECT_EQ(utf8(list[2].getString()), "b");
    EXPECT_EQ(list.getPropertyNameArray().size(), 3u);
    EXPECT_EQ(utf8(list.toString()), "B, A, b");
    messageThrownBy<IndexOutOfBoundsException>([&] { (void)list[3]; });
}

TEST(CIMPropertyList, RejectsNullNames) {
    EXPECT_EQ(messageThrownBy<UninitializedObjectException>([] { CIMPropertyList(Array<CIMName>(1)); }),
              "uninitialized object");
    CIMPropertyList list(names({"A"}));
    messageThrownBy<UninitializedObjectException>([&] { list.set(Array<CIMName>(1)); });
    EXPECT_EQ(utf8(list.toString()), "A");
}

TEST(CIMPropertyList, SetsAndClears) {
    CIMPropertyList list;
    list.set(names({"A"}));
    EXPECT_EQ(utf8(list.toString()), "A");
    list.clear();
    EXPECT_TRUE(list.isNull());
    list.set(Array<CIMName>());
    EXPECT_FALSE(list.isNull());
}

TEST(CIMPropertyList, FindsNamesWithoutRegardToCase) {
    const CIMPropertyList list(names({"Alpha", "Beta"}));
    EXPECT_TRUE(list.contains(CIMName("BETA")));
    EXPECT_FALSE(list.contains(CIMName("Gamma")));
    EXPECT_TRUE(list.useThisProperty(CIMName("alpha")));
    EXPECT_FALSE(list.useThisProperty(CIMName("Gamma")));
}

TEST(CIMPropertyList, NullAsksForEverythingAndEmptyForNothing) {
    EXPECT_TRUE(CIMPropertyList().useThisProperty(CIMName("x")));
    EXPECT_FALSE(CIMPropertyList().contains(CIMName("x")));
    EXPECT_FALSE(CIMPropertyList(Array<CIMName>()).useThisProperty(CIMName("x")));
}

TEST(CIMPropertyList, AppendKeepsEachNameOnce) {
    Array<String> texts;
    for (const char* text : {"A", "b", "a", "B"})
        texts.append(String(text));
    CIMPropertyList list;
    list.append(texts);
    EXPECT_EQ(utf8(list.toString()), "A, b");
    Array<String> none;
    list.append(none);
    EXPECT_EQ(utf8(list.toString()), "A, b");
    CIMPropertyList empty;
    empty.append(none);
    EXPECT_EQ(utf8(empty.toString()), "EMPTY");
    Array<String> illegal(1, String("not legal"));
    messageThrownBy<InvalidNameException>([&] { list.append(illegal); });
}

TEST(CIMPropertyList, CopiesChangeIndependently) {
    const CIMPropertyList original(names({"A"}));
    CIMPropertyList copy(original);
    copy.clear();
    CIMPropertyList assigned;
    assigned = original;
    assigned.set(names({"B"}));
    EXPECT_EQ(utf8(original.toString()), "A");
    EXPECT_TRUE(copy.isNull());
    EXPECT_EQ(utf8(assigned.toString()), "B");
}
