#include "bench/sections/Sections.h"

namespace bench {

const std::vector<Section>& AllSections() {
    static const std::vector<Section> sections{{"layers", CompareLayers}, {"sizes", CompareSizes},
                                               {"nodes", CompareNodes},   {"programs", ComparePrograms},
                                               {"calls", CompareCalls},   {"definitions", CompareDefinitions},
                                               {"tls", CompareTls},       {"segments", CompareSegments}};
    return sections;
}

}  // namespace bench
