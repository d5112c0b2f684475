#include "tools/program/CommandLine.h"

#include <CLI/CLI.hpp>
#include <iostream>

#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include "tools/common/Integer.h"
#include "tools/common/Names.h"
#include "tools/common/SafeText.h"
#include "tools/common/UsageError.h"
#include "tools/program/Choice.h"
#include "tools/program/Completion.h"
#include "tools/program/HelpFormat.h"
#include "tools/program/MachineChoice.h"
#include "tools/program/UnknownWords.h"

namespace tool {

namespace {

constexpr const char* kDescription =
    "Asks CIM servers through the cimhttp plug-in, as its host does. Without --node\n"
    "it starts a sample machine of three nodes on loopback addresses and asks that.";

constexpr const char* kFooter =
    "Servers are reached over HTTPS on port 5989 or HTTP on port 5988; certificates\n"
    "are not checked. Instances come from every node; class names, instance names,\n"
    "definitions and methods from the first.\n"
    "\n"
    "Exit status:\n"
    "  0  answered\n"
    "  1  nothing found, or compare: they differ\n"
    "  2  wrong usage\n"
    "  3  a node failed, others answered\n"
    "  4  no answer\n"
    "  5  a method returned another number than 0, whatever else happened\n"
    "  6  this side failed: the output cannot be written, for example\n"
    "\n"
    "Example:\n"
    "  cimhttp --node admin@10.0.0.1 --node admin@10.0.0.2 \\\n"
    "      instances CIM_Fan --columns Name,HealthState";

constexpr const char* kTimeoutHelp =
    "Milliseconds. Lengthens what the plug-in allows for a class (15000) and for the instances or a method "
    "of one (60000), and sets what applies until then; a shorter time has no effect there. Class names "
    "(3000) and instance names (15000) keep theirs";

constexpr unsigned kLongestConnectTimeout = 3600;  // an hour

// Reads a whole number from 1; leaves its decimal digits.
CLI::Validator wholeNumber(unsigned long long highest) {
    const auto read = [highest](std::string& text) {
        const auto number = parseInteger(text);
        if (!number || number->negative || number->size == 0 || number->size > highest) {
            return inQuotes(text) + ": a whole number from 1 to " + std::to_string(highest) + " is expected";
        }
        text = std::to_string(number->size);
        return std::string();
    };
    return {read, ""};
}

/// Builds the parser over the options that it fills.
class Grammar {
public:
    explicit Grammar(Options& options) : options_(options), app_(kDescription, "cimhttp") {
        app_.formatter(std::make_shared<HelpFormat>());
        app_.footer(kFooter);
        app_.set_version_flag("--version", std::string("cimhttp ") + CIMHTTP_VERSION);
        app_.fallthrough();
        app_.require_subcommand(1);
        addNodeOptions();
        addOutputOptions();
        addStatistics();
        addTrace();
        addNameCommands();
        addSchemaCommands();
        addInstanceCommands();
        addHealthCommand();
        addSnapshotCommand();
        addReportCommand();
        addWatch();
    }

    CLI::App& app() { return app_; }

    /// One line about what is wrong with the command line.
    std::string complaint(const CLI::ParseError& error) {
        const std::string text = error.what();
        const std::string name = text.substr(0, text.find(": "));
        const bool isUnknown = dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr;
        const bool lacks = dynamic_cast<const CLI::RequiredError*>(&error) != nullptr;
        if (isUnknown || (lacks && app_.get_subcommands().empty())) {
            return unknownWords().complaint();
        }
        if (lacks) {
            const std::string command = app_.get_subcommands().front()->get_name();
            return command + " needs " + text.substr(0, text.find(" is required")) + "; cimhttp " + command +
                   " --help tells more";
        }
        if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
            return name + " needs a value; cimhttp --help tells more";
        }
        // Values of all other options are read here.
        if (dynamic_cast<const CLI::ConversionError*>(&error) != nullptr) {
            return "an option that takes no value was given one; cimhttp --help tells more";
        }
        return name == text ? text : name + text.substr(name.size() + 1);  // without the colon
    }

private:
    UnknownWords unknownWords() {
        UnknownWords unknown;
        unknown.words = app_.remaining(true);
        addOptions(app_, unknown.options);
        for (const CLI::App* command : app_.get_subcommands({})) {
            unknown.commands.push_back(command->get_name());
        }
        for (const CLI::App* command : app_.get_subcommands()) {
            unknown.command = command->get_name();
            addOptions(*command, unknown.options);
        }
        return unknown;
    }

