#pragma once

#include <string>
#include <string_view>

namespace ornivane {

// How far GDAL's programs say they are: "Processing x [1/2] : 0...10...20..." up to "100 - done.", for each
// of their sources. Between two numbers stand three points, each 2.5 per cent more.
class GdalProgress {
public:
    void Hear(std::string_view bytes);
    double Share() const; // 0 to 1 of all sources

private:
    void HearLine();

    std::string line; // the one that is being written
    int source = 1, sources = 1;
    double percent = 0;
};

} // namespace ornivane
