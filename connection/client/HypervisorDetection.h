#pragma once

namespace NQELVSK20 {

class PegClient;

/// What is known of a server as a VMware ESXi host.
struct Hypervisor {
    bool isEsxi = false;
    bool isEsxi5 = false;  ///< Version 5 or later.
};

/// Asks the server behind `client` whether it is a hypervisor, and enters the answer.
///
/// Hosts rely on its running once a process, for the first namespace that gets here: any later one asks
/// nothing and keeps what it has. Null counts as a server that says no.
void DetectHypervisor(PegClient* client, Hypervisor& hypervisor);

/// Whether the detection has run; for tests, which want it anew or out of their way.
bool& HypervisorDetectionDone();

}  // namespace NQELVSK20
