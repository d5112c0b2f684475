#pragma once

#include <string>
#include <vector>

namespace cimom {

/// A declaration text and the name to call it by in messages.
struct SampleText {
    std::string source;
    std::string xml;
};

/// The declaration texts of the sample machine's node `nodeIndex` (zero-based), in the order in which they
/// are to be read. The machine has three prepared nodes; further ones are made after them, with names,
/// serial numbers and readings of their own.
std::vector<SampleText> sampleMachineNode(unsigned nodeIndex);

}  // namespace cimom
