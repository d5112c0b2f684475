#include "tools/program/Program.h"

#include <exception>
#include <iostream>

#include "tools/commands/Commands.h"
#include "tools/common/Failure.h"
#include "tools/common/UsageError.h"
#include "tools/console/Terminal.h"
#include "tools/program/CommandLine.h"
#include "tools/program/ExitStatus.h"
#include "tools/program/Monitoring.h"

namespace tool {

namespace {

ExitStatus statusOf(bool found, const Session& session) {
    if (session.hasMethodReturnedOther()) {
        return kMethodReturned;
    }
    if (found) {
        return session.hasFailed() ? kNodeFailed : kAnswered;
    }
    if (!session.hasFailed() || session.isOnlyMissing()) {
        return kNothingFound;
    }
    return session.isUnanswered() ? kNoAnswer : kNodeFailed;
}

ExitStatus statusOf(const Failure& failure) {
    switch (failure.kind()) {
        case Failure::Kind::kNothingThere:
            return kNothingFound;
        case Failure::Kind::kLocal:
            return kLocalFailure;
        case Failure::Kind::kNoAnswer:
            break;
    }
    return kNoAnswer;
}

void say(const std::exception& failure, Notices& notices) {
    if (*failure.what() != '\0') {
        notices.say(failure.what());
    }
}

bool ask(const CommandContext& context) {
    return context.options.watchSeconds ? runWatch(context) : runCommand(context);
}

bool runOnNodesThatAnswer(const CommandContext& context) {
    for (;;) {
        try {
            return ask(context);
        } catch (const Failure&) {
            if (!context.session.goOnWithoutFirst()) {
                throw;
            }
        }
    }
}

ExitStatus answerOn(const CommandContext& context) {
    Session& session = context.session;
    try {
        session.connect();
        const bool found = runOnNodesThatAnswer(context);
        context.output.flush();
        return statusOf(found, session);
    } catch (const Failure& failure) {
        context.output.flush();  // what was answered before stays in front of the message
        say(failure, context.notices);
        const bool isMissing = failure.kind() == Failure::Kind::kNoAnswer && session.isOnlyMissing();
        return isMissing ? kNothingFound : statusOf(failure);
    }
}

ExitStatus answer(const Options& options, Notices& notices, Progress& progress) {
    Output output(std::cout, progress, terminal::isOutput());
    if (options.question == Question::kCompare) {
        const bool isEqual = runCompare(options, output);
        output.flush();
        return isEqual ? kAnswered : kDiffers;
    }
    Session session(options, notices, progress);
    const CommandContext context{options, session, output, progress, notices};
    const ExitStatus status = answerOn(context);
    if (options.statistics) {
        sayStatistics(context);
    }
    return status;
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
        say(failure, notices);
        return statusOf(failure);
    } catch (const std::exception& error) {
        notices.say(error.what());
    }
    return kLocalFailure;
}

}  // namespace

namespace {

int runMonitor(int argc, const char* const* argv, Notices& notices, Progress& progress) {
    Output output(std::cout, progress, terminal::isOutput());
    const auto askMachine = [&] {
        const CommandLine commandLine(argc, argv);
        if (commandLine.status) {
            return *commandLine.status == kAnswered ? 0 : kMonitoringUnknown;
        }
        if (!commandLine.options.nagios) {  // the word was another option's value
            return static_cast<int>(answer(commandLine.options, notices, progress));
        }
        Session session(commandLine.options, notices, progress);
        session.connect();
        const int status = runMonitoring({commandLine.options, session, output, progress, notices});
        output.flush();
        return status;
    };
    return runAsMonitor(askMachine, output, notices);
}

}  // namespace

int runProgram(int argc, const char* const* argv) {
    terminal::prepare();
    std::ios::sync_with_stdio(false);
    Progress progress(std::cerr, terminal::isError(), terminal::width(true));
    Notices notices(std::cerr, progress);
    return isMonitoring(argc, argv) ? runMonitor(argc, argv, notices, progress)
                                    : run(argc, argv, notices, progress);
}

}  // namespace tool
