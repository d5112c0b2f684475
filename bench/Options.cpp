#include "bench/Options.h"

#include <CLI/CLI.hpp>

namespace bench {

namespace {

std::vector<std::string> SectionKeys() {
    std::vector<std::string> keys;
    for (const Section& section : AllSections()) {
        keys.push_back(section.key);
    }
    return keys;
}

}  // namespace

Options::Options(int argc, const char* const* argv) {
    CLI::App app("Compares what the plug-in's layers cost with what they cannot do without, in one run.");
    app.add_option("SECTION", sections, "What to compare; all when left out")
        ->check(CLI::IsMember(SectionKeys()));
    app.add_option("--instances", settings.instances, "Instances of a node, 10000 when left out")
        ->type_name("N")
        ->check(CLI::Range(1, 1000000).description(""));
    app.add_option("--rounds", settings.rounds, "Rounds of each contestant, 15 when left out")
        ->type_name("N")
        ->check(CLI::Range(1, 1000).description(""));
    app.add_option("--json", jsonFile, "Write the figures to a file, too")->type_name("FILE");
    app.add_option("--only", onlyLayer, "Run the rounds of one layer in this process, for profilers")
        ->type_name("LAYER")
        ->check(CLI::IsMember(LayerKeys()));
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        status = app.exit(error) == 0 ? 0 : 2;
    }
}

}  // namespace bench
