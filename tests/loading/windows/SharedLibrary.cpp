#include "tests/loading/SharedLibrary.h"

#include <windows.h>

#include <stdexcept>

namespace support {

namespace {

std::runtime_error notThere(const std::string& name) {
    return std::runtime_error(name + ": error " + std::to_string(GetLastError()));
}

}  // namespace

SharedLibrary::SharedLibrary(const std::string& path) : handle_(LoadLibraryA(path.c_str())) {
    if (handle_ == nullptr) {
        throw notThere(path);
    }
}

SharedLibrary::~SharedLibrary() {
    FreeLibrary(static_cast<HMODULE>(handle_));
}

SharedLibrary::Address SharedLibrary::address(const std::string& name) const {
    const FARPROC found = GetProcAddress(static_cast<HMODULE>(handle_), name.c_str());
    if (found == nullptr) {
        throw notThere(name);
    }
    return reinterpret_cast<Address>(found);
}

bool SharedLibrary::isLoaded(const std::string& path) {
    return GetModuleHandleA(path.c_str()) != nullptr;
}

}  // namespace support
