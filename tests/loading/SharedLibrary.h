#pragma once

#include <string>

namespace support {

/// A shared library that this process has loaded, as a host loads its plug-ins; unloaded with this object.
class SharedLibrary {
public:
    /// Throws std::runtime_error with the system's reason when it cannot be loaded.
    explicit SharedLibrary(const std::string& path);
    ~SharedLibrary();
    SharedLibrary(const SharedLibrary&) = delete;
    SharedLibrary& operator=(const SharedLibrary&) = delete;

    /// One of its functions, of type F. Throws std::runtime_error that names one that it does not export.
    template <class F>
    F* function(const std::string& name) const {
        return reinterpret_cast<F*>(address(name));
    }

    /// Whether this process has a library, whoever loaded it.
    static bool isLoaded(const std::string& path);

private:
    using Address = void (*)();
    Address address(const std::string& name) const;

    void* handle_;
};

}  // namespace support
