#include "tests/support/FakeNodes.h"

#include <Pegasus/Common/CIMObjectPath.h>

#include <algorithm>
#include <map>
#include <utility>

#include "connection/client/ServerLink.h"
#include "provider/contract/PegText.h"

namespace NQELVSK20 {

struct FakeNodes::State {
    struct Node {
        std::vector<Pegasus::CIMClass> classes;
        std::vector<Pegasus::CIMInstance> instances;
    };

    std::vector<std::string> hosts;
    std::vector<Node> nodes;
    std::vector<std::string> requests;
    std::map<std::size_t, std::function<void()>> failures;  // by the number of requests before

    /// Notes a request, and fails it when that is due.
    void Take(std::size_t node, const std::string& operation, const Pegasus::CIMName& subject) {
        const auto failure = failures.find(requests.size());
        requests.push_back(std::to_string(node) + " " + operation + " " + ToText(subject));
        if (failure != failures.end()) {
            failure->second();
        }
    }
};

namespace {

class FakeLink : public ServerLink {
public:
    explicit FakeLink(std::shared_ptr<FakeNodes::State> state) : state_(std::move(state)) {}

    void Connect(const ServerAddress& address) override {
        const auto host = std::find(state_->hosts.begin(), state_->hosts.end(), address.host);
        if (host == state_->hosts.end()) {
            throw Pegasus::CannotConnectException(FromText("no such node: " + address.host));
        }
        node_ = static_cast<std::size_t>(host - state_->hosts.begin());
    }
    void Disconnect() override {}
    void SetTimeout(unsigned int) override {}

    Pegasus::CIMClass GetClass(const Namespace&, const Name& className, bool, bool, bool,
                               const Properties&) override {
        state_->Take(node_, "GetClass", className);
        for (const Pegasus::CIMClass& known : state_->nodes[node_].classes) {
            if (known.getClassName().equal(className)) {
                return known;
            }
        }
        throw Pegasus::CIMException(Pegasus::CIM_ERR_NOT_FOUND);
    }
    Pegasus::Array<Pegasus::CIMInstance> EnumerateInstances(const Namespace&, const Name& className, bool,
                                                            bool, bool, bool, const Properties&) override {
        state_->Take(node_, "EnumerateInstances", className);
        Pegasus::Array<Pegasus::CIMInstance> found;
        for (const Pegasus::CIMInstance& instance : state_->nodes[node_].instances) {
            if (instance.getClassName().equal(className)) {
                found.append(instance);
            }
        }
        return found;
    }
    Pegasus::CIMValue InvokeMethod(const Namespace&, const Path&, const Name& method, const Parameters&,
                                   Parameters&) override {
        Refuse("InvokeMethod", method);
    }
    Pegasus::Array<Name> EnumerateClassNames(const Namespace&, const Name& className, bool) override {
        Refuse("EnumerateClassNames", className);
    }
    Pegasus::Array<Path> EnumerateInstanceNames(const Namespace&, const Name& className) override {
        Refuse("EnumerateInstanceNames", className);
    }

private:
    [[noreturn]] void Refuse(const char* operation, const Name& subject) {
        state_->Take(node_, operation, subject);
        throw Pegasus::CIMException(Pegasus::CIM_ERR_NOT_SUPPORTED);
    }

    std::shared_ptr<FakeNodes::State> state_;
    std::size_t node_ = 0;
};

}  // namespace

FakeNodes::FakeNodes(std::size_t count) : state_(std::make_shared<State>()) {
    state_->nodes.resize(count);
    for (std::size_t node = 0; node < count; ++node) {
        state_->hosts.push_back("node" + std::to_string(node));
    }
    ReplaceServerLinks([state = state_] { return std::make_unique<FakeLink>(state); });
}

FakeNodes::~FakeNodes() {
    ReplaceServerLinks({});
}

const std::vector<std::string>& FakeNodes::Hosts() const {
    return state_->hosts;
}

void FakeNodes::Define(const Pegasus::CIMClass& definition) {
    for (std::size_t node = 0; node < state_->nodes.size(); ++node) {
        Define(node, definition);
    }
}

void FakeNodes::Define(std::size_t node, const Pegasus::CIMClass& definition) {
    state_->nodes.at(node).classes.push_back(definition);
}

void FakeNodes::Add(std::size_t node, const Pegasus::CIMInstance& instance) {
    state_->nodes.at(node).instances.push_back(instance);
}

void FakeNodes::FailBy(std::size_t nth, std::function<void()> fail, std::size_t times) {
    for (std::size_t i = 0; i < times; ++i) {
        state_->failures[state_->requests.size() + nth - 1 + i] = fail;
    }
}

const std::vector<std::string>& FakeNodes::Requests() const {
    return state_->requests;
}

void FakeNodes::Clear() {
    state_->requests.clear();
    state_->failures.clear();
}

}  // namespace NQELVSK20
