#include "tools/program/CommandLine.h"

#include <CLI/CLI.hpp>

#include "tools/common/UsageError.h"

namespace tool {

namespace {

constexpr const char* kDescription =
    "Asks CIM servers through the cimhttp plug-in, as its host does. Without --node it starts a sample "
    "machine\n"
    "of three nodes on loopback addresses and asks that.";

constexpr const char* kFooter =
    "Servers are reached over HTTPS on port 5989 or HTTP on port 5988; certificates are not checked.\n"
    "Instances come from every node; class names, instance names, definitions and methods from the first.\n"
    "Exit status:\n"
    "  0  answered\n"
    "  1  nothing found\n"
    "  2  wrong usage\n"
    "  3  a node failed, others answered\n"
    "  4  no answer\n"
    "  5  a method returned another number than 0, whatever else happened\n"
    "  6  this side failed: the output cannot be written, for example\n"
    "Example: cimhttp --node admin@10.0.0.1 --node admin@10.0.0.2 instances CIM_Fan --columns "
    "Name,HealthState";

constexpr const char* kTimeoutHelp =
    "Milliseconds. Lengthens what the plug-in allows for a class (15000) and for the instances or a method "
    "of "
    "one (60000), and sets what applies until then; a shorter time has no effect there. Class names (3000) "
    "and instance names (15000) keep theirs";

/// Builds the parser over the options that it fills.
class Grammar {
public:
    explicit Grammar(Options& options) : options_(options), app_(kDescription, "cimhttp") {
        app_.footer(kFooter);
        app_.set_version_flag("--version", std::string("cimhttp ") + CIMHTTP_VERSION);
        app_.fallthrough();
        app_.require_subcommand(1);
        addNodeOptions();
        addOutputOptions();
        addNameCommands();
        addSchemaCommands();
        addInstanceCommands();
    }

    CLI::App& app() { return app_; }

private:
    void addNodeOptions() {
        app_.add_option("--node", options_.nodes, "A node's CIM server; repeated, in node order")
            ->type_name("[USER@]HOST")
            ->allow_extra_args(false);
        app_.add_option("--user", options_.user, "User of the nodes that name none")->type_name("NAME");
        app_.add_option("--password-file", options_.passwordFile,
                        "One line for all nodes, or one a node; else the variable CIMHTTP_PASSWORD is taken; "
                        "else, on a terminal, the password is asked for")
            ->type_name("FILE");
        const std::map<std::string, Transport> transports{
            {"auto", Transport::kAuto}, {"https", Transport::kHttps}, {"http", Transport::kHttp}};
        app_.add_option("--transport", options_.transport,
                        "https, or http for a single node, or auto: HTTPS, else HTTP, also where that shows "
                        "a password; left out: HTTPS, else HTTP for nodes without a user")
            ->type_name("NAME")
            ->transform(CLI::CheckedTransformer(transports, CLI::ignore_case).description(""));
        app_.add_option("--namespace", options_.nameSpace, "CIM namespace, root/cimv2 when left out")
            ->type_name("NAME");
        app_.add_option("--timeout", options_.timeoutMs, kTimeoutHelp)
            ->type_name("MS")
            ->check(CLI::PositiveNumber.description(""));
        app_.add_option("--connect-timeout", options_.connectTimeoutS,
                        "How long nodes have to accept a connection, 10 when left out; one that does not is "
                        "left out of the answer")
            ->type_name("SECONDS")
            ->check(CLI::Range(1U, 3600U).description(""));
    }

    void addOutputOptions() {
        const std::map<std::string, Format> formats{
            {"text", Format::kText}, {"json", Format::kJson}, {"csv", Format::kCsv}};
        app_.add_option("--format", options_.format, "text, json, or csv for instances")
            ->type_name("NAME")
            ->transform(CLI::CheckedTransformer(formats, CLI::ignore_case).description(""));
        app_.add_flag("-v,--verbose", options_.verbose, "Show the plug-in's trace lines on standard error");
    }

    void addNameCommands() {
        CLI::App* classes =
            add("classes", "Class names right below a class, or the top-level ones", Question::kClasses);
        addClassName(*classes, false);
        classes->add_flag("--deep", options_.deep, "Go down to the last subclass");
        addClassName(*add("names", "Paths of a class's instances", Question::kNames), true);
        addClassName(*add("walk", "Read every instance and property, and say how many", Question::kWalk),
                     true);
    }

    void addSchemaCommands() {
        CLI::App* definition = add("class", "A class's definition, laid out like MOF", Question::kClass);
        addClassName(*definition, true);
        definition->add_flag("--all", options_.all,
                             "Inherited members too, each with the class that declares it");
        addClassName(*add("tree", "The class hierarchy below a class, or the whole", Question::kTree), false);
        add("qualifiers", "Qualifier declarations known after fetching some classes", Question::kQualifiers)
            ->add_option("CLASS", options_.classNames, "Classes to fetch first");
    }

    void addInstanceCommands() {
        CLI::App* instances = add("instances", "A class's instances on every node", Question::kInstances);
        addClassName(*instances, true);
        instances->add_flag(
            "--deep", options_.deep,
            "Ask every subclass too: an instance then comes once for each class that it belongs to");
        instances->add_option("--columns", options_.columns, "Show these properties only, text as a table")
            ->type_name("A,B,C")
            ->delimiter(',')
            ->allow_extra_args(false);
        instances->add_option("--limit", options_.limit, "Stop after so many")
            ->type_name("N")
            ->check(CLI::PositiveNumber.description(""));
        CLI::App* get = add("get", "One instance", Question::kGet);
        get->add_option("PATH", options_.path,
                        "Its path, e.g. 'OMC_Fan.DeviceID=\"1\"', as names or instances prints it")
            ->required();
        CLI::App* invoke = add("invoke", "Run a method of an instance or class", Question::kInvoke);
        invoke
            ->add_option("PATH", options_.path,
                         "Path of the instance, as names or instances prints it, or name of the class")
            ->required();
        invoke->add_option("METHOD", options_.method, "Name of the method")->required();
        invoke->add_option("NAME=VALUE", options_.arguments, "Arguments; an array as NAME=[a,b]");
    }

    CLI::App* add(const std::string& name, const std::string& description, Question question) {
        CLI::App* command = app_.add_subcommand(name, description);
        command->callback([this, question] { options_.question = question; });
        return command;
    }

    void addClassName(CLI::App& command, bool required) {
        command.add_option("CLASS", options_.className, "Name of the class")->required(required);
    }

    Options& options_;
    CLI::App app_;
};

void requireFit(const Options& options) {
    if (options.format == Format::kCsv && options.question != Question::kInstances) {
        throw UsageError("--format csv is for instances");
    }
}

// What was not expected, without values: one may be a password.
std::string namesOf(const std::vector<std::string>& unexpected) {
    std::string names;
    for (const std::string& text : unexpected) {
        if (text.size() > 1 && text.front() == '-') {
            names += (names.empty() ? ": " : ", ") +
                     (text[1] == '-' ? text.substr(0, text.find('=')) : text.substr(0, 2));
        }
    }
    return names;
}

}  // namespace

CommandLine::CommandLine(int argc, const char* const* argv) {
    Grammar grammar(options);
    try {
        grammar.app().parse(argc, argv);
    } catch (const CLI::ExtrasError&) {
        throw UsageError("unknown arguments" + namesOf(grammar.app().remaining(true)) +
                         "; cimhttp --help lists all");
    } catch (const CLI::ParseError& error) {
        status = grammar.app().exit(error) == 0 ? kAnswered : kWrongUsage;
        return;
    }
    requireFit(options);
}

}  // namespace tool
