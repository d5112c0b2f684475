#include "tests/loading/SharedLibrary.h"

#include <dlfcn.h>

#include <stdexcept>

namespace support {

SharedLibrary::SharedLibrary(const std::string& path) : handle_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (handle_ == nullptr) {
        throw std::runtime_error(dlerror());
    }
}

SharedLibrary::~SharedLibrary() {
    dlclose(handle_);
}

SharedLibrary::Address SharedLibrary::address(const std::string& name) const {
    void* const found = dlsym(handle_, name.c_str());
    if (found == nullptr) {
        throw std::runtime_error(dlerror());
    }
    return reinterpret_cast<Address>(found);
}

bool SharedLibrary::isLoaded(const std::string& path) {
    void* const handle = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) {
        dlclose(handle);
    }
    return handle != nullptr;
}

}  // namespace support
