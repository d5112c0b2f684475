#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace tool {

/// What the plug-in is asking, and whom: read from the trace lines of its log, so that a failure, which its
/// client reports without a name, can be told with one.
class Conversation {
public:
    explicit Conversation(std::size_t nodes) : nodes_(nodes) {}

    /// The program asks about `subject` next, e.g. a class name; may be empty.
    void begin(const std::string& subject);

    /// A line of the log, in order.
    void see(const std::string& line);

    /// The node that is being asked by an operation of the client; none when the log does not tell.
    std::optional<std::size_t> nodeAskedBy(const std::string& operation) const;

    /// What it is asked about.
    const std::string& subjectOf(const std::string& operation) const;

    /// An enumeration of instances that fails now is none that the program asked for: it is the look whether
    /// the server is a hypervisor.
    bool isLookingForHypervisor() const;

    /// A class that is fetched now is one that the answer's references name; nobody asked for it.
    bool isFollowingReferences() const { return enumerated_; }

private:
    enum class Phase {
        kConnecting,
        kAsking,    // the first node directly
        kFetching,  // the first node for the definition of a class
        kBuilding   // every node in turn for its definition of the class
    };

    bool isEnumeration(const std::string& operation) const;

    std::size_t nodes_;
    Phase phase_ = Phase::kConnecting;
    std::string subject_;
    std::string fetched_;       // class being fetched
    bool enumerated_ = false;   // the question has come to the instances: its own classes are known by then
    bool enumerating_ = false;  // every node in turn for its instances, with class lookups in between
    std::size_t node_ = 0;      // whose instances come next
};

}  // namespace tool
