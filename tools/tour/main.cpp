// Flies the demo with the real program: off screen with pictures and checks, or in a window for the user.

#include <cstring>
#include <iostream>

#include "tour/Tour.h"

namespace {

using namespace ornivane;

constexpr const char* Usage =
    "tour [--show] FOLDER FLIGHT\n"
    "FOLDER is the portable folder, FLIGHT the points to fly. Off screen it works on a\n"
    "copy and leaves pictures in FOLDER/pictures. With --show it opens the window on\n"
    "the display, connects, and waits until the user closes it.\n";

int Show(const std::filesystem::path& folder, const std::filesystem::path& flight) {
    const int port = PortOf(folder);
    std::unique_ptr<RunningReceiver> receiver;
    // A port that the user has linked to a receiver of his own stays his.
    if (std::filesystem::exists(folder / "Ports" / ("COM" + std::to_string(port))))
        std::cout << "COM " << port << " is linked already; the demo does not fly.\n";
    else
        receiver = std::make_unique<RunningReceiver>(folder, port, flight,
                                                     std::vector<std::string>{"--loop", "--once-open"});
    RunningProgram::Options options;
    options.OnScreen = true;
    RunningProgram program(folder, options);
    if (receiver && program.Probe().WaitFor("visible Main", "yes", std::chrono::seconds(30)))
        ChooseDemo(program);
    std::optional<int> status;
    while (!status) status = program.Process().WaitForEnd(std::chrono::hours(1));
    return *status;
}

} // namespace

int main(int count, char** values) {
    const bool show = count > 1 && std::strcmp(values[1], "--show") == 0;
    if (count != (show ? 4 : 3)) {
        std::cerr << Usage;
        return 2;
    }
    try {
        const std::filesystem::path folder = values[count - 2], flight = values[count - 1];
        return show ? Show(folder, flight) : Tour({folder, flight}).Run() ? 0 : 1;
    } catch (const std::exception& error) {
        std::cout << "FAILED: " << error.what() << '\n';
        return 1;
    }
}
