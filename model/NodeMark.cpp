#include "model/NodeMark.h"

#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {

namespace {

const std::string kControllerWord = "vqm";

bool IsController(const std::string& namespaceName) {
    return namespaceName.find(kControllerWord) != std::string::npos;
}

// The one-based number of the controller whose zero-based digit follows the word. Machines have four
// controllers at most; any other character is no count and stays as it is.
std::string ControllerNumber(const std::string& namespaceName) {
    const std::string digit =
        namespaceName.substr(namespaceName.find(kControllerWord) + kControllerWord.size(), 1);
    if (digit == "3") {
        return "4";
    }
    if (digit == "2") {
        return "3";
    }
    if (digit == "1") {
        return "2";
    }
    return digit == "0" ? "1" : digit;
}

}  // namespace

NodeMark::NodeMark(const std::string& namespaceName, const std::string& nodeKey, bool isMultiNode)
    : nodeNumber_(IsController(namespaceName) ? ControllerNumber(namespaceName) : nodeKey),
      instanceIdPrefix_("Node" + (isMultiNode ? nodeKey : nodeNumber_) + ":"),
      marksOnlyEmpty_(!isMultiNode && !IsController(namespaceName)) {}

void NodeMark::MarkInstanceId(TCIMValue& value) const {
    const std::string text = value.ToString(10);
    if (text.empty() || !marksOnlyEmpty_) {
        value.Set(instanceIdPrefix_ + text);
    }
}

}  // namespace NQELVSK20
