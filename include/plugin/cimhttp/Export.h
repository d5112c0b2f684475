#pragma once

// Marks what the shared library shows to its host; everything else stays hidden. A macro, because compilers
// spell it differently and nothing else in the language can carry it. GNU linkers take away again what of it
// is no entry point (cmake/PluginExports.map); on Windows they need no mark, which would overrule them.
#if !defined(_WIN32)
#define CIMHTTP_EXPORT __attribute__((visibility("default")))
#elif defined(_MSC_VER) && defined(CIMHTTP_BUILDING_PLUGIN)
#define CIMHTTP_EXPORT __declspec(dllexport)
#elif defined(_MSC_VER) && !defined(CIMHTTP_STATIC)
#define CIMHTTP_EXPORT __declspec(dllimport)
#else
#define CIMHTTP_EXPORT
#endif
