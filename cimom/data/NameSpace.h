#pragma once

#include <memory>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "cimom/data/InstanceStore.h"
#include "cimom/enumerations/EnumerationTable.h"
#include "cimom/schema/ClassStore.h"
#include "cimom/schema/QualifierTable.h"

namespace cimom {

/// What one namespace of a repository holds.
struct NameSpace {
    std::string name;
    QualifierTable qualifiers;
    ClassStore classes;
    InstanceStore instances;
    EnumerationTable enumerations;  ///< That clients have open over it.

    /// Keeps a parsed declaration text, to whose elements the stores refer, for the life of the namespace.
    pugi::xml_document& newDocument() {
        documents_.push_back(std::make_unique<pugi::xml_document>());
        return *documents_.back();
    }

private:
    std::vector<std::unique_ptr<pugi::xml_document>> documents_;
};

}  // namespace cimom
