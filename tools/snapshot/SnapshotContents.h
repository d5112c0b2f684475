#pragma once

#include <map>
#include <string>
#include <vector>

namespace tool {

/// What a snapshot holds, taken apart so that it can be compared: objects are known by what makes them the
/// same (name or path, in whatever spelling), and consist of named parts with a text each.
class SnapshotContents {
public:
    struct Part {
        std::string name;  ///< As it is shown, e.g. "property Speed".
        std::string text;
    };

    struct Object {
        std::string name;                   ///< As it is shown, e.g. `root/cimv2:OMC_Fan.DeviceID="1"`.
        std::map<std::string, Part> parts;  ///< By name in lower case.
    };

    using Node = std::map<std::string, Object>;  ///< By what makes objects the same.

    /// Throws Failure when the file cannot be read or is no snapshot.
    explicit SnapshotContents(const std::string& file);

    /// In node order; a node that holds nothing did not answer.
    const std::vector<Node>& nodes() const { return nodes_; }

private:
    std::vector<Node> nodes_;
};

}  // namespace tool
