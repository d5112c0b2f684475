#pragma once

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace NQELVSK20 {

/// The nodes of a machine, without a server or a socket: every client that is made while this lives is
/// answered from what a test put here, in the remote library's own objects. A request that the test says so
/// fails with an exception of the remote library.
///
/// A class is answered as it was put here, whatever the options of the request. The other requests than those
/// for a class and for its instances are refused as not supported.
class FakeNodes {
public:
    explicit FakeNodes(std::size_t count = 1);
    ~FakeNodes();
    FakeNodes(const FakeNodes&) = delete;
    FakeNodes& operator=(const FakeNodes&) = delete;

    /// What to connect to, in node order.
    const std::vector<std::string>& Hosts() const;

    /// Adds to every node, or to one.
    void Define(const Pegasus::CIMClass& definition);
    void Define(std::size_t node, const Pegasus::CIMClass& definition);
    void Add(std::size_t node, const Pegasus::CIMInstance& instance);

    /// The `nth` request from now on fails, the next one being the first, and `times - 1` after it.
    template <class TException>
    void Fail(std::size_t nth, const TException& error, std::size_t times = 1) {
        FailBy(
            nth, [error] { throw error; }, times);
    }

    /// What was asked, those that failed included: "NODE OPERATION CLASS", e.g. "0 GetClass CIM_Fan".
    const std::vector<std::string>& Requests() const;

    /// Forgets the requests, and the failures that did not come to pass.
    void Clear();

    struct State;

private:
    void FailBy(std::size_t nth, std::function<void()> fail, std::size_t times);

    std::shared_ptr<State> state_;  // shared with the links, the first of which outlive their namespaces
};

}  // namespace NQELVSK20
