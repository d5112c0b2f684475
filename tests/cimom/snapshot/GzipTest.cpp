#include "cimom/snapshot/Gzip.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/cimom/support/Gzipped.h"

namespace cimom {
namespace {

constexpr std::size_t kMuch = 1 << 20;

/// "hello" and a line's end, as the program gzip compresses it.
std::string hello() {
    return std::string(
        "\x1f\x8b\x08\x00\x00\x00\x00\x00\x00\x03\xcb\x48\xcd\xc9\xc9\xe7\x02\x00\x20\x30\x3a\x36"
        "\x06\x00\x00\x00",
        26);
}

std::string whyDamaged(const std::string& bytes, std::size_t limit = kMuch) {
    try {
        gunzipped(bytes, limit);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "";
}

TEST(Gzip, KnowsItsFilesByTheirFirstBytes) {
    EXPECT_TRUE(isGzip(hello()));
    EXPECT_FALSE(isGzip("<CIM/>"));
    EXPECT_FALSE(isGzip("\x1f"));
    EXPECT_FALSE(isGzip(""));
}

TEST(Gzip, ReadsWhatTheProgramGzipWrites) {
    EXPECT_EQ(gunzipped(hello(), kMuch), "hello\n");
}

TEST(Gzip, ReadsSeveralFilesOneAfterTheOther) {
    EXPECT_EQ(gunzipped(hello() + test::gzipped("") + hello(), kMuch), "hello\nhello\n");
}

TEST(Gzip, ReadsWhatIsLongerThanItsBuffers) {
    std::string text;
    for (int i = 0; text.size() < 300000; ++i) {
        text += std::to_string(i * i) + " ";
    }
    EXPECT_EQ(gunzipped(test::gzipped(text), kMuch), text);
}

TEST(Gzip, SaysWhereAFileEndsEarly) {
    for (std::size_t size = 0; size < hello().size(); ++size) {
        EXPECT_EQ(whyDamaged(hello().substr(0, size)),
                  "the compressed data end early, at byte " + std::to_string(size));
    }
}

TEST(Gzip, SaysWhereAFileIsDamaged) {
    std::string wrongSum = hello();
    wrongSum[18] = 'x';
    EXPECT_EQ(whyDamaged(wrongSum), "the compressed data are damaged at byte 22");
    EXPECT_EQ(whyDamaged(hello() + "rest").substr(0, 41), "the compressed data are damaged at byte 2");
    EXPECT_EQ(whyDamaged("hello"), "the compressed data are damaged at byte 2");
}

TEST(Gzip, HoldsNoMoreThanItMay) {
    const std::string bytes = test::gzipped(std::string(100000, 'x'));
    EXPECT_EQ(gunzipped(bytes, 100000).size(), 100000U);
    EXPECT_EQ(whyDamaged(bytes, 99999), "there are more than 99999 bytes in it");
}

}  // namespace
}  // namespace cimom
