#pragma once

#if defined(_WIN32)
#define LOADED_HOST_EXPORT __declspec(dllexport)
#else
#define LOADED_HOST_EXPORT __attribute__((visibility("default")))
#endif

/// The number of a server's instances of a class, read through the plug-in; -1 when it has no such class.
extern "C" LOADED_HOST_EXPORT int readInstances(const char* host, const char* className);