    static void addOptions(const CLI::App& app, std::vector<std::string>& options) {
        for (const CLI::Option* option : app.get_options()) {
            for (const std::string& name : option->get_lnames()) {
                options.push_back("--" + name);
            }
        }
    }

    void addNodeOptions() {
        app_.add_option("--node", options_.nodes, "A node's CIM server; repeated, in node order")
            ->type_name("[USER@]HOST")
            ->allow_extra_args(false);
        app_.add_option("--machine", options_.machine,
                        "The nodes of a machine that the configuration knows, and how it asks them")
            ->type_name("NAME");
        app_.add_option(
                "--config", options_.configFile,
                "The configuration, cimhttp/machines.toml in your folder of configurations when left out")
            ->type_name("FILE");
        app_.add_option("--user", options_.user, "User of the nodes that name none")->type_name("NAME");
        app_.add_option("--password-file", options_.passwordFile,
                        "One line for all nodes, or one a node; else the variable CIMHTTP_PASSWORD is taken; "
                        "else, on a terminal, the password is asked for")
            ->type_name("FILE");
        const std::vector<std::pair<std::string, Transport>> transports{
            {"https", Transport::kHttps}, {"http", Transport::kHttp}, {"auto", Transport::kAuto}};
        app_.add_option("--transport", options_.transport,
                        "https, or http for a single node, or auto: HTTPS, else HTTP, also where that shows "
                        "a password; left out: HTTPS, else HTTP for nodes without a user")
            ->type_name("NAME")
            ->transform(oneOf(transports));
        app_.add_option("--namespace", options_.nameSpace, "CIM namespace, root/cimv2 when left out")
            ->type_name("NAME");
        app_.add_option("--timeout", options_.timeoutMs, kTimeoutHelp)
            ->type_name("MS")
            ->transform(wholeNumber(std::numeric_limits<unsigned>::max()));
        app_.add_option("--connect-timeout", options_.connectTimeoutS,
                        "How long nodes have to accept a connection, 10 when left out; one that does not is "
                        "left out of the answer")
            ->type_name("SECONDS")
            ->transform(wholeNumber(kLongestConnectTimeout));
    }

    void addOutputOptions() {
        const std::vector<std::pair<std::string, Format>> formats{
            {"text", Format::kText}, {"json", Format::kJson}, {"csv", Format::kCsv}};
        app_.add_option("--format", options_.format, "text, json, or csv for instances")
            ->type_name("NAME")
            ->transform(oneOf(formats));
        app_.add_flag("-v,--verbose", options_.verbose, "Show the plug-in's trace lines on standard error");
    }

    void addStatistics() {
        app_.add_flag("--statistics", options_.statistics,
                      "In the end, on standard error: requests, failures and seconds by node and operation");
    }

    void addTrace() {
        app_.add_option("--trace", options_.traceFile,
                        "Write every request's beginning and end there, a line of JSON each")
            ->type_name("FILE");
    }

