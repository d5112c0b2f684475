#include "bench/Contestant.h"

#include <malloc.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <utility>

namespace bench {

namespace {

struct Round {
    double seconds = 0;
    double processorSeconds = 0;
    std::size_t count = 0;
};

double Seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

/// What the process has computed so far, and the programs that it ran, in seconds.
double ProcessorTime() {
    timespec own{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &own);
    rusage others{};
    getrusage(RUSAGE_CHILDREN, &others);
    return static_cast<double>(own.tv_sec) + static_cast<double>(own.tv_nsec) * 1e-9 +
           Seconds(others.ru_utime) + Seconds(others.ru_stime);
}

Round Measure(const Contestant::Work& work) {
    const double computed = ProcessorTime();
    const auto start = std::chrono::steady_clock::now();
    const std::size_t count = work();
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    return {passed.count(), ProcessorTime() - computed, count};
}

double PeakMemory() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024;
}

/// What a process frees stays with it. Fresh pages cost ten times as much on one machine as on another, and
/// whether the allocator gives pages back depends on what happens to stand above them: neither is what is
/// measured.
void KeepFreedMemory() {
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, -1);
}

/// Says that the work is prepared, does a round for each byte that arrives, and tells the peak memory at the
/// end of them.
void Obey(int channel, const Contestant::Work& work) {
    char order = 'r';
    if (write(channel, &order, 1) != 1) {
        return;
    }
    while (read(channel, &order, 1) == 1) {
        const Round round = Measure(work);
        if (write(channel, &round, sizeof round) != sizeof round) {
            return;
        }
    }
    const double peak = PeakMemory();
    (void)!write(channel, &peak, sizeof peak);
}

}  // namespace

Contestant::Contestant(std::string name, const std::function<Work()>& prepare) : name_(std::move(name)) {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0 || (process_ = fork()) < 0) {
        throw std::runtime_error("no process for " + name_);
    }
    if (process_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        prctl(PR_SET_NAME, name_.c_str());  // for profilers
        KeepFreedMemory();
        close(ends[0]);
        try {
            Obey(ends[1], prepare());
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s: %s\n", name_.c_str(), error.what());
        }
        _exit(0);
    }
    close(ends[1]);
    channel_ = ends[0];
    char ready = 0;
    Read(&ready, 1);
}

Contestant::Contestant(Contestant&& other) noexcept
    : name_(std::move(other.name_)),
      process_(std::exchange(other.process_, -1)),
      channel_(std::exchange(other.channel_, -1)),
      seconds_(std::move(other.seconds_)),
      processorSeconds_(std::move(other.processorSeconds_)),
      count_(other.count_),
      peakBytes_(other.peakBytes_) {}

Contestant::~Contestant() {
    if (process_ > 0) {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
        close(channel_);
    }
}

void Contestant::Read(void* data, std::size_t size) const {
    if (recv(channel_, data, size, MSG_WAITALL) != static_cast<ssize_t>(size)) {
        throw std::runtime_error(name_ + " ended early");
    }
}

void Contestant::RunOnce() {
    if (send(channel_, "r", 1, MSG_NOSIGNAL) != 1) {
        throw std::runtime_error(name_ + " ended early");
    }
    Round round;
    Read(&round, sizeof round);
    seconds_.push_back(round.seconds);
    processorSeconds_.push_back(round.processorSeconds);
    count_ = round.count;
}

void Contestant::Finish() {
    shutdown(channel_, SHUT_WR);
    Read(&peakBytes_, sizeof peakBytes_);
}

double Contestant::Quickest() const {
    return *std::min_element(seconds_.begin(), seconds_.end());
}

double Contestant::LeastProcessorTime() const {
    return *std::min_element(processorSeconds_.begin(), processorSeconds_.end());
}

}  // namespace bench
