#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

/// A folder of the test's own, which goes with it, for what a check is to look at.
class PlantedTree {
public:
    explicit PlantedTree(const std::string& purpose)
        : root_(std::filesystem::temp_directory_path() /
                (purpose + "-" + std::to_string(getpid()) + "-" +
                 ::testing::UnitTest::GetInstance()->current_test_info()->name())) {
        std::filesystem::create_directories(root_);
    }
    ~PlantedTree() { std::filesystem::remove_all(root_); }
    PlantedTree(const PlantedTree&) = delete;
    PlantedTree& operator=(const PlantedTree&) = delete;

    /// A file with the lines given.
    void Write(const std::string& path, const std::string& text) const {
        const std::filesystem::path file = root_ / path;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file) << text << '\n';
    }

    std::string Path() const { return root_.string(); }

private:
    const std::filesystem::path root_;
};
