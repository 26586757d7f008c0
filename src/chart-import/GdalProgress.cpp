#include "chart-import/GdalProgress.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

namespace ornivane {

namespace {

constexpr double PercentPerPoint = 2.5;
constexpr std::size_t LongestLine = 4096; // of what is no progress

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

} // namespace

void GdalProgress::Hear(std::string_view bytes) {
    for (const char byte : bytes)
        if (byte == '\n')
            line.clear();
        else if (line.size() < LongestLine)
            line += byte;
    HearLine();
}

// The name of the source may hold anything; what counts comes behind it.
void GdalProgress::HearLine() {
    std::string_view rest = line;
    int at = 0, of = 0;
    const std::size_t bracket = rest.rfind(" [");
    if (bracket != std::string_view::npos &&
        std::sscanf(line.c_str() + bracket, " [%d/%d] :", &at, &of) == 2 && at >= 1 && at <= of) {
        source = at;
        sources = of;
        percent = 0;
        rest.remove_prefix(std::min(rest.size(), rest.find(':', bracket) + 1));
    }
    while (!rest.empty() && rest.front() == ' ') rest.remove_prefix(1);
    double found = 0;
    for (std::size_t i = 0; i < rest.size() && (IsDigit(rest[i]) || rest[i] == '.');)
        if (rest[i] == '.') {
            found += PercentPerPoint;
            ++i;
        } else {
            double number = 0;
            for (; i < rest.size() && IsDigit(rest[i]); ++i)
                number = std::min(100.0, number * 10 + (rest[i] - '0'));
            if (i < rest.size()) found = number; // else its last digit may be to come
        }
    if (found > percent) percent = std::min(100.0, found);
}

double GdalProgress::Share() const { return (source - 1 + percent / 100) / sources; }

} // namespace ornivane
