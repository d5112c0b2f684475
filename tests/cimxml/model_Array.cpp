#include <Pegasus/Common/Array.h>

#include <stdexcept>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

/// Counts its living objects and fails when the given copy is made.
struct Fragile {
    static int living;
    static int copiesLeft;

    Fragile() { ++living; }
    Fragile(const Fragile&) {
        if (copiesLeft-- == 0)
            throw std::runtime_error("no more copies");
        ++living;
    }
    Fragile& operator=(const Fragile&) = default;
    ~Fragile() { --living; }
};

int Fragile::living = 0;
int Fragile::copiesLeft = 0;

}  // namespace

TEST(ModelArray, TakesItsOwnElements) {
    Array<String> array;
    for (int i = 0; i < 100; ++i)
        array.append(String("text"));
    for (int i = 0; i < 100; ++i) {
        array.append(array[0]);
        array.prepend(array[array.size() - 1]);
        array.insert(5, array[7]);
    }
    array.appendArray(array);
    array.insert(1, array.getData(), array.size());
    array.grow(3, array[0]);
    ASSERT_EQ(array.size(), 1603u);
    for (Uint32 i = 0; i < array.size(); ++i)
        ASSERT_EQ(utf8(array[i]), "text");
}

TEST(ModelArray, MovesLeaveTheSourceEmpty) {
    Array<String> source(2, String("x"));
    Array<String> target(std::move(source));
    EXPECT_EQ(target.size(), 2u);
    source = std::move(target);
    EXPECT_EQ(source.size(), 2u);
    EXPECT_EQ(target.size(), 0u);
}

TEST(ModelArray, RemovalBeyondTheEndIsAlwaysNoticed) {
    Array<Uint32> array(3);
    EXPECT_EQ(messageThrownBy<IndexOutOfBoundsException>([&] { array.remove(3); }), "index out of bounds");
    EXPECT_EQ(messageThrownBy<IndexOutOfBoundsException>([&] { array.remove(1, 3); }), "index out of bounds");
    EXPECT_EQ(array.size(), 3u);
}

TEST(ModelArray, LosesAndBreaksNothingWhenACopyFails) {
    for (int copies = 0;; ++copies) {
        Fragile::copiesLeft = 1000;
        Array<Fragile> array(3);
        Fragile::copiesLeft = copies;
        bool failed = false;
        try {
            Array<Fragile> copy(array);
            copy.append(Fragile());
            copy.insert(1, Fragile());
            copy.grow(2, Fragile());
            copy[0] = Fragile();
            Array<Fragile>(4, copy[0]);
        } catch (const std::runtime_error&) {
            failed = true;
        }
        EXPECT_EQ(array.size(), 3u);
        array.clear();
        ASSERT_EQ(Fragile::living, 0) << "after copy " << copies;
        if (!failed) {
            EXPECT_GT(copies, 10);
            break;
        }
    }
}
