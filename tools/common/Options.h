#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tool {

/// How nodes are reached: over HTTPS, else HTTP, or over one protocol only.
enum class Transport { kAuto, kHttps, kHttp };

enum class Format { kText, kJson, kCsv };

/// What to ask.
enum class Question {
    kClasses,
    kNames,
    kWalk,
    kClass,
    kTree,
    kQualifiers,
    kInstances,
    kGet,
    kInvoke,
    kHealth,
    kSnapshot,
    kCompare,
    kReport
};

/// What the command line says, read but not yet interpreted.
struct Options {
    std::vector<std::string> nodes;      ///< [USER@]HOST each, in node order; none: the embedded machine.
    std::string user;                    ///< Of the nodes that name none.
    std::string passwordFile;            ///< Empty: none.
    bool isPasswordFileGuarded = false;  ///< Nobody else may read it.
    std::vector<std::string> passwordCommand;  ///< A program that prints it, and its arguments; empty: none.
    std::string machine;     ///< A name of the configuration, which the nodes are then from; empty: none.
    std::string configFile;  ///< Empty: where it usually is.
    std::optional<Transport> transport;  ///< None: HTTPS, and HTTP where there is no password to be seen.
    std::string nameSpace = "root/cimv2";
    std::optional<unsigned> timeoutMs;
    unsigned connectTimeoutS = 10;
    Format format = Format::kText;
    bool verbose = false;
    bool statistics = false;
    std::string traceFile;  ///< Empty: none.

    std::optional<double> watchSeconds;  ///< Between two rounds of a watched command.
    std::optional<std::size_t> rounds;   ///< Of a watched command; none: until somebody ends it.

    Question question = Question::kClasses;
    std::string className;                ///< Empty where a command takes it and it was left out.
    std::vector<std::string> classNames;  ///< qualifiers
    std::optional<std::size_t> onNode;    ///< names: counted from 1.
    bool deep = false;                    ///< classes, instances
    bool all = false;                     ///< class, health
    bool nagios = false;                  ///< health
    std::vector<std::string> columns;     ///< instances; empty: no table
    std::optional<std::size_t> limit;     ///< instances
    std::string where;                    ///< instances: which; empty: all
    std::vector<std::string> sort;        ///< instances: NAME or -NAME; empty: as they come
    bool count = false;                   ///< instances: only how many
    std::string file;                     ///< snapshot, report: to write; compare: the first
    std::string otherFile;                ///< compare
    std::string path;                     ///< get, invoke
    std::string method;                   ///< invoke
    std::vector<std::string> arguments;   ///< invoke: NAME=VALUE each
};

}  // namespace tool
