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

    /// Copies an element of another document that the stores are to refer to; the copy is kept likewise.
    pugi::xml_node keep(pugi::xml_node element) { return kept_.append_copy(element); }

    /// Takes an element out of its document, to which the stores do not refer any more.
    static void drop(pugi::xml_node element) { element.parent().remove_child(element); }

private:
    std::vector<std::unique_ptr<pugi::xml_document>> documents_;
    pugi::xml_document kept_;  ///< One for all: each document takes tens of kilobytes.
};

}  // namespace cimom
