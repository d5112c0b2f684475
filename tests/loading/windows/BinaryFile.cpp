#include "tests/loading/BinaryFile.h"

#include <windows.h>

#include <stdexcept>

namespace support {

namespace {

/// The file laid out as it would run, without anything of it being run.
class Image {
public:
    explicit Image(const std::string& path)
        : module_(LoadLibraryExA(path.c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES)) {
        if (module_ == nullptr) {
            throw std::runtime_error(path + ": error " + std::to_string(GetLastError()));
        }
    }
    ~Image() { FreeLibrary(module_); }
    Image(const Image&) = delete;
    Image& operator=(const Image&) = delete;

    /// What stands at a distance from the image's beginning.
    template <class T>
    const T* at(DWORD distance) const {
        return reinterpret_cast<const T*>(reinterpret_cast<const char*>(module_) + distance);
    }

    /// One of the tables that the image's header names.
    template <class T>
    const T* table(unsigned which) const {
        const auto* const dos = at<IMAGE_DOS_HEADER>(0);
        const auto* const header = at<IMAGE_NT_HEADERS64>(static_cast<DWORD>(dos->e_lfanew));
        return at<T>(header->OptionalHeader.DataDirectory[which].VirtualAddress);
    }

private:
    HMODULE module_;
};

}  // namespace

std::vector<std::string> BinaryFile::exports() const {
    const Image image(path_);
    const auto* const table = image.table<IMAGE_EXPORT_DIRECTORY>(IMAGE_DIRECTORY_ENTRY_EXPORT);
    // A function may be exported by its number alone.
    if (table->NumberOfFunctions != table->NumberOfNames) {
        throw std::runtime_error(path_ + " exports something without a name");
    }
    std::vector<std::string> names;
    for (DWORD i = 0; i < table->NumberOfNames; ++i) {
        names.emplace_back(image.at<char>(image.at<DWORD>(table->AddressOfNames)[i]));
    }
    return names;
}

std::vector<std::string> BinaryFile::imports() const {
    const Image image(path_);
    std::vector<std::string> names;
    for (const auto* entry = image.table<IMAGE_IMPORT_DESCRIPTOR>(IMAGE_DIRECTORY_ENTRY_IMPORT);
         entry->Name != 0; ++entry) {
        names.emplace_back(image.at<char>(entry->Name));
    }
    return names;
}

}  // namespace support
