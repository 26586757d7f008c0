#include "launch/RunningProgram.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace ornivane {

namespace fs = std::filesystem;

namespace {

// Without a description the screen off screen is 800 by 800.
void DescribeScreen(const fs::path& file, int width, int height) {
    std::ofstream(file) << R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": )" << width
                        << R"(, "height": )" << height
                        << R"(, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";
}

} // namespace

fs::path MakeTemporaryFolder(const std::string& name) {
    std::string path = fs::temp_directory_path() / (name + "-XXXXXX");
    if (!mkdtemp(path.data())) throw std::runtime_error("no temporary folder");
    return path;
}

RunningProgram::RunningProgram(const fs::path& folder, const Options& options)
    : scratch(MakeTemporaryFolder("ornivane")) {
    ChildProcess::Options child;
    child.Output = options.Output;
    child.Environment = {{"QT_PLUGIN_PATH", PROBE_PLUGINS},
                         {"QT_QPA_GENERIC_PLUGINS", "ornivaneprobe"},
                         {"ORNIVANE_PROBE", (scratch / "probe").string()},
                         // What a test or the demo makes is not for the user.
                         {"XDG_CACHE_HOME", (scratch / "cache").string()}};
    if (!options.OnScreen) {
        DescribeScreen(scratch / "screen.json", options.Width, options.Height);
        child.Environment["QT_QPA_PLATFORM"] = "offscreen:configfile=" + (scratch / "screen.json").string();
        child.Environment["XDG_RUNTIME_DIR"] = scratch.string();
        child.Environment["QT_SCALE_FACTOR"] = std::to_string(options.Scale);
    }
    if (!options.Locale.empty()) child.Environment["LC_ALL"] = options.Locale;
    process = std::make_unique<ChildProcess>(folder / "ornivane-gps", child);
}

RunningProgram::~RunningProgram() {
    probe.reset();
    process.reset();
    std::error_code ignored;
    fs::remove_all(scratch, ignored);
}

ProbeClient& RunningProgram::Probe() {
    if (!probe) probe = std::make_unique<ProbeClient>(scratch / "probe");
    return *probe;
}

void RunningProgram::Do(const std::string& line) {
    const std::string answer = Ask(line);
    if (answer != "ok") throw std::runtime_error(line + ": " + answer);
}

RunningReceiver::RunningReceiver(const fs::path& folder, int port, const fs::path& flight,
                                 std::vector<std::string> arguments)
    : link(folder / "Ports" / ("COM" + std::to_string(port))) {
    fs::create_directories(link.parent_path());
    ChildProcess::Options child;
    child.Arguments = {"--fly", flight.string(), "--link", link.string()};
    child.Arguments.insert(child.Arguments.end(), arguments.begin(), arguments.end());
    child.Output = "/dev/null";
    process = std::make_unique<ChildProcess>(RECEIVER_PROGRAM, child);
    if (!WaitUntil([this] { return fs::exists(link); }))
        throw std::runtime_error("the receiver does not start");
}

RunningReceiver::~RunningReceiver() = default;

} // namespace ornivane
