#include "cimom/program/Options.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <cstdio>

namespace cimom {
namespace {

/// The two sides of "LEFT=RIGHT"; throws when either is empty.
std::pair<std::string, std::string> split(const std::string& option, const std::string& text) {
    const auto equals = text.find('=');
    if (equals == std::string::npos || equals == 0 || equals + 1 == text.size()) {
        throw CLI::ValidationError(option, "'" + text + "' is not of the form LEFT=RIGHT");
    }
    return {text.substr(0, equals), text.substr(equals + 1)};
}

Options::Multiply readMultiply(const std::string& text) {
    const auto [className, number] = split("--instances", text);
    std::size_t count = 0;
    const char* end = number.data() + number.size();
    const auto [stop, error] = std::from_chars(number.data(), end, count);
    if (error != std::errc() || stop != end) {
        throw CLI::ValidationError("--instances", "'" + number + "' is no number of instances");
    }
    return {className, count};
}

void checkTogether(const Options& options) {
    if (!options.http && !options.https) {
        throw CLI::ValidationError("--no-http", "cannot be used together with --no-https");
    }
    if (options.user.empty() != options.passwordFile.empty()) {
        throw CLI::ValidationError("--user", "and --password-file need each other");
    }
}

}  // namespace

std::optional<int> readOptions(int argc, char** argv, Options& options) {
    CLI::App app(
        "A CIM server (CIM-XML over HTTP and HTTPS) that serves the nodes of a sample machine, or of a "
        "snapshot.",
        "cimom");
    std::vector<std::string> multiply;
    std::vector<std::string> load;
    app.set_version_flag("--version", "cimom " CIMOM_VERSION);
    app.add_option(
           "--address", options.addresses,
           "Address to listen on; each further one serves the machine's next node (default 127.0.0.1; of a "
           "snapshot, an address for each node from there on)")
        ->take_all()
        ->allow_extra_args(false)
        ->type_name("A");
    app.add_option("--http-port", options.httpPort, "Port for HTTP; 0: any free one (default 5988)")
        ->type_name("N");
    app.add_option("--https-port", options.httpsPort, "Port for HTTPS; 0: any free one (default 5989)")
        ->type_name("N");
    // As callbacks: a negated flag would show its "{false}" in the help.
    app.add_flag_callback(
        "--no-http", [&] { options.http = false; }, "Serve HTTPS only");
    app.add_flag_callback(
        "--no-https", [&] { options.https = false; }, "Serve HTTP only");
    app.add_option("--user", options.user, "User name to ask for")->type_name("NAME");
    app.add_option("--password-file", options.passwordFile, "File whose first line is the password")
        ->type_name("FILE");
    app.add_option("--snapshot", options.snapshot,
                   "Serve the machine in this file instead of the sample machine")
        ->type_name("FILE");
    app.add_option("--instances", multiply, "Make N instances of CLASS on every node")
        ->allow_extra_args(false)
        ->type_name("CLASS=N");
    app.add_option("--load", load, "Add the declarations of a CIM-XML file to namespace NS on every node")
        ->allow_extra_args(false)
        ->type_name("NS=FILE");
    app.add_flag(
        "--flat-classes", options.localOnly.flatClasses,
        "Send inherited members of a class as its own, whatever LocalOnly says (default: honour it)");
    app.add_flag(
        "--declared-properties", options.localOnly.declaredPropertiesOnly,
        "Under LocalOnly, send of an instance what its own class declares (default: all that it holds)");
    app.add_option("--idle-limit", options.idleSeconds,
                   "Close a connection on which nothing comes for N seconds (default 30)")
        ->check(CLI::Range(1, 86400).description(""))
        ->type_name("N");
    app.add_flag("--log", options.log, "Print a line for each request");
    try {
        app.parse(argc, argv);
        for (const std::string& text : multiply) {
            options.multiply.push_back(readMultiply(text));
        }
        for (const std::string& text : load) {
            auto [nameSpace, file] = split("--load", text);
            options.load.push_back({std::move(nameSpace), std::move(file)});
        }
        checkTogether(options);
    } catch (const CLI::Success& success) {
        return app.exit(success);
    } catch (const CLI::ParseError& error) {
        std::fprintf(stderr, "cimom: %s (see cimom --help)\n", error.what());
        return 2;
    }
    return std::nullopt;
}

}  // namespace cimom
