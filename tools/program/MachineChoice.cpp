#include "tools/program/MachineChoice.h"

#include "tools/common/UsageError.h"
#include "tools/config/MachineConfig.h"

namespace tool {

namespace {

void takeSecrets(Options& options, const MachineSettings& machine) {
    options.passwordFile = machine.passwordFile;
    options.isPasswordFileGuarded = !machine.passwordFile.empty();
    options.passwordCommand = machine.passwordCommand;
}

}  // namespace

void takeMachine(Options& options, const std::function<bool(const std::string& option)>& isGiven) {
    if (!isGiven("--machine")) {
        if (isGiven("--config")) {
            throw UsageError("--config is where --machine NAME looks: which machine is meant?");
        }
        return;
    }
    if (isGiven("--node")) {
        throw UsageError("--machine NAME has its nodes: --node does not go with it");
    }
    const MachineConfig config(options.configFile);
    const MachineSettings& machine = config.machine(options.machine);
    options.nodes = machine.nodes;
    if (!isGiven("--user")) {
        options.user = machine.user;
    }
    if (!isGiven("--transport")) {
        options.transport = machine.transport;
    }
    if (!isGiven("--namespace") && machine.nameSpace) {
        options.nameSpace = *machine.nameSpace;
    }
    if (!isGiven("--connect-timeout") && machine.connectTimeoutS) {
        options.connectTimeoutS = *machine.connectTimeoutS;
    }
    if (!isGiven("--password-file")) {
        takeSecrets(options, machine);
    }
}

}  // namespace tool
