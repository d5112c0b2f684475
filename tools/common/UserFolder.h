#pragma once

#include <filesystem>
#include <initializer_list>

namespace tool {

/// The folder that the first of these variables names with an absolute path, since one that depends on where
/// the person stands is none; else `inHome` below the person's home; empty when nobody tells that either.
std::filesystem::path userFolder(std::initializer_list<const char*> variables, const char* inHome);

}  // namespace tool
