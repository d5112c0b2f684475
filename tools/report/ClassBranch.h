#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tools/print/InstanceView.h"

namespace tool {

/// A class of the tree with its own instances and what is below it.
struct ClassBranch {
    std::string name;
    std::vector<InstanceView> instances;  ///< Of the class itself, by node and path.
    std::vector<ClassBranch> subclasses;
    std::size_t total = 0;  ///< Its instances and those of all classes below.
};

}  // namespace tool
