// snapshot FILE: what every node's server gives, as a file that the embedded server can serve.

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "tools/commands/Commands.h"
#include "tools/snapshot/GzipFile.h"
#include "tools/snapshot/NodeReader.h"

namespace tool {

namespace {

constexpr const char* kSnapshotHead =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n";

void sayOmissions(const CommandContext& context, std::size_t node, const NodeRecord::Count& count) {
    const std::string where = fmt::format("node {}: ", node + 1);
    for (const std::string& name : count.orphans) {
        context.notices.say(fmt::format("{}left out class {}: its superclass is not given", where, name));
    }
    if (count.strays != 0) {
        context.notices.say(
            fmt::format("{}left out {} instances that have no class or no keys", where, count.strays));
    }
}

std::string howMany(std::size_t number, const std::string& one, const std::string& several) {
    return std::to_string(number) + ' ' + (number == 1 ? one : several);
}

/// Writes the nodes one after the other.
class SnapshotWriter {
public:
    explicit SnapshotWriter(const CommandContext& context) : context_(context), file_(context.options.file) {}

    /// Returns whether there is anything to keep.
    bool run() {
        file_.write(kSnapshotHead);
        const std::vector<std::size_t> asked = context_.session.machine().asked();
        for (std::size_t node = 0; node < context_.session.machine().nodes().size(); ++node) {
            const bool isAsked = std::find(asked.begin(), asked.end(), node) != asked.end();
            writeNode(node,
                      isAsked ? NodeReader(context_.session, context_.progress).read(node) : NodeRecord());
        }
        file_.write("</CIM>\n");
        if (classes_ != 0) {
            file_.finish();
        }
        return classes_ != 0;
    }

    std::string summary() const {
        return howMany(classes_, "class", "classes") + " and " +
               howMany(instances_, "instance", "instances") + " of " + howMany(nodes_, "node", "nodes");
    }

    std::string json() const {
        return fmt::format(R"({{"classes": {}, "instances": {}, "nodes": {}}})", classes_, instances_,
                           nodes_);
    }

private:
    void writeNode(std::size_t node, const NodeRecord& record) {
        std::string text;
        const NodeRecord::Count count = record.write(text, context_.session.remoteNameSpaceName());
        file_.write(text);
        sayOmissions(context_, node, count);
        classes_ += count.classes;
        instances_ += count.instances;
        nodes_ += static_cast<std::size_t>(record.isEmpty() ? 0 : 1);
    }

    const CommandContext& context_;
    GzipFile file_;
    std::size_t classes_ = 0;
    std::size_t instances_ = 0;
    std::size_t nodes_ = 0;
};

}  // namespace

bool runSnapshot(const CommandContext& context) {
    SnapshotWriter writer(context);
    if (!writer.run()) {
        return nothingFound(context, "there are no classes in " + context.session.nameSpaceName());
    }
    context.output.line(context.isJson() ? writer.json() : writer.summary());
    return true;
}

}  // namespace tool
