#pragma once

#include <string>

namespace cimom {

/// Number of nodes that have a declaration file of their own.
constexpr unsigned kPreparedNodes = 3;

/// The classes that all nodes share, from schema.xml.
std::string schemaXml();

/// The instances of a prepared node and its own class definitions, from node<N>.xml.
std::string nodeXml(unsigned node);

}  // namespace cimom
