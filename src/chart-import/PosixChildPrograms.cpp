#include "chart-import/PosixChildPrograms.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <linux/close_range.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

#include "base/Paths.h"
#include "base/Strings.h"

namespace ornivane {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t MostKept = 1 << 20; // bytes of what a child says
constexpr int PollMs = 100;               // between two looks at stop and limits

class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : held(number) {}
    ~Descriptor() { Close(); }
    Descriptor(Descriptor&& other) noexcept : held(std::exchange(other.held, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(held, other.held);
        return *this;
    }
    void Close() {
        if (held >= 0) ::close(held);
        held = -1;
    }
    int Number() const { return held; }
    bool IsOpen() const { return held >= 0; }

private:
    int held = -1;
};

struct Pipe {
    Descriptor Reading, Writing;

    bool Open() {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) return false;
        Reading = Descriptor(ends[0]);
        Writing = Descriptor(ends[1]);
        return true;
    }
};

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

// What the new process does before it is the program: made ready before the fork, because behind it only
// calls are allowed that take no lock.
struct Start {
    const char* Program;
    char* const* Arguments;
    char* const* Environment;
    int Input, Output, Errors;
    ChildLimits Limits;
    pid_t Parent;

    void Limit(int resource, rlim_t most) const {
        const rlimit limit{most, most};
        ::setrlimit(static_cast<__rlimit_resource>(resource), &limit);
    }
    [[noreturn]] void Become() const {
        ::setpgid(0, 0);
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (::getppid() != Parent) ::_exit(127); // it died before the line above
        ::dup2(Input, STDIN_FILENO);
        ::dup2(Output, STDOUT_FILENO);
        ::dup2(Errors, STDERR_FILENO);
        ::close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
        // A write beyond the limit shall be an error of the child's, not its end.
        ::signal(SIGXFSZ, SIG_IGN);
        ::signal(SIGPIPE, SIG_DFL);
        sigset_t none;
        ::sigemptyset(&none);
        ::sigprocmask(SIG_SETMASK, &none, nullptr);
        Limit(RLIMIT_AS, Limits.MemoryBytes);
        Limit(RLIMIT_FSIZE, Limits.FileBytes);
        Limit(RLIMIT_CORE, 0);
        ::execve(Program, Arguments, Environment);
        ::_exit(127);
    }
};

void Keep(std::string& text, std::string_view more) {
    text += more;
    if (text.size() > 2 * MostKept) text.erase(0, text.size() - MostKept);
}

