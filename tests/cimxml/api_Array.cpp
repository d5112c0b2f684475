#include <Pegasus/Common/Array.h>

#include <string>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

Array<Uint32> numbers(Uint32 count) {
    Array<Uint32> result;
    for (Uint32 i = 0; i < count; ++i)
        result.append(10 * i);
    return result;
}

template <class T>
std::string join(const Array<T>& array) {
    std::string text;
    for (Uint32 i = 0; i < array.size(); ++i)
        text += (i == 0 ? "" : " ") + std::to_string(array[i]);
    return text;
}

std::string join(const Array<String>& array) {
    std::string text;
    for (Uint32 i = 0; i < array.size(); ++i)
        text += (i == 0 ? "" : " ") + utf8(array[i]);
    return text;
}

}  // namespace

TEST(Array, IsEmptyByDefault) {
    const Array<String> array;
    EXPECT_EQ(array.size(), 0u);
}

TEST(Array, OfASizeHoldsDefaultElements) {
    EXPECT_EQ(join(Array<Uint32>(3)), "0 0 0");
    EXPECT_EQ(join(Array<String>(2)), " ");
    EXPECT_EQ(Array<Uint32>(0).size(), 0u);
}

TEST(Array, OfASizeAndAnElementHoldsCopies) {
    EXPECT_EQ(join(Array<String>(2, String("x"))), "x x");
}

TEST(Array, OfAPointerHoldsWhatItPointsAt) {
    const Sint16 items[] = {-1, 0, 7};
    EXPECT_EQ(join(Array<Sint16>(items, 3)), "-1 0 7");
}

TEST(Array, AppendsOneManyAndArrays) {
    Array<Uint32> array = numbers(2);
    const Uint32 more[] = {1, 2, 3};
    array.append(5);
    array.append(more, 2);
    array.append(more, 0);
    array.appendArray(numbers(2));
    EXPECT_EQ(join(array), "0 10 5 1 2 0 10");
}

TEST(Array, PrependsInOrder) {
    Array<Uint32> array = numbers(1);
    const Uint32 more[] = {1, 2};
    array.prepend(more, 2);
    array.prepend(9);
    EXPECT_EQ(join(array), "9 1 2 0");
}

TEST(Array, InsertsAnywhereUpToTheEnd) {
    Array<Uint32> array = numbers(2);
    const Uint32 more[] = {1, 2};
    array.insert(1, 7);
    array.insert(3, more, 2);
    array.insert(0, 8);
    EXPECT_EQ(join(array), "8 0 7 10 1 2");
}

TEST(Array, InsertBeyondTheEndIsOutOfBounds) {
    Array<Uint32> array = numbers(2);
    expectOutOfBounds([&] { array.insert(3, 1); });
    EXPECT_EQ(join(array), "0 10");
}

TEST(Array, RemovesOneAndMany) {
    Array<Uint32> array = numbers(6);
    array.remove(0);
    array.remove(1, 2);
    EXPECT_EQ(join(array), "10 40 50");
    array.remove(2);
    EXPECT_EQ(join(array), "10 40");
    array.remove(0, 2);
    EXPECT_EQ(array.size(), 0u);
}

TEST(Array, RemovingNothingIsAllowedAnywhere) {
    Array<Uint32> array = numbers(2);
    array.remove(5, 0);
    EXPECT_EQ(array.size(), 2u);
}

TEST(Array, RemoveBeyondTheEndIsOutOfBounds) {
    Array<Uint32> array = numbers(3);
    expectOutOfBounds([&] { array.remove(4); });
    expectOutOfBounds([&] { array.remove(1, 5); });
    EXPECT_EQ(array.size(), 3u);
}

TEST(Array, RemovesElementsThatOwnMemory) {
    Array<String> array;
    for (const char* text : {"one", "two", "three", "four"})
        array.append(String(text));
    array.remove(1, 2);
    EXPECT_EQ(join(array), "one four");
}

