#include "tools/config/MachineConfig.h"

#include <filesystem>

#include "tools/common/Nearest.h"
#include "tools/common/UsageError.h"
#include "tools/common/UserFolder.h"
#include "tools/config/ConfigFault.h"
#include "tools/config/GuardedFile.h"
#include "tools/config/SectionReader.h"

namespace tool {

namespace {

namespace fs = std::filesystem;

// A file's place counts from the folder of the configuration, or from the person's home after "~/".
std::string placeOf(const std::string& file, const fs::path& config) {
    const bool isInHome = file.compare(0, 2, "~/") == 0;
    const fs::path home = userFolder({}, "");
    return (isInHome && !home.empty() ? home / file.substr(2) : config.parent_path() / file).string();
}

std::string foundPlace(const std::string& path) {
    const std::string place = path.empty() ? MachineConfig::usualPlace() : path;
    std::error_code error;
    if (place.empty() || (path.empty() && !fs::exists(place, error))) {
        throw UsageError("no machine has a name: there is no '" + (place.empty() ? "machines.toml" : place) +
                         "', and no --config FILE");
    }
    return place;
}

}  // namespace

std::string MachineConfig::usualPlace() {
    const fs::path folder = userFolder({"XDG_CONFIG_HOME", "APPDATA"}, ".config");
    return folder.empty() ? "" : (folder / "cimhttp" / "machines.toml").string();
}

MachineConfig::MachineConfig(const std::string& path) : path_(foundPlace(path)) {
    try {
        for (const ConfigSection& section : parseConfig(readGuarded(path_, Guard::kAgainstWriting))) {
            add(section);
        }
    } catch (const ConfigFault& fault) {
        throw UsageError("'" + path_ + "' line " + std::to_string(fault.line()) + ": " + fault.what());
    }
}

void MachineConfig::add(const ConfigSection& section) {
    MachineSettings machine = readMachine(section);
    if (!machine.passwordFile.empty()) {
        machine.passwordFile = placeOf(machine.passwordFile, path_);
    }
    machines_.emplace(section.name, machine);
}

const MachineSettings& MachineConfig::machine(const std::string& name) const {
    const auto found = machines_.find(name);
    if (found == machines_.end()) {
        throw UsageError("'" + path_ + "' knows no machine '" + name + "'" + suggestion(name, names()));
    }
    return found->second;
}

std::vector<std::string> MachineConfig::names() const {
    std::vector<std::string> names;
    for (const auto& machine : machines_) {
        names.push_back(machine.first);
    }
    return names;
}

}  // namespace tool