// A child that runs: its pipes and its end.
class Running {
public:
    Running(pid_t process, Pipe& in, Pipe& out, Pipe& err, const ChildCall& of)
        : pid(process), call(of), input(std::move(in.Writing)), output(std::move(out.Reading)),
          errors(std::move(err.Reading)) {
        ::setpgid(pid, pid); // whichever of the two comes first
        ::fcntl(input.Number(), F_SETFL, O_NONBLOCK);
        if (call.Input.empty()) input.Close();
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    ChildEnd Wait(const std::stop_token& stop, const ChildPrograms::Listener& heard) {
        while (output.IsOpen() || errors.IsOpen()) {
            if (stop.stop_requested()) return Kill(ChildEnd::How::Stopped);
            const auto now = Clock::now();
            if (now - lastHeard > call.Limits.Silent || now - started > call.Limits.Total)
                return Kill(ChildEnd::How::TookTooLong);
            Exchange(heard);
        }
        return AwaitExit(stop);
    }

private:
    void Exchange(const ChildPrograms::Listener& heard) {
        std::array<pollfd, 3> ends{
            {{input.Number(), POLLOUT, 0}, {output.Number(), POLLIN, 0}, {errors.Number(), POLLIN, 0}}};
        if (::poll(ends.data(), ends.size(), PollMs) <= 0) return;
        if (ends[0].revents != 0) Feed();
        if (ends[1].revents != 0) Hear(output, end.Output, heard);
        if (ends[2].revents != 0) Hear(errors, end.Errors, {});
    }
    // The signal of a pipe that nobody reads is kept from this thread, the others keep theirs.
    void Feed() {
        sigset_t pipe, before;
        ::sigemptyset(&pipe);
        ::sigaddset(&pipe, SIGPIPE);
        ::pthread_sigmask(SIG_BLOCK, &pipe, &before);
        const ssize_t written = ::write(input.Number(), call.Input.data() + fed, call.Input.size() - fed);
        const bool broken = written < 0 && errno != EAGAIN && errno != EINTR;
        if (written < 0 && errno == EPIPE) {
            const timespec now{};
            ::sigtimedwait(&pipe, nullptr, &now);
        }
        ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
        if (written > 0) fed += static_cast<std::size_t>(written);
        if (broken || fed == call.Input.size()) input.Close();
    }
    void Hear(Descriptor& from, std::string& kept, const ChildPrograms::Listener& heard) {
        std::array<char, 4096> bytes{};
        const ssize_t got = ::read(from.Number(), bytes.data(), bytes.size());
        if (got < 0 && errno == EINTR) return;
        if (got <= 0) return from.Close();
        lastHeard = Clock::now();
        const std::string_view text(bytes.data(), static_cast<std::size_t>(got));
        Keep(kept, text);
        if (heard) heard(text);
    }
    // It closed its pipes; that it also ends is bounded.
    ChildEnd AwaitExit(const std::stop_token& stop) {
        const auto closed = Clock::now();
        int status = 0;
        while (::waitpid(pid, &status, WNOHANG) == 0) {
            if (stop.stop_requested()) return Kill(ChildEnd::How::Stopped);
            if (Clock::now() - closed > std::chrono::seconds(30)) return Kill(ChildEnd::How::TookTooLong);
            ::poll(nullptr, 0, 5);
        }
        ::kill(-pid, SIGKILL); // what it may have left behind
        end.Ended = WIFSIGNALED(status) ? ChildEnd::How::Signalled : ChildEnd::How::Exited;
        end.Status = WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status);
        return std::move(end);
    }
    ChildEnd Kill(ChildEnd::How how) {
        ::kill(-pid, SIGKILL);
        while (::waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
        }
        end.Ended = how;
        return std::move(end);
    }

    pid_t pid;
    const ChildCall& call;
    Descriptor input, output, errors;
    std::size_t fed = 0;
    Clock::time_point started = Clock::now(), lastHeard = started;
    ChildEnd end;
};

} // namespace

std::optional<std::filesystem::path> PosixChildPrograms::Find(const std::string& name) {
    const char* path = std::getenv("PATH");
    for (const std::string& folder : Split(path ? path : "/usr/bin:/bin", ":")) {
        // A relative folder would take a program from wherever the user happens to be.
        if (!folder.starts_with("/")) continue;
        const std::filesystem::path program = std::filesystem::path(folder) / name;
        if (FileExists(program) && ::access(program.c_str(), X_OK) == 0) return program;
    }
    return std::nullopt;
}

ChildEnd PosixChildPrograms::Run(const ChildCall& call, const std::stop_token& stop, const Listener& heard) {
    std::vector<std::string> arguments{call.Program.string()}, environment = call.Environment;
    arguments.insert(arguments.end(), call.Arguments.begin(), call.Arguments.end());
    const auto argumentPointers = Pointers(arguments);
    const auto environmentPointers = Pointers(environment);
    Pipe input, output, errors;
    if (!input.Open() || !output.Open() || !errors.Open()) return {};
    const Start start{call.Program.c_str(),
                      argumentPointers.data(),
                      environmentPointers.data(),
                      input.Reading.Number(),
                      output.Writing.Number(),
                      errors.Writing.Number(),
                      call.Limits,
                      ::getpid()};
    const pid_t pid = ::fork();
    if (pid < 0) return {};
    if (pid == 0) start.Become();
    input.Reading.Close();
    output.Writing.Close();
    errors.Writing.Close();
    Running running(pid, input, output, errors, call);
    ChildEnd end = running.Wait(stop, heard);
    if (end.Ended == ChildEnd::How::Exited && end.Status == 127) end.Ended = ChildEnd::How::CouldNotStart;
    return end;
}

} // namespace ornivane
