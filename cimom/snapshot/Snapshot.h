#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cimom/data/Repository.h"

namespace cimom {

/// What the document of a snapshot may hold at most.
constexpr std::size_t kMaxSnapshotBytes = std::size_t{256} << 20;
constexpr std::size_t kMaxSnapshotNodes = 64;

/// The nodes of a machine out of a snapshot file (docs/snapshot.md), in node order. `source` is what to call
/// the file. Throws std::runtime_error that says where something is wrong.
std::vector<std::shared_ptr<Repository>> readSnapshot(std::string_view file, const std::string& source);

}  // namespace cimom
