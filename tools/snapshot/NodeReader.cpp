#include "tools/snapshot/NodeReader.h"

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>

#include <utility>

#include "tools/common/Failure.h"
#include "tools/machine/RemoteText.h"
#include "vskcore/ICIMInstance.h"
#include "vskcore/TContext.h"

namespace tool {

namespace {

using NQELVSK20::TContext;

}  // namespace

NodeRecord NodeReader::read(std::size_t node) {
    node_ = node;
    try {
        session_.askOnly(node);
        readClasses({});
        readInstances();
    } catch (const Failure& failure) {
        session_.sayFailure(failure);
    }
    session_.passInstancesTo({});
    return std::move(record_);
}

// A class that comes a second time is left out: a server's classes may be each other's subclasses.
void NodeReader::readClasses(const std::string& above) {
    for (const std::string& name : session_.classNames(above)) {
        if (seen_.insert(name).second) {
            progress_.note(std::to_string(seen_.size()) + " classes: " + name);
            readClass(name);
            readClasses(name);
        }
    }
}

// The plug-in may refuse a class whose definition the server has given.
void NodeReader::readClass(const std::string& name) {
    ClassPointer cimClass;
    try {
        cimClass = session_.getClass(name);
    } catch (const Failure& failure) {
        session_.sayFailure(failure);
    }
    const Pegasus::CIMClass* const definition = session_.definitions().find(node_, name);
    if (definition == nullptr) {
        return;
    }
    record_.add(*definition);
    if (cimClass && !definition->isAbstract()) {
        concrete_.push_back(cimClass);
    }
}

// A question for a class is answered with the instances of its subclasses, too, whose turn comes.
void NodeReader::readInstances() {
    session_.passInstancesTo([this](const std::string& asked, const ReceivedInstances::Instances& instances) {
        for (Pegasus::Uint32 i = 0; i < instances.size(); ++i) {
            if (sameName(remoteText(instances[i].getClassName()), asked)) {
                record_.add(instances[i]);
            }
        }
    });
    const auto none = [](const boost::shared_ptr<NQELVSK20::ICIMInstance>&) { return false; };
    for (const ClassPointer& cimClass : concrete_) {
        progress_.note("instances of " + cimClass->GetName(TContext()));
        try {
            session_.enumerateInstances(*cimClass, false, none);
        } catch (const Failure& failure) {
            session_.sayFailure(failure);
        }
    }
}

}  // namespace tool