TEST(Array, IndexBeyondTheEndIsOutOfBounds) {
    Array<Uint32> array = numbers(1);
    const Array<Uint32>& reader = array;
    EXPECT_EQ(reader[0], 0u);
    expectOutOfBounds([&] { (void)array[1]; });
    expectOutOfBounds([&] { (void)reader[1]; });
    expectOutOfBounds([&] { (void)reader[PEG_NOT_FOUND]; });
    expectOutOfBounds([] { (void)Array<String>()[0]; });
}

TEST(Array, CopiesChangeIndependently) {
    Array<Uint32> original = numbers(3);
    Array<Uint32> assigned;
    assigned = original;
    Array<Uint32> changed(original);
    changed[1] = 99;
    Array<Uint32> shortened(original);
    shortened.remove(0);
    Array<Uint32> lengthened(original);
    lengthened.append(1);
    Array<Uint32> prepended(original);
    prepended.prepend(1);
    Array<Uint32> cleared(original);
    cleared.clear();
    EXPECT_EQ(join(original), "0 10 20");
    EXPECT_EQ(join(assigned), "0 10 20");
    EXPECT_EQ(join(changed), "0 99 20");
    EXPECT_EQ(join(shortened), "10 20");
    EXPECT_EQ(join(lengthened), "0 10 20 1");
    EXPECT_EQ(join(prepended), "1 0 10 20");
    EXPECT_EQ(cleared.size(), 0u);
}

TEST(Array, CopiesShareElementsUntilOneChanges) {
    const Array<String> original(2, String("x"));
    const Array<String> copy(original);
    EXPECT_EQ(original.getData(), copy.getData());
}

TEST(Array, SurvivesSelfAssignment) {
    Array<String> array(2, String("x"));
    const Array<String>& same = array;
    array = same;
    EXPECT_EQ(join(array), "x x");
}

TEST(Array, SwapsContents) {
    Array<Uint32> x = numbers(1);
    Array<Uint32> y = numbers(3);
    x.swap(y);
    EXPECT_EQ(join(x), "0 10 20");
    EXPECT_EQ(join(y), "0");
}

TEST(Array, GrowsByCopiesOfAnElement) {
    Array<Uint32> array = numbers(1);
    array.grow(3, 7);
    array.grow(0, 8);
    EXPECT_EQ(join(array), "0 7 7 7");
}

TEST(Array, ReservedCapacityIsThereAndKeepsElementsInPlace) {
    Array<Uint32> array;
    array.reserveCapacity(100);
    EXPECT_GE(array.getCapacity(), 100u);
    array.append(1);
    const Uint32* const data = array.getData();
    for (Uint32 i = 1; i < 100; ++i)
        array.append(i);
    EXPECT_EQ(array.getData(), data);
}

TEST(Array, ClearedCanBeFilledAgain) {
    Array<String> array(3, String("x"));
    array.clear();
    EXPECT_EQ(array.size(), 0u);
    array.append(String("y"));
    EXPECT_EQ(join(array), "y");
}

TEST(Array, OfBooleansIsContiguous) {
    Array<Boolean> array(3, false);
    array[1] = true;
    const Boolean* const data = array.getData();
    EXPECT_FALSE(data[0]);
    EXPECT_TRUE(data[1]);
    EXPECT_FALSE(data[2]);
}

TEST(Array, HoldsExtremeNumbers) {
    Array<Uint64> array;
    array.append(PEGASUS_UINT64_LITERAL(18446744073709551615));
    array.append(0);
    EXPECT_EQ(join(array), "18446744073709551615 0");
    Array<Sint64> signedArray(1, Sint64(PEGASUS_SINT64_LITERAL(-9223372036854775807) - 1));
    EXPECT_EQ(join(signedArray), "-9223372036854775808");
}

TEST(Array, KeepsOrderOverManyChanges) {
    Array<String> array;
    for (Uint32 i = 0; i < 1000; ++i)
        array.insert(array.size() / 2, String(std::to_string(i).c_str()));
    while (array.size() > 3)
        array.remove(array.size() / 2);
    EXPECT_EQ(array.size(), 3u);
    EXPECT_EQ(utf8(array[0]), "1");
    EXPECT_EQ(utf8(array[2]), "0");
}
