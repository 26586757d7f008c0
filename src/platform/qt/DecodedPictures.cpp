#include "platform/qt/DecodedPictures.h"

namespace ornivane {

DecodedPictures::State DecodedPictures::Present(const std::filesystem::path& file) {
    std::error_code error;
    State state{file, std::filesystem::last_write_time(file, error), 0};
    state.Bytes = std::filesystem::file_size(file, error);
    return state;
}

DecodedPictures::Decoded DecodedPictures::Find(const std::filesystem::path& file) const {
    const State state = Present(file);
    for (const Entry& entry : entries)
        if (entry.Of == state)
            if (auto levels = entry.Levels.lock()) return {entry.Stored, levels};
    return {};
}

void DecodedPictures::Add(const std::filesystem::path& file, const Decoded& decoded) {
    std::erase_if(entries, [](const Entry& entry) { return entry.Levels.expired(); });
    entries.push_back({Present(file), decoded.Stored, decoded.Levels});
}

} // namespace ornivane
