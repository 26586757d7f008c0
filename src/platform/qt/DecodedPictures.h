#pragma once

#include <QSize>
#include <filesystem>
#include <memory>
#include <vector>

#include "platform/qt/PictureLevels.h"

namespace ornivane {

// The images that are in memory at present, so that two screens with the same chart decode and hold it once.
// It keeps none alive by itself.
class DecodedPictures {
public:
    struct Decoded {
        QSize Stored; // pixels in the file
        std::shared_ptr<PictureLevels> Levels;
    };

    // Empty levels when nobody holds that file as it is now.
    Decoded Find(const std::filesystem::path& file) const;
    void Add(const std::filesystem::path& file, const Decoded& decoded);

private:
    // A chart that was scanned anew under its old name is another one.
    struct State {
        std::filesystem::path File;
        std::filesystem::file_time_type Written;
        std::uintmax_t Bytes = 0;
        bool operator==(const State&) const = default;
    };
    static State Present(const std::filesystem::path& file);

    struct Entry {
        State Of;
        QSize Stored;
        std::weak_ptr<PictureLevels> Levels;
    };
    std::vector<Entry> entries;
};

} // namespace ornivane
