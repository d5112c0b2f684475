#pragma once

namespace cimom {

/// Number of nodes that have a declaration file of their own.
constexpr unsigned kPreparedNodes = 3;

/// The classes that all nodes share, from schema.xml.
extern const char* const kSchemaXml;

/// The instances of each prepared node and its own class definitions, from node<N>.xml.
extern const char* const kNodeXml[kPreparedNodes];

}  // namespace cimom
