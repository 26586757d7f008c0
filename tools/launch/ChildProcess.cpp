#include "launch/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>

extern "C" { // which this header of glibc 2.36 forgets
#include <sys/pidfd.h>
}

namespace ornivane {

namespace {

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> EnvironmentWith(const std::map<std::string, std::string>& added) {
    std::vector<std::string> result;
    for (char** entry = environ; *entry; ++entry) {
        const std::string text = *entry;
        if (!added.contains(text.substr(0, text.find('=')))) result.push_back(text);
    }
    for (const auto& [name, value] : added) result.push_back(std::string(name).append("=").append(value));
    return result;
}

} // namespace

ChildProcess::ChildProcess(const std::filesystem::path& program, const Options& options) {
    std::vector<std::string> arguments{program.string()};
    arguments.insert(arguments.end(), options.Arguments.begin(), options.Arguments.end());
    std::vector<std::string> environment = EnvironmentWith(options.Environment);
    const std::vector<char*> argumentPointers = Pointers(arguments);
    const std::vector<char*> environmentPointers = Pointers(environment);

    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error(std::string("pipe: ") + std::strerror(errno));
    input = ends[1];
    pid = fork();
    if (pid < 0) throw std::runtime_error(std::string("fork: ") + std::strerror(errno));
    if (pid == 0) {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        dup2(ends[0], STDIN_FILENO);
        if (!options.Output.empty()) {
            const int file = open(options.Output.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
            dup2(file, STDOUT_FILENO);
            dup2(file, STDERR_FILENO);
        }
        execve(program.c_str(), argumentPointers.data(), environmentPointers.data());
        _exit(127);
    }
    close(ends[0]);
    handle = pidfd_open(pid, 0);
    if (handle < 0) throw std::runtime_error(std::string("pidfd_open: ") + std::strerror(errno));
}

ChildProcess::~ChildProcess() {
    if (IsRunning()) {
        Signal(SIGTERM);
        if (!WaitForEnd(std::chrono::seconds(5))) Signal(SIGKILL);
        WaitForEnd(std::chrono::seconds(5));
    }
    close(handle);
    close(input);
}

void ChildProcess::Signal(int signal) const {
    if (!status) kill(pid, signal);
}

void ChildProcess::Tell(const std::string& line) const {
    const std::string bytes = line + "\n";
    if (write(input, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
        throw std::runtime_error("the program does not read: " + line);
}

std::optional<int> ChildProcess::WaitForEnd(std::chrono::milliseconds timeout) {
    if (status) return status;
    pollfd ended{handle, POLLIN, 0};
    if (poll(&ended, 1, static_cast<int>(timeout.count())) != 1) return std::nullopt;
    int raw = 0;
    if (waitpid(pid, &raw, 0) == pid) status = WIFSIGNALED(raw) ? 128 + WTERMSIG(raw) : WEXITSTATUS(raw);
    return status;
}

std::chrono::milliseconds ChildProcess::CpuTime() const {
    std::ifstream file("/proc/" + std::to_string(pid) + "/stat");
    std::string text;
    std::getline(file, text);
    // The second field is the program's name in brackets and may hold blanks; user and system time, in clock
    // ticks, are the twelfth and thirteenth after it.
    std::istringstream fields(text.substr(std::min(text.size(), text.rfind(')') + 1)));
    std::string skipped;
    for (int field = 0; field < 11; ++field) fields >> skipped;
    long user = 0, system = 0;
    fields >> user >> system;
    return std::chrono::milliseconds((user + system) * 1000 / sysconf(_SC_CLK_TCK));
}

} // namespace ornivane
