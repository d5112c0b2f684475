#pragma once

#include <map>
#include <string>
#include <vector>

#include "tools/config/ConfigText.h"
#include "tools/config/MachineSettings.h"

namespace tool {

/// The file in which a person gave machines their names. A password never stands there itself, only where it
/// comes from.
class MachineConfig {
public:
    /// Where it is looked for when nobody says: cimhttp/machines.toml in the folder of a person's
    /// configuration. Empty when there is no such folder.
    static std::string usualPlace();

    /// Reads all of it; empty: the usual place. Throws UsageError, which names file and line, for what cannot
    /// be read or meant, and for a file that others may write.
    explicit MachineConfig(const std::string& path);

    /// Throws UsageError for an unknown one.
    const MachineSettings& machine(const std::string& name) const;

    /// In the order of the alphabet.
    std::vector<std::string> names() const;

private:
    void add(const ConfigSection& section);

    std::string path_;
    std::map<std::string, MachineSettings> machines_;
};

}  // namespace tool
