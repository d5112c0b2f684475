// What the plug-in's file shows to others, and what it needs of them.

#include <cxxabi.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <utility>

#include "tests/loading/BinaryFile.h"

namespace support {
namespace {

using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

/// A name as a declaration has it.
std::string demangled(const std::string& name) {
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> text(
        abi::__cxa_demangle(name.c_str(), nullptr, nullptr, &status), &std::free);
    return status == 0 ? text.get() : name;
}

/// With the names that headers use for the types that the library writes at full length.
std::string readable(std::string text) {
    const std::pair<std::string, std::string> names[] = {
        {"std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >", "std::string"},
        {"std::vector<std::string, std::allocator<std::string > >", "std::vector<std::string>"},
        {"std::map<std::string, NQELVSK20::TCIMValue, std::less<std::string >, "
         "std::allocator<std::pair<std::string const, NQELVSK20::TCIMValue> > >",
         "TContext"},
        {"[abi:cxx11]", ""},
        {"NQELVSK20::", ""}};
    for (const auto& [written, name] : names) {
        for (std::size_t at = 0; (at = text.find(written, at)) != std::string::npos; at += name.size()) {
            text.replace(at, written.size(), name);
        }
    }
    return text;
}

/// Each once: compilers make several functions of a constructor or destructor.
std::set<std::string> exportedNames() {
    std::set<std::string> names;
    for (const std::string& name : BinaryFile(CIMHTTP_LIBRARY).exports()) {
        names.insert(readable(demangled(name)));
    }
    return names;
}

std::set<std::string> entryPoints() {
    std::set<std::string> names;
    std::ifstream file(EXPORTED_NAMES);
    for (std::string line; std::getline(file, line);) {
        names.insert(line);
    }
    return names;
}

std::set<std::string> without(const std::set<std::string>& names, const std::set<std::string>& others) {
    std::set<std::string> result;
    std::set_difference(names.begin(), names.end(), others.begin(), others.end(),
                        std::inserter(result, result.end()));
    return result;
}

TEST(Linkage, ThePluginExportsItsEntryPointsAndNothingElse) {
    EXPECT_THAT(without(exportedNames(), entryPoints()), IsEmpty());
    EXPECT_THAT(without(entryPoints(), exportedNames()), IsEmpty());
}

#if defined(_WIN32)
TEST(Linkage, ThePluginNeedsTheHostAndWindowsOnly) {
    EXPECT_THAT(BinaryFile(CIMHTTP_LIBRARY).imports(),
                UnorderedElementsAre("vskhost.dll", "ADVAPI32.dll", "KERNEL32.dll", "USER32.dll",
                                     "WS2_32.dll", "msvcrt.dll"));
}
#elif defined(CIMHTTP_KNOWN_IMPORTS)
TEST(Linkage, ThePluginNeedsTheHostTheClientLibraryAndTheSystemOnly) {
    EXPECT_THAT(BinaryFile(CIMHTTP_LIBRARY).imports(),
                UnorderedElementsAre("libvskhost.so.0", "libcimxml.so.0", "libstdc++.so.6", "libgcc_s.so.1",
                                     "libc.so.6"));
}
#endif

}  // namespace
}  // namespace support
