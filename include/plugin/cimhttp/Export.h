#pragma once

// Marks what the shared library shows to its host; everything else stays hidden. A macro, because compilers
// spell it differently and nothing else in the language can carry it.
#if !defined(_WIN32)
#define CIMHTTP_EXPORT __attribute__((visibility("default")))
#elif defined(CIMHTTP_BUILDING_PLUGIN)
#define CIMHTTP_EXPORT __declspec(dllexport)
#elif defined(CIMHTTP_STATIC)
#define CIMHTTP_EXPORT
#else
#define CIMHTTP_EXPORT __declspec(dllimport)
#endif
