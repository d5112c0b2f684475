#include "tools/machine/InstanceMarks.h"

namespace tool {

namespace {

const std::string kControllerWord = "vqm";

bool isController(const std::string& nameSpace) {
    return nameSpace.find(kControllerWord) != std::string::npos;
}

// Controllers are counted from zero in the names of their namespaces and from one in the marks; a character
// that is no controller's digit stays as it is.
std::string controllerNumber(const std::string& nameSpace) {
    const std::string digit = nameSpace.substr(nameSpace.find(kControllerWord) + kControllerWord.size(), 1);
    return digit >= "0" && digit <= "3" ? std::to_string(digit[0] - '0' + 1) : digit;
}

std::string markOf(const std::string& number) {
    return "Node" + number + ":";
}

bool isInstanceId(const ObjectPath::Key& key, const ClassSchema& schema) {
    const ClassSchema::Property* property = schema.findProperty(key.name);
    return property != nullptr && property->name.find("InstanceID") != std::string::npos;
}

// The path with another text for each InstanceID that `change` returns true for; none when it does for none.
template <typename CHANGE>
std::optional<ObjectPath> changed(ObjectPath path, const ClassSchema& schema, const CHANGE& change) {
    bool any = false;
    for (ObjectPath::Key& key : path.keys) {
        any = (isInstanceId(key, schema) && change(key.text)) || any;
    }
    return any ? std::optional(path) : std::nullopt;
}

}  // namespace

InstanceMarks::InstanceMarks(const std::string& nameSpace, const std::vector<std::size_t>& nodes)
    : nodes_(nodes), marksOnlyEmpty_(nodes.size() == 1 && !isController(nameSpace)) {
    const bool isByName = nodes.size() == 1 && isController(nameSpace);
    for (const std::size_t node : nodes) {
        marks_.push_back(markOf(isByName ? controllerNumber(nameSpace) : std::to_string(node + 1)));
    }
}

std::vector<ObjectPath> InstanceMarks::marked(const ObjectPath& path, const ClassSchema& schema) const {
    std::vector<ObjectPath> paths;
    for (const std::string& mark : marks_) {
        const auto addMark = [&](std::string& text) {
            const bool isMarked = text.empty() || !marksOnlyEmpty_;
            text.insert(0, isMarked ? mark : "");
            return isMarked;
        };
        if (const auto marked = changed(path, schema, addMark)) {
            paths.push_back(*marked);
        }
    }
    return paths;
}

std::optional<InstanceMarks::Unmarked> InstanceMarks::unmarked(const ObjectPath& path,
                                                               const ClassSchema& schema) const {
    for (std::size_t i = 0; i < marks_.size(); ++i) {
        const std::string& mark = marks_[i];
        const auto takeMark = [&](std::string& text) {
            const bool isMarked = marksOnlyEmpty_ ? text == mark : text.compare(0, mark.size(), mark) == 0;
            text.erase(0, isMarked ? mark.size() : 0);
            return isMarked;
        };
        if (const auto own = changed(path, schema, takeMark)) {
            return Unmarked{*own, nodes_[i]};
        }
    }
    return std::nullopt;
}

}  // namespace tool
