#pragma once

#include <filesystem>
#include <optional>

namespace ornivane {

// Which device stands behind a port number. Ports/COM<n> in the program's folder, if it exists, is a link to
// the device, so that a simulator or a Bluetooth receiver can be given any number. Otherwise 1 to 4 are
// /dev/ttyS0 to 3, and so on in fours: ttyUSB, ttyACM, rfcomm, ttyAMA up to 20.
class PortDevices {
public:
    explicit PortDevices(std::filesystem::path programFolder) : folder(std::move(programFolder)) {}

    // The device's own path, links followed. Empty when there is none: no such number, a link to nothing, or
    // a device that is not plugged in.
    std::optional<std::filesystem::path> DeviceOf(int number) const;

private:
    std::filesystem::path folder;
};

} // namespace ornivane
