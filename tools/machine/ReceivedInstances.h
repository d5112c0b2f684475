#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "tools/common/Names.h"
#include "tools/values/ObjectPath.h"

namespace tool {

/// What the servers gave when instances were asked for, before the plug-in took it over: it delivers one
/// instance a path, and in some namespaces zero, false or an empty text for what is null.
class ReceivedInstances {
public:
    using Instances = Pegasus::Array<Pegasus::CIMInstance>;
    using Counts = std::map<std::string, std::size_t, NameLess>;

    /// Who sees every answer as it comes, with the class that was asked for; empty: nobody.
    using Listener = std::function<void(const std::string& asked, const Instances& instances)>;
    void passOnTo(Listener listener) { listener_ = std::move(listener); }

    /// Before the next question.
    void clear() { answers_.clear(); }

    /// A node's answer to the question for the instances of the class `asked`.
    void add(std::size_t node, const std::string& asked, const Instances& instances);

    /// How many instances came for a class, by the class that each one is of.
    Counts classesOf(const std::string& asked) const;

    /// How many nodes had instances of the class.
    std::size_t nodesOf(const std::string& asked) const;

    /// Whether any property of the class's instances was null.
    bool hasNulls(const std::string& asked) const;

    /// The properties that were null in every instance of a path as its server knows it; when there is none
    /// of that path, in all of the answer's.
    std::vector<std::string> nullsOf(std::size_t node, const ObjectPath& path) const;

private:
    using PropertyNumber = std::uint32_t;
    using PropertyNumbers = std::vector<PropertyNumber>;

    struct Answer {
        std::size_t node = 0;
        std::string asked;
        std::size_t instances = 0;
        Counts classes;
        std::map<std::string, PropertyNumber, NameLess> numbers;  // of the properties that are null somewhere
        std::vector<std::size_t> nulls;                           // by number
        std::unordered_map<std::string, PropertyNumbers> byKeys;  // null in all instances of these keys
    };

    static PropertyNumbers nullsOf(const Pegasus::CIMInstance& instance, Answer& answer);
    static bool areNull(const Answer& answer, const std::string& keys, PropertyNumber property);
    const Answer* answerOf(std::size_t node, const std::string& asked) const;

    std::vector<Answer> answers_;
    Listener listener_;
};

}  // namespace tool
