#include "bench/Sample.h"

namespace bench {

ReplayServer::Endpoint SampleNode(unsigned node, unsigned address, std::size_t instances) {
    ReplayServer::Endpoint endpoint;
    endpoint.address = ReplayServer::Address(address);
    endpoint.fill = [node, instances] {
        const auto repository = cimom::Repository::sampleNode(node);
        if (instances > 0) {
            repository->multiplyInstances(kNamespace, kManyClass, instances);
        }
        return repository;
    };
    return endpoint;
}

}  // namespace bench
