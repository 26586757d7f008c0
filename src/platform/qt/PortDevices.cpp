#include "platform/qt/PortDevices.h"

#include <array>
#include <string>

namespace ornivane {

constexpr std::array<const char*, 5> Families{"ttyS", "ttyUSB", "ttyACM", "rfcomm", "ttyAMA"};
constexpr int PerFamily = 4;

std::optional<std::filesystem::path> PortDevices::DeviceOf(int number) const {
    namespace fs = std::filesystem;
    std::error_code error;
    fs::path path = folder / "Ports" / ("COM" + std::to_string(number));
    // A link to nothing still is the port: its device is away, and no other one takes its number.
    if (!fs::exists(fs::symlink_status(path, error))) {
        if (number < 1 || number > static_cast<int>(Families.size()) * PerFamily) return std::nullopt;
        const int index = number - 1;
        path = fs::path("/dev") / (std::string(Families[static_cast<std::size_t>(index / PerFamily)]) +
                                   std::to_string(index % PerFamily));
    }
    const fs::path device = fs::canonical(path, error);
    if (error) return std::nullopt;
    return device;
}

} // namespace ornivane
