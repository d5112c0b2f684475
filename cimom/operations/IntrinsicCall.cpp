#include "cimom/operations/IntrinsicCall.h"

namespace cimom {

const ClassView& IntrinsicCall::requireClass(const std::string& name, CimStatus otherwise) const {
    const ClassView* view = nameSpace.classes.find(name);
    if (view == nullptr) {
        throw CimError(otherwise, "the class '" + name + "' does not exist in '" + nameSpace.name + "'");
    }
    return *view;
}

const ClassView* IntrinsicCall::findClass(const std::string& name, CimStatus otherwise) const {
    return name.empty() ? nullptr : &requireClass(name, otherwise);
}

Instance& IntrinsicCall::requireInstance(ObjectPath path, CimStatus noClass) const {
    const ClassView& type = requireClass(path.className, noClass);
    if (path.keys.size() == 1 && path.keys.front().name.empty()) {
        for (const MemberView& property : type.properties) {
            path.keys.front().name = property.isKey ? property.name : path.keys.front().name;
        }
    }
    Instance* instance = nameSpace.instances.find(path);
    if (instance == nullptr) {
        std::string text;
        appendInstanceName(text, path);
        throw CimError(CimStatus::NotFound, "there is no instance " + text);
    }
    return *instance;
}

}  // namespace cimom
