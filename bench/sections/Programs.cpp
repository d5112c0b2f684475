// Whole programs that print the instances of a class, from their start to their end.

#include <fcntl.h>
#include <fmt/format.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>

#include "bench/ReplayServer.h"
#include "bench/Sample.h"
#include "bench/sections/Sections.h"

namespace bench {

namespace {

using Command = std::vector<std::string>;

/// Runs a program, found along PATH, with its output in a file. Throws when it fails.
void RunProgram(Command command, const char* outputFile) {
    std::vector<char*> arguments;
    for (std::string& argument : command) {
        arguments.push_back(&argument[0]);
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, outputFile, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    pid_t process = 0;
    const int failure = posix_spawnp(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    if (failure != 0 || waitpid(process, &status, 0) != process || status != 0) {
        throw std::runtime_error(command.front() + " failed");
    }
}

std::string OutputOf(const Command& command) {
    const std::string file = std::filesystem::temp_directory_path() / fmt::format("bench.{}", getpid());
    RunProgram(command, file.c_str());
    std::string text(std::filesystem::file_size(file), '\0');
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::fopen(file.c_str(), "rb"), std::fclose);
    text.resize(std::fread(&text[0], 1, text.size(), stream.get()));
    std::filesystem::remove(file);
    return text;
}

Contestant::Work PrepareProgram(const Command& command, std::size_t instances) {
    return [command, instances] {
        RunProgram(command, "/dev/null");
        return instances;
    };
}

std::size_t CountLines(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

std::size_t CountElements(const std::string& json) {
    return nlohmann::json::parse(json).size();
}

Command Wbemcli() {
    return {"wbemcli", "ei",
            fmt::format("http://{}:5988/{}:{}", ReplayServer::Address(), kNamespace, kManyClass)};
}

/// The program stands beside this one.
Command Cimhttp() {
    const auto folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    return {folder / "cimhttp", "--node",   ReplayServer::Address(),
            "--transport",      "http",     "instances",
            kManyClass,         "--format", "json"};
}

bool IsInstalled(const std::string& program) {
    const char* path = std::getenv("PATH");
    std::istringstream folders(path == nullptr ? "" : path);
    for (std::string folder; std::getline(folders, folder, ':');) {
        if (access((std::filesystem::path(folder) / program).c_str(), X_OK) == 0) {
            return true;
        }
    }
    return false;
}

void Require(std::size_t counted, std::size_t expected, const std::string& program) {
    if (counted != expected) {
        throw std::runtime_error(fmt::format("{} printed {} instances, not {}", program, counted, expected));
    }
}

}  // namespace

Comparison ComparePrograms(const Settings& settings) {
    Comparison comparison(fmt::format("whole programs print {} instances", settings.instances));
    if (!IsInstalled("wbemcli")) {
        comparison.Skip("wbemcli is not installed (Debian package sblim-wbemcli)");
        return comparison;
    }
    const ReplayServer server({SampleNode(0, 0, settings.instances)});
    Require(CountLines(OutputOf(Wbemcli())), settings.instances, "wbemcli");
    Require(CountElements(OutputOf(Cimhttp())), settings.instances, "cimhttp");
    comparison.Enter("wbemcli ei", settings.instances,
                     [&] { return PrepareProgram(Wbemcli(), settings.instances); });
    comparison.Enter("cimhttp instances --format json", settings.instances,
                     [&] { return PrepareProgram(Cimhttp(), settings.instances); }, {0.2});
    comparison.Run(settings.rounds);
    return comparison;
}

}  // namespace bench
