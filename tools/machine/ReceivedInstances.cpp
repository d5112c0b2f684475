#include "tools/machine/ReceivedInstances.h"

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMProperty.h>

#include <algorithm>
#include <iterator>

#include "tools/machine/RemoteText.h"

namespace tool {

namespace {

// Names and values of keys, whatever their order.
class KeyText {
public:
    void add(const std::string& name, const std::string& value) {
        parts_.push_back(lowerName(name) + '=' + value + '\n');
    }

    std::string text() {
        std::sort(parts_.begin(), parts_.end());
        std::string joined;
        for (const std::string& part : parts_) {
            joined += part;
        }
        return joined;
    }

private:
    std::vector<std::string> parts_;
};

template <typename NUMBERS>
NUMBERS bothOf(const NUMBERS& left, const NUMBERS& right) {
    NUMBERS both;
    std::copy_if(left.begin(), left.end(), std::back_inserter(both), [&](const auto& number) {
        return std::find(right.begin(), right.end(), number) != right.end();
    });
    return both;
}

std::string keysOf(const Pegasus::CIMObjectPath& path) {
    KeyText keys;
    const Pegasus::Array<Pegasus::CIMKeyBinding>& bindings = path.getKeyBindings();
    for (Pegasus::Uint32 i = 0; i < bindings.size(); ++i) {
        keys.add(remoteText(bindings[i].getName().getString()), remoteText(bindings[i].getValue()));
    }
    return keys.text();
}

std::string keysOf(const ObjectPath& path) {
    KeyText keys;
    for (const ObjectPath::Key& key : path.keys) {
        if (!sameName(key.name, "NodeID")) {
            keys.add(key.name, key.text);
        }
    }
    return keys.text();
}

}  // namespace

void ReceivedInstances::add(std::size_t node, const std::string& asked, const Instances& instances) {
    if (listener_) {
        listener_(asked, instances);
    }
    Answer& answer = answers_.emplace_back();
    answer.node = node;
    answer.asked = asked;
    answer.instances = instances.size();
    for (Pegasus::Uint32 i = 0; i < instances.size(); ++i) {
        const Pegasus::CIMInstance& instance = instances[i];
        ++answer.classes[remoteText(instance.getClassName().getString())];
        PropertyNumbers nulls = nullsOf(instance, answer);
        const auto [place, isNew] = answer.byKeys.emplace(keysOf(instance.getPath()), nulls);
        if (!isNew) {
            place->second = bothOf(place->second, nulls);
        }
    }
}

ReceivedInstances::PropertyNumbers ReceivedInstances::nullsOf(const Pegasus::CIMInstance& instance,
                                                              Answer& answer) {
    PropertyNumbers nulls;
    for (Pegasus::Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        const Pegasus::CIMConstProperty property = instance.getProperty(i);
        if (!property.getValue().isNull()) {
            continue;
        }
        const auto number = static_cast<PropertyNumber>(answer.numbers.size());
        const auto [place, isNew] =
            answer.numbers.emplace(remoteText(property.getName().getString()), number);
        answer.nulls.resize(answer.numbers.size());
        ++answer.nulls[place->second];
        nulls.push_back(place->second);
    }
    return nulls;
}

const ReceivedInstances::Answer* ReceivedInstances::answerOf(std::size_t node,
                                                             const std::string& asked) const {
    // The last: a question may have been asked again.
    const auto found = std::find_if(answers_.rbegin(), answers_.rend(), [&](const Answer& answer) {
        return answer.node == node && sameName(answer.asked, asked);
    });
    return found == answers_.rend() ? nullptr : &*found;
}

ReceivedInstances::Counts ReceivedInstances::classesOf(const std::string& asked) const {
    Counts counts;
    for (const Answer& answer : answers_) {
        if (answerOf(answer.node, asked) == &answer) {
            for (const auto& [name, count] : answer.classes) {
                counts[name] += count;
            }
        }
    }
    return counts;
}

std::size_t ReceivedInstances::nodesOf(const std::string& asked) const {
    const auto count = std::count_if(answers_.begin(), answers_.end(), [&](const Answer& answer) {
        return answer.instances != 0 && answerOf(answer.node, asked) == &answer;
    });
    return static_cast<std::size_t>(count);
}

bool ReceivedInstances::hasNulls(const std::string& asked) const {
    return std::any_of(answers_.begin(), answers_.end(), [&](const Answer& answer) {
        return !answer.numbers.empty() && sameName(answer.asked, asked);
    });
}

bool ReceivedInstances::areNull(const Answer& answer, const std::string& keys, PropertyNumber property) {
    if (answer.nulls[property] == answer.instances) {
        return true;
    }
    const auto nulls = answer.byKeys.find(keys);
    return nulls != answer.byKeys.end() &&
           std::find(nulls->second.begin(), nulls->second.end(), property) != nulls->second.end();
}

std::vector<std::string> ReceivedInstances::nullsOf(std::size_t node, const ObjectPath& path) const {
    std::vector<std::string> names;
    if (const Answer* const answer = answerOf(node, path.className)) {
        const std::string keys = keysOf(path);
        for (const auto& [name, number] : answer->numbers) {
            if (areNull(*answer, keys, number)) {
                names.push_back(name);
            }
        }
    }
    return names;
}

}  // namespace tool
