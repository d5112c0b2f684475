#pragma once

#include <cstddef>
#include <string>

#include "tools/common/Options.h"
#include "tools/machine/ClientListener.h"
#include "tools/machine/Machine.h"
#include "tools/machine/NodeProbe.h"

namespace tool {

/// Which nodes of the machine are asked: those that cannot be, or only in a way that would show a password,
/// are left out, each with a line that says why.
class NodeSelection {
public:
    /// All must outlive the selection.
    NodeSelection(const Options& options, Machine& machine, ClientListener& listener)
        : options_(options), machine_(machine), listener_(listener) {}

    void leaveOutWithoutPassword();

    /// Tries the nodes that are left.
    void leaveOutUnreachable();

    /// The only node that is left answers over HTTP, while HTTPS would be waited for in vain.
    bool isHttpTheOnlyWay() const { return isHttpTheOnlyWay_; }

private:
    void judge(std::size_t node, const NodeProbe::Finding& finding, bool isSingle);
    std::string obstacle(std::size_t node, const NodeProbe::Finding& finding) const;
    bool isTransport(Transport transport) const { return options_.transport == transport; }

    const Options& options_;
    Machine& machine_;
    ClientListener& listener_;
    bool isHttpTheOnlyWay_ = false;
};

}  // namespace tool
