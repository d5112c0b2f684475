#include "cimom/data/Repository.h"

#include <stdexcept>

#include "cimom/common/Text.h"
#include "cimom/data/DeclarationReader.h"
#include "cimom/data/RepositoryData.h"
#include "cimom/data/SampleMachine.h"

namespace cimom {
namespace {

std::string withoutOuterSlashes(const std::string& name) {
    const auto first = name.find_first_not_of('/');
    return first == std::string::npos ? "" : name.substr(first, name.find_last_not_of('/') - first + 1);
}

}  // namespace

NameSpace* Repository::Data::find(const std::string& name) {
    const auto found = nameSpaces_.find(lowered(withoutOuterSlashes(name)));
    return found == nameSpaces_.end() ? nullptr : found->second.get();
}

NameSpace& Repository::Data::findOrAdd(const std::string& name) {
    std::unique_ptr<NameSpace>& entry = nameSpaces_[lowered(withoutOuterSlashes(name))];
    if (!entry) {
        entry = std::make_unique<NameSpace>();
        entry->name = withoutOuterSlashes(name);
    }
    return *entry;
}

Repository::Repository() : data_(std::make_unique<Data>()) {}

Repository::~Repository() = default;

void Repository::addDeclarations(const std::string& nameSpace, std::string_view xml,
                                 const std::string& source) {
    const std::lock_guard<std::mutex> lock(data_->mutex);
    readDeclarations(xml, source, data_->findOrAdd(nameSpace));
}

void Repository::multiplyInstances(const std::string& nameSpace, const std::string& className,
                                   std::size_t count) {
    const std::lock_guard<std::mutex> lock(data_->mutex);
    NameSpace* space = data_->find(nameSpace);
    if (space == nullptr) {
        throw std::runtime_error("there is no namespace '" + nameSpace + "'");
    }
    const ClassView* type = space->classes.find(className);
    if (type == nullptr) {
        throw std::runtime_error("there is no class '" + className + "' in '" + nameSpace + "'");
    }
    space->instances.multiply(*type, count);
}

std::shared_ptr<Repository> Repository::sampleNode(unsigned nodeIndex) {
    auto repository = std::make_shared<Repository>();
    repository->addSample("root/cimv2", nodeIndex);
    return repository;
}

void Repository::addSample(const std::string& nameSpace, unsigned nodeIndex) {
    for (const SampleText& text : sampleMachineNode(nodeIndex)) {
        addDeclarations(nameSpace, text.xml, text.source);
    }
}

}  // namespace cimom
