#include "platform/qt/QtPortList.h"

#include <QSerialPortInfo>

#include <cerrno>
#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace ornivane {

namespace {

namespace fs = std::filesystem;

// The system makes the names ttyS0 to ttyS3 whether or not there is a chip behind them; one without has type
// 0.
bool IsRealUart(const fs::path& entry) {
    std::ifstream file(entry / "type");
    int type = 0;
    return !(file >> type) || type != 0;
}

bool OpensAsTerminal(const fs::path& device) {
    const int descriptor = open(device.c_str(), O_RDONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) return errno == EACCES || errno == EPERM || errno == EBUSY;
    const bool terminal = isatty(descriptor) == 1;
    close(descriptor);
    return terminal;
}

bool IsTerminal(const fs::path& device) {
    struct stat status {};
    if (stat(device.c_str(), &status) != 0 || !S_ISCHR(status.st_mode)) return false;
    std::error_code error;
    const fs::path entry = fs::path("/sys/class/tty") / device.filename();
    if (device.parent_path() == "/dev" && fs::exists(entry, error)) return IsRealUart(entry);
    return OpensAsTerminal(device);
}

} // namespace

bool QtPortList::Exists(int number) const {
    const auto device = devices.DeviceOf(number);
    return device && IsTerminal(*device);
}

std::string QtPortList::Description(int number) const {
    const auto device = devices.DeviceOf(number);
    if (!device || !IsTerminal(*device)) return {};
    const QSerialPortInfo info(QString::fromStdString(device->filename().string()));
    const QString description = info.description();
    return device->string() + (description.isEmpty() ? "" : " - " + description.toStdString());
}

} // namespace ornivane
