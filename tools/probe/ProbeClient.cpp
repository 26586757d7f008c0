#include "probe/ProbeClient.h"

#include <cstring>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace ornivane {

namespace {

constexpr std::chrono::milliseconds Pause{20};
constexpr int AnswerMilliseconds = 30000;

int Connect(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        throw std::runtime_error("the socket's path is too long: " + path);
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connect(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0) return descriptor;
    close(descriptor);
    return -1;
}

} // namespace

bool WaitUntil(const std::function<bool()>& isSo, std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!isSo()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(Pause);
    }
    return true;
}

ProbeClient::ProbeClient(const std::filesystem::path& socket, std::chrono::milliseconds patience) {
    if (!WaitUntil([&] { return (descriptor = Connect(socket.string())) >= 0; }, patience))
        throw std::runtime_error("the program does not answer at " + socket.string());
}

ProbeClient::~ProbeClient() { close(descriptor); }

std::string ProbeClient::Ask(const std::string& line) {
    const std::string request = line + "\n";
    if (send(descriptor, request.data(), request.size(), MSG_NOSIGNAL) !=
        static_cast<ssize_t>(request.size()))
        throw std::runtime_error("the program is gone");
    std::size_t end = 0;
    while ((end = received.find('\n')) == std::string::npos) {
        pollfd waiting{descriptor, POLLIN, 0};
        char bytes[4096];
        const ssize_t count =
            poll(&waiting, 1, AnswerMilliseconds) == 1 ? read(descriptor, bytes, sizeof bytes) : 0;
        if (count <= 0) throw std::runtime_error("no answer to: " + line);
        received.append(bytes, static_cast<std::size_t>(count));
    }
    std::string answer = received.substr(0, end);
    received.erase(0, end + 1);
    return answer;
}

bool ProbeClient::WaitFor(const std::string& line, const std::string& answer,
                          std::chrono::milliseconds patience) {
    return WaitUntil([&] { return Ask(line) == answer; }, patience);
}

} // namespace ornivane
