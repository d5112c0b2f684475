// What Windows shows of the plug-in's file.

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

namespace support {
namespace {

/// The version information of a file.
class VersionInformation {
public:
    explicit VersionInformation(const std::string& path)
        : data_(GetFileVersionInfoSizeA(path.c_str(), nullptr)) {
        GetFileVersionInfoA(path.c_str(), 0, static_cast<DWORD>(data_.size()), data_.data());
    }

    /// The numbers, as text.
    std::string number() const {
        const auto* const fixed = static_cast<const VS_FIXEDFILEINFO*>(find("\\"));
        if (fixed == nullptr) {
            return "";
        }
        return std::to_string(HIWORD(fixed->dwFileVersionMS)) + '.' +
               std::to_string(LOWORD(fixed->dwFileVersionMS)) + '.' +
               std::to_string(HIWORD(fixed->dwFileVersionLS));
    }

    /// A text, in American English.
    std::string text(const std::string& name) const {
        const void* const found = find("\\StringFileInfo\\040904B0\\" + name);
        return found != nullptr ? static_cast<const char*>(found) : "";
    }

private:
    const void* find(const std::string& block) const {
        void* found = nullptr;
        UINT size = 0;
        return !data_.empty() && VerQueryValueA(data_.data(), block.c_str(), &found, &size) != 0 ? found
                                                                                                 : nullptr;
    }

    std::vector<char> data_;
};

TEST(VersionInformation, TellsWhatThePluginIsAndItsVersion) {
    const VersionInformation plugin(CIMHTTP_LIBRARY);
    EXPECT_EQ(plugin.number(), CIMHTTP_VERSION);
    EXPECT_EQ(plugin.text("FileVersion"), CIMHTTP_VERSION);
    EXPECT_EQ(plugin.text("ProductVersion"), CIMHTTP_VERSION);
    EXPECT_EQ(plugin.text("ProductName"), "cimhttp");
    EXPECT_EQ(plugin.text("OriginalFilename"), "cimhttp.dll");
    EXPECT_EQ(plugin.text("FileDescription"), "CIM-XML namespace provider");
}

}  // namespace
}  // namespace support
