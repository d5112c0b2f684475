#include <Pegasus/Common/Exception.h>
#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <fstream>
#include <stdexcept>

#include "bench/Options.h"
#include "bench/ReplayServer.h"
#include "bench/Report.h"

namespace {

bool IsWanted(const bench::Options& options, const std::string& key) {
    const std::vector<std::string>& wanted = options.sections;
    return wanted.empty() || std::find(wanted.begin(), wanted.end(), key) != wanted.end();
}

void Compare(const bench::Options& options) {
    const std::string run = bench::DescribeRun();
    fmt::print("{}\n", run);
    nlohmann::json json{{"run", run}, {"sections", nlohmann::json::array()}};
    for (const bench::Section& section : bench::AllSections()) {
        if (IsWanted(options, section.key)) {
            const bench::Comparison comparison = section.compare(options.settings);
            bench::Print(section.key, comparison);
            json["sections"].push_back(bench::ToJson(section.key, comparison));
        }
    }
    if (!options.jsonFile.empty() && !(std::ofstream(options.jsonFile) << json.dump(2) << "\n")) {
        throw std::runtime_error("cannot write " + options.jsonFile);
    }
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const bench::Options options(argc, argv);
        if (options.status) {
            return *options.status;
        }
        bench::ReplayServer::Address();  // of this process, before there are others
        if (options.onlyLayer.empty()) {
            Compare(options);
        } else {
            bench::RunLayer(options.onlyLayer, options.settings);
        }
        return 0;
    } catch (const Pegasus::Exception& error) {
        fmt::print(stderr, "enumerate_bench: {}\n",
                   static_cast<const char*>(error.getMessage().getCString()));
        return 1;
    } catch (const std::exception& error) {
        fmt::print(stderr, "enumerate_bench: {}\n", error.what());
        return 1;
    }
}
