#include "tools/program/Program.h"

#include <exception>
#include <iostream>

#include "tools/commands/Commands.h"
#include "tools/common/Failure.h"
#include "tools/common/UsageError.h"
#include "tools/console/Terminal.h"
#include "tools/program/CommandLine.h"
#include "tools/program/ExitStatus.h"

namespace tool {

namespace {

ExitStatus answer(const Options& options, Notices& notices, Progress& progress) {
    Output output(std::cout, progress, terminal::isOutput());
    Session session(options, notices, progress);
    try {
        session.connect();
        const bool found = runCommand({options, session, output, progress, notices});
        output.flush();
        return found && !session.hasFailed() ? kAnswered : kNothingOrFailed;
    } catch (const Failure&) {
        output.flush();  // what was answered before stays in front of the message
        throw;
    }
}

ExitStatus run(int argc, const char* const* argv, Notices& notices, Progress& progress) {
    try {
        const CommandLine commandLine(argc, argv);
        return commandLine.status ? *commandLine.status : answer(commandLine.options, notices, progress);
    } catch (const OutputClosed&) {
        return kAnswered;
    } catch (const UsageError& error) {
        notices.say(error.what());
        return kWrongUsage;
    } catch (const Failure& failure) {
        if (*failure.what() != '\0') {
            notices.say(failure.what());
        }
    } catch (const std::exception& error) {
        notices.say(error.what());
    }
    return kNothingOrFailed;
}

}  // namespace

int runProgram(int argc, const char* const* argv) {
    terminal::prepare();
    std::ios::sync_with_stdio(false);
    Progress progress(std::cerr, terminal::isError(), terminal::width(true));
    Notices notices(std::cerr, progress);
    return run(argc, argv, notices, progress);
}

}  // namespace tool
