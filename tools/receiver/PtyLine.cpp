#include "receiver/PtyLine.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <system_error>
#include <termios.h>
#include <unistd.h>

namespace ornivane::receiver {

namespace {

constexpr int LongestWait = 1000; // ms

[[noreturn]] void Fail(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

short EventsOf(int descriptor, short wanted, int milliseconds) {
    pollfd entry{descriptor, wanted, 0};
    return poll(&entry, 1, milliseconds) > 0 ? entry.revents : short{0};
}

// Raw from the beginning, or the line would echo back what comes before anybody opens it. The slave is closed
// again: from then on the master reports a hang-up while nobody has it open.
void MakeRaw(const std::string& device) {
    const int slave = open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (slave < 0) Fail(device);
    termios settings{};
    tcgetattr(slave, &settings);
    cfmakeraw(&settings);
    cfsetspeed(&settings, B4800);
    tcsetattr(slave, TCSANOW, &settings);
    close(slave);
}

} // namespace

PtyLine::PtyLine(std::filesystem::path linkPath) : link(std::move(linkPath)) { PlugIn(); }

PtyLine::~PtyLine() {
    HangUp();
    std::error_code error;
    // Another receiver may have taken the name meanwhile.
    if (!link.empty() && std::filesystem::read_symlink(link, error) == device)
        std::filesystem::remove(link, error);
}

void PtyLine::PlugIn() {
    if (PluggedIn()) return;
    master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) Fail("pseudo-terminal");
    char name[128];
    if (ptsname_r(master, name, sizeof name) != 0) Fail("pseudo-terminal");
    device = name;
    MakeRaw(device);
    if (!link.empty()) Link();
}

// Made beside and renamed: at no moment is the name gone or half.
void PtyLine::Link() const {
    if (link.has_parent_path()) std::filesystem::create_directories(link.parent_path());
    if (std::filesystem::exists(std::filesystem::symlink_status(link)) &&
        !std::filesystem::is_symlink(link)) {
        errno = EEXIST;
        Fail(link.string() + " is no link");
    }
    const std::filesystem::path beside = link.string() + "." + std::to_string(getpid());
    std::filesystem::create_symlink(device, beside);
    std::filesystem::rename(beside, link);
}

void PtyLine::HangUp() {
    if (PluggedIn()) close(master);
    master = -1;
}

bool PtyLine::Heard() const { return PluggedIn() && (EventsOf(master, POLLOUT, 0) & POLLHUP) == 0; }

void PtyLine::Write(const std::string& bytes) {
    std::size_t written = 0;
    while (written < bytes.size() && Heard()) {
        const ssize_t count = write(master, bytes.data() + written, bytes.size() - written);
        if (count > 0) {
            written += static_cast<std::size_t>(count);
        } else if ((errno != EAGAIN && errno != EINTR) ||
                   (EventsOf(master, POLLOUT, LongestWait) & POLLOUT) == 0) {
            return;
        }
    }
}

void PtyLine::Drain() {
    char bytes[256];
    while (PluggedIn() && read(master, bytes, sizeof bytes) > 0) {
    }
}

} // namespace ornivane::receiver
