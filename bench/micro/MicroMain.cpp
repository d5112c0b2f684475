// The small steps that the plug-in's work consists of, with the memory that each asks for.

#include <Pegasus/Common/Exception.h>

#include <cstdio>
#include <exception>

#include "bench/micro/Steps.h"

int main(int argc, char** argv) {
    try {
        benchmark::Initialize(&argc, argv);
        if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
            return 2;
        }
        bench::AddNames();
        bench::AddConversions();
        bench::AddPaths();
        bench::AddInstances();
        bench::AddWire();
        benchmark::RunSpecifiedBenchmarks();
        return 0;
    } catch (const Pegasus::Exception& error) {
        std::fprintf(stderr, "micro_bench: %s\n", static_cast<const char*>(error.getMessage().getCString()));
        return 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "micro_bench: %s\n", error.what());
        return 1;
    }
}
