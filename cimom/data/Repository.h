#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace cimom {

/// The classes and instances of one node, read from CIM-XML declaration files (DSP0201, DECLARATION).
///
/// Filled first, then served; it must not be changed while a server that uses it runs, except through
/// extrinsic methods that the server itself carries out.
class Repository {
public:
    Repository();
    ~Repository();
    Repository(const Repository&) = delete;
    Repository& operator=(const Repository&) = delete;

    /// Adds the qualifier, class and instance declarations of a CIM-XML text to `nameSpace`
    /// (e.g. "root/cimv2"). A declaration of a name or path already there replaces it. Throws
    /// std::runtime_error that names `source`, the line and what was wrong.
    void addDeclarations(const std::string& nameSpace, std::string_view xml, const std::string& source);

    /// Makes `count` instances of a class out of those that are there, with distinct keys, by repeating
    /// them. Throws std::runtime_error when the class is unknown or has no instance.
    void multiplyInstances(const std::string& nameSpace, const std::string& className, std::size_t count);

    /// The sample machine's node `nodeIndex` (zero-based): the classes that all nodes share, and the
    /// instances and definitions of that node. Indexes above the last prepared node get generated data.
    static std::shared_ptr<Repository> sampleNode(unsigned nodeIndex);

    /// Adds what sampleNode serves under "root/cimv2" to another namespace, e.g. "root/vqm2".
    void addSample(const std::string& nameSpace, unsigned nodeIndex);

    class Data;
    /// The data themselves, owned by the repository; for the server's own use.
    Data& data() { return *data_; }
    const Data& data() const { return *data_; }

private:
    std::unique_ptr<Data> data_;
};

}  // namespace cimom
