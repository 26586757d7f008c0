#include "receiver/Options.h"

#include <cstdio>
#include <functional>
#include <map>
#include <stdexcept>

namespace ornivane::receiver {

const char* const HelpText =
    R"(ornivane-receiver: a simulated GPS receiver behind a pseudo-terminal.

  ornivane-receiver --fly POINTS  [--link FOLDER/Ports/COM7] [options]
  ornivane-receiver --play FILE   [--link FOLDER/Ports/COM7] [options]

It prints the device, then sends GGA, GSA, GSV, RMC and GLL each second, or what was recorded.

What it sends
  --fly FILE          fly from point to point: one a line, NAME LATITUDE LONGITUDE in decimal degrees, # comments
  --speed KT          100        --altitude FT  3500       --ground FT   300, at both ends
  --climb FT/MIN      700        --descent FT/MIN  500     --turn DEG/S  3, the standard rate
  --start UTC         date and time of the first second, 2024-05-01T09:30:00; default: now
  --play FILE         a recorded receiver, at the pace of the times in it
  --loop              over again at the end (a flight goes on from the last point to the first)
  --for SECONDS       end after so many seconds of the flight or recording
  --stay              at the end keep the line open, silent, until told to quit

How it sends
  --link PATH         make this link to the device, and remove it at the end
  --write FILE        write the sentences to a file, at once, instead of a line
  --pace N            N times as fast as real
  --once-open         wait until somebody opens the line before starting
  --chunk MODE        burst (default), sentence, lines (no chunk begins with "$"), byte, random:N (1 to N bytes)
  --gap MS            longest pause between the chunks of a burst; default 10
  --baud RATE         send no faster than this line speed
  --seed N            for everything random; default 1

Faults: at run time as lines on standard input or through --fifo PATH, or planned with --at SECONDS "COMMAND"
  hangup S            pull the plug for S seconds
  silence S           send nothing
  noise S             send random bytes
  nofix S             no fix
  cut                 in each burst one sentence loses its end
  chunk MODE          as above
  resume              end all faults
  quit                end
Fault times are seconds of the clock on the wall, with --write seconds of the flight or recording.
)";

namespace {

double Number(const std::string& text) {
    std::size_t used = 0;
    const double value = std::stod(text, &used);
    if (used != text.size() || !(value >= 0)) throw std::invalid_argument(text);
    return value;
}

double AboveZero(const std::string& text) {
    const double value = Number(text);
    if (value <= 0) throw std::invalid_argument(text);
    return value;
}

std::chrono::sys_seconds UtcTime(const std::string& text) {
    using namespace std::chrono;
    int y = 0, mo = 0, d = 0, h = 0, mi = 0, s = 0;
    if (std::sscanf(text.c_str(), "%d-%d-%d%*[T ]%d:%d:%d", &y, &mo, &d, &h, &mi, &s) != 6)
        throw std::invalid_argument(text);
    const year_month_day date{year(y), month(static_cast<unsigned>(mo)), day(static_cast<unsigned>(d))};
    if (!date.ok() || h < 0 || h > 23 || mi < 0 || mi > 59 || s < 0 || s > 59)
        throw std::invalid_argument(text);
    return sys_days(date) + hours(h) + minutes(mi) + seconds(s);
}

using Setter = std::function<void(const std::string&)>;

std::map<std::string, Setter> ValueOptions(Options& o) {
    return {{"--play", [&](const auto& v) { o.Play = v; }},
            {"--fly", [&](const auto& v) { o.Fly = v; }},
            {"--write", [&](const auto& v) { o.Write = v; }},
            {"--link", [&](const auto& v) { o.Link = v; }},
            {"--fifo", [&](const auto& v) { o.Fifo = v; }},
            {"--chunk", [&](const auto& v) { o.Chunk = v; }},
            {"--pace", [&](const auto& v) { o.Pace = AboveZero(v); }},
            {"--baud", [&](const auto& v) { o.Baud = static_cast<int>(AboveZero(v)); }},
            {"--gap", [&](const auto& v) { o.Gap = Number(v); }},
            {"--for", [&](const auto& v) { o.For = Number(v); }},
            {"--seed", [&](const auto& v) { o.Seed = static_cast<unsigned>(Number(v)); }},
            {"--start", [&](const auto& v) { o.Start = UtcTime(v); }},
            {"--speed", [&](const auto& v) { o.Flight.SpeedKnots = AboveZero(v); }},
            {"--altitude", [&](const auto& v) { o.Flight.AltitudeFeet = Number(v); }},
            {"--ground", [&](const auto& v) { o.Flight.GroundFeet = Number(v); }},
            {"--climb", [&](const auto& v) { o.Flight.ClimbFeetPerMinute = AboveZero(v); }},
            {"--descent", [&](const auto& v) { o.Flight.DescentFeetPerMinute = AboveZero(v); }},
            {"--turn", [&](const auto& v) { o.Flight.TurnDegreesPerSecond = AboveZero(v); }}};
}

} // namespace

Options ReadOptions(const std::vector<std::string>& arguments) {
    Options options;
    const auto setters = ValueOptions(options);
    const std::map<std::string, bool*> flags{{"--loop", &options.Loop},
                                             {"--stay", &options.Stay},
                                             {"--once-open", &options.OnceOpen},
                                             {"--help", &options.Help}};
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& name = arguments[i];
        if (const auto flag = flags.find(name); flag != flags.end()) {
            *flag->second = true;
            continue;
        }
        const auto value = [&] {
            if (++i >= arguments.size()) throw std::runtime_error(name + " needs a value");
            return arguments[i];
        };
        try {
            if (name == "--at") {
                const double seconds = Number(value());
                options.At.emplace_back(seconds, value());
            } else if (const auto setter = setters.find(name); setter != setters.end()) {
                setter->second(value());
            } else {
                throw std::runtime_error(name + ": no such option; --help tells all");
            }
        } catch (const std::logic_error&) {
            throw std::runtime_error(name + ": not a value for it: " + arguments[i]);
        }
    }
    options.Flight.Loop = options.Loop;
    if (options.Flight.AltitudeFeet <= options.Flight.GroundFeet)
        throw std::runtime_error("--altitude must be above --ground");
    if (!options.Help && options.Play.empty() == options.Fly.empty())
        throw std::runtime_error("one of --fly and --play; --help tells all");
    return options;
}

} // namespace ornivane::receiver
