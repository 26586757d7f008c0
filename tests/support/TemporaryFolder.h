#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

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

private:
    std::filesystem::path path;
};

} // namespace ornivane
