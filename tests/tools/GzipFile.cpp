#include "tools/snapshot/GzipFile.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

#include "cimom/snapshot/Gzip.h"
#include "tests/tools/support/TemporaryFolder.h"
#include "tools/common/Failure.h"

namespace tool {

namespace {

std::string bytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// What does not shrink much fills the buffers.
std::string noise(std::size_t size) {
    std::string text;
    for (unsigned state = 1; text.size() < size; state = state * 1664525U + 1013904223U) {
        text += static_cast<char>(state >> 24U);
    }
    return text;
}

}  // namespace

TEST(GzipFile, HoldsAllThatWasWrittenOnceItIsFinished) {
    const TemporaryFolder folder;
    const std::filesystem::path place = folder.path() / "file";
    const std::string text = noise(300000);
    GzipFile file(place.string());
    file.write("head");
    file.write("");
    file.write(text);
    EXPECT_FALSE(std::filesystem::exists(place));
    file.finish();
    EXPECT_EQ(cimom::gunzipped(bytesOf(place), 400000), "head" + text);
}

TEST(GzipFile, LeavesWhatWasThereUnlessItIsFinished) {
    const TemporaryFolder folder;
    const std::filesystem::path place = folder.path() / "file";
    std::ofstream(place) << "before";
    { GzipFile(place.string()).write("text"); }
    EXPECT_EQ(bytesOf(place), "before");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
    GzipFile(place.string()).finish();
    EXPECT_EQ(cimom::gunzipped(bytesOf(place), 10), "");
}

TEST(GzipFile, RefusesAPlaceThatIsNone) {
    const TemporaryFolder folder;
    EXPECT_THROW(GzipFile((folder.path() / "none" / "file").string()), Failure);
}

}  // namespace tool
