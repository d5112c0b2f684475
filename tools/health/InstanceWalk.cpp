#include "tools/health/InstanceWalk.h"

#include <algorithm>
#include <boost/shared_ptr.hpp>

#include "tools/common/Failure.h"

namespace tool {

namespace {

using namespace NQELVSK20;

bool hasKey(const ClassSchema& schema) {
    return std::any_of(schema.properties().begin(), schema.properties().end(),
                       [&](const ClassSchema::Property& property) { return schema.isKey(property.name); });
}

// The path but for the class, which is another on each level, and the node.
std::string identityOf(const InstanceWalk::Found& found, const std::string& top) {
    const std::size_t dot = found.path.find('.');
    return top + '\n' + found.properties.text("NodeID") + '\n' +
           (dot == std::string::npos ? std::string() : found.path.substr(dot));
}

}  // namespace

void InstanceWalk::below(const std::string& className, const Visit& visit) {
    seen_.clear();
    seen_.insert(className);
    descend(className, {}, visit);
}

void InstanceWalk::descendOrSay(const std::string& className, const std::string& top, const Visit& visit) {
    if (!seen_.insert(className).second) {
        return;  // a server's classes may be each other's subclasses
    }
    try {
        descend(className, top, visit);
    } catch (const Failure& failure) {
        session_.sayFailure(failure);
    }
}

// `top` is the highest class with keys above this one; empty above that.
void InstanceWalk::descend(const std::string& className, const std::string& top, const Visit& visit) {
    progress_.note(std::to_string(seen_.size()) + " classes: " + className);
    const ClassSchema& schema = schemas_.of(className);
    const std::string keyed = top.empty() && hasKey(schema) ? className : top;
    if (!keyed.empty() && !visitInstances(schema, keyed, visit)) {
        return;
    }
    for (const std::string& name : session_.classNames(className)) {
        descendOrSay(name, keyed, visit);
    }
}

bool InstanceWalk::visitInstances(const ClassSchema& schema, const std::string& top, const Visit& visit) {
    bool isAny = false;
    const auto visitOne = [&](const boost::shared_ptr<ICIMInstance>& instance) {
        isAny = true;
        const Found found{PropertyIndex(*instance), instance->GetReference(TContext()).GetPath(), schema,
                          *instance};
        visit(identityOf(found, top), found);
        return true;
    };
    session_.enumerateInstances(*schema.chain().front(), false, visitOne);
    return isAny;
}

}  // namespace tool
