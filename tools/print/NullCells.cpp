#include "tools/print/NullCells.h"

#include "tools/values/ObjectPath.h"

namespace tool {

namespace {

// Nodes are shown by number; when there is one only, a namespace's name may have given it another.
std::size_t nodeOf(const std::string& shown, std::size_t nodes) {
    for (std::size_t node = 0; node < nodes; ++node) {
        if (shown == std::to_string(node + 1)) {
            return node;
        }
    }
    return 0;
}

}  // namespace

std::vector<std::string> NullCells::of(const boost::shared_ptr<NQELVSK20::ICIMClass>& cimClass,
                                       const std::string& path, const std::string& node) const {
    const ReceivedInstances& received = session_.received();
    if (!received.hasNulls(cimClass->GetName(NQELVSK20::TContext()))) {
        return {};
    }
    const ObjectPath shown = ObjectPath::parse(path);
    const auto own = marks_.unmarked(shown, schemas_.of(cimClass));
    return received.nullsOf(nodeOf(node, session_.machine().nodes().size()), own ? own->path : shown);
}

}  // namespace tool