    void addNameCommands() {
        CLI::App* classes =
            add("classes", "Class names right below a class, or the top-level ones", Question::kClasses);
        addClassName(*classes, false);
        classes->add_flag("--deep", options_.deep, "Go down to the last subclass");
        CLI::App* names = add("names", "Paths of a class's instances on the first node", Question::kNames);
        addClassName(*names, true);
        names->add_option("--on", options_.onNode, "Ask this node instead, 1 being the first")
            ->type_name("N")
            ->transform(wholeNumber(std::numeric_limits<std::size_t>::max()));
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
            ->transform(wholeNumber(std::numeric_limits<std::size_t>::max()));
        addSelection(*instances);
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

    void addSelection(CLI::App& instances) {
        instances
            .add_option(
                "--where", options_.where,
                "Those that fit only, e.g. 'HealthState!=OK and ElementName~fan'; operators = != < <= > "
                ">= ~ (contains) !~, and, or, not, parentheses")
            ->type_name("CONDITION");
        instances
            .add_option("--sort", options_.sort, "In the order of these properties; -A: the greatest first")
            ->type_name("A,-B")
            ->delimiter(',')
            ->allow_extra_args(false);
        instances.add_flag("--count", options_.count, "Only how many there are");
    }

    void addHealthCommand() {
        CLI::App* health = add("health", "What is not well on any node", Question::kHealth);
        health->add_flag("--all", options_.all, "What is well, too");
        health->add_flag("--nagios", options_.nagios,
                         "One line with performance data, and the exit status, of a monitoring plug-in");
    }

    void addSnapshotCommand() {
        add("snapshot", "What every node's server gives, as a file that cimom --snapshot serves",
            Question::kSnapshot)
            ->add_option("FILE", options_.file, "The file to write, e.g. machine.cim.gz")
            ->type_name("FILE")
            ->required();
        CLI::App* compare =
            add("compare", "In what two snapshots differ; exit status 1 when they do", Question::kCompare);
        compare->add_option("FIRST", options_.file, "A file that snapshot has written")
            ->type_name("FILE")
            ->required();
        compare->add_option("SECOND", options_.otherFile, "Another")->type_name("FILE")->required();
    }

    void addReportCommand() {
        add("report", "A page for browsers: health, sensors, logs, classes and instances", Question::kReport)
            ->add_option("FILE", options_.file, "Where it is written, such as machine.html")
            ->type_name("FILE")
            ->required();
    }

    // The watched command stands behind, as it would stand alone.
    void addWatch() {
        CLI::App* watch = app_.add_subcommand("watch",
                                              "A command again and again, and what changed: watch "
                                              "SECONDS COMMAND...");
        watch->add_option("SECONDS", options_.watchSeconds, "Between two rounds")
            ->required()
            ->check(CLI::Range(0.0, 86400.0).description(""));
        watch->add_option("--rounds", options_.rounds, "End after so many")
            ->type_name("N")
            ->check(CLI::PositiveNumber.description(""));
        watch->preparse_callback([this](std::size_t) { app_.require_subcommand(1, 2); });
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

void requireFitOfWatch(const Options& options) {
    if (options.format != Format::kText) {
        throw UsageError("watch shows text: --format is for single answers");
    }
    if (options.question == Question::kReport) {
        throw UsageError("watch shows text: report writes a file");
    }
    if (options.question == Question::kInvoke || options.question == Question::kSnapshot ||
        options.question == Question::kCompare || options.nagios) {
        throw UsageError("watch repeats questions: methods, snapshots and --nagios are for once");
    }
}

void requireFit(const Options& options) {
    if (options.watchSeconds) {
        requireFitOfWatch(options);
    }
    if (options.nagios && options.statistics) {
        throw UsageError("--nagios answers in one line: --statistics does not go with it");
    }
    if (options.question == Question::kReport && options.format != Format::kText) {
        throw UsageError("report writes HTML: --format is for the other commands");
    }
    if (options.format == Format::kCsv && options.question != Question::kInstances) {
        throw UsageError("--format csv is for instances; text and json are for every command");
    }
}

}  // namespace

CommandLine::CommandLine(int argc, const char* const* argv) {
    Grammar grammar(options);
    if (Completion::isAskedFor(argc, argv)) {
        for (const std::string& word : Completion(grammar.app(), {argv + 2, argv + argc}).words()) {
            std::cout << word << '\n';
        }
        status = kAnswered;
        return;
    }
    try {
        grammar.app().parse(argc, argv);
    } catch (const CLI::Success& request) {
        grammar.app().exit(request);
        status = kAnswered;
        return;
    } catch (const CLI::ParseError& error) {
        throw UsageError(grammar.complaint(error));
    }
    if (options.watchSeconds && grammar.app().get_subcommands().size() < 2) {
        throw UsageError("watch takes a command: watch SECONDS COMMAND...");
    }
    takeMachine(options, [&grammar](const std::string& option) { return grammar.app().count(option) != 0; });
    requireFit(options);
}

}  // namespace tool
