#include "cimom/snapshot/Snapshot.h"

#include <stdexcept>

#include "cimom/common/ObjectPath.h"
#include "cimom/common/Xml.h"
#include "cimom/data/DeclarationReader.h"
#include "cimom/data/RepositoryData.h"
#include "cimom/snapshot/Gzip.h"

namespace cimom {
namespace {

std::string snapshotDocument(std::string_view file, const std::string& source) {
    if (!isGzip(file)) {
        return std::string(file);
    }
    try {
        return gunzipped(file, kMaxSnapshotBytes);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(source + ": " + error.what());
    }
}

void requireVersions(const DeclarationReader& reader, pugi::xml_node root) {
    for (const char* name : {"CIMVERSION", "DTDVERSION"}) {
        if (std::string_view(root.attribute(name).value()).substr(0, 2) != "2.") {
            reader.refuse(root, std::string(name) + " is not 2.x");
        }
    }
}

std::shared_ptr<Repository> readNode(const DeclarationReader& reader, pugi::xml_node declaration) {
    auto repository = std::make_shared<Repository>();
    for (pugi::xml_node group = firstElement(declaration); group; group = nextElement(group)) {
        const std::string nameSpace = nameSpaceOf(group);
        if (nameSpace.empty()) {
            reader.refuse(group, std::string(group.name()) + " without a namespace");
        }
        reader.readGroup(group, repository->data().findOrAdd(nameSpace));
    }
    return repository;
}

}  // namespace

std::vector<std::shared_ptr<Repository>> readSnapshot(std::string_view file, const std::string& source) {
    const std::string xml = snapshotDocument(file, source);
    if (xml.size() > kMaxSnapshotBytes) {
        throw std::runtime_error(source + ": there are more than " + std::to_string(kMaxSnapshotBytes) +
                                 " bytes in it");
    }
    const DeclarationReader reader(xml, source, DeclarationReader::Elements::Copied);
    pugi::xml_document document;
    const pugi::xml_node root = reader.parse(document);
    requireVersions(reader, root);
    std::vector<std::shared_ptr<Repository>> nodes;
    for (pugi::xml_node element = firstElement(root); element; element = nextElement(element)) {
        if (std::string_view(element.name()) != "DECLARATION") {
            reader.refuse(element, "'" + std::string(element.name()) + "' where a DECLARATION was expected");
        }
        if (nodes.size() == kMaxSnapshotNodes) {
            reader.refuse(element, "more than " + std::to_string(kMaxSnapshotNodes) + " nodes");
        }
        nodes.push_back(readNode(reader, element));
    }
    return nodes;
}

}  // namespace cimom
