#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "base/AtomicFile.h"

namespace ornivane {

// An empty folder that is gone with the test.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "ornivane-test-XXXXXX").string();
        if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
        path = name;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    const std::filesystem::path& Path() const { return path; }

    std::filesystem::path Write(const std::string& name, const std::string& bytes) const {
        WriteFileAtomically(path / name, bytes);
        return path / name;
    }
    // "none" when there is no such file.
    std::string Bytes(const std::string& name) const { return ReadWholeFile(path / name).value_or("none"); }
    int Files() const {
        return static_cast<int>(std::distance(std::filesystem::directory_iterator(path), {}));
    }

private:
    std::filesystem::path path;
};

} // namespace ornivane
