#include "base/TemporaryFile.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

#include "base/AtomicFile.h"
#include "base/Strings.h"

namespace ornivane {

namespace fs = std::filesystem;

constexpr std::string_view Unique = ".XXXXXX";
constexpr std::size_t LongestName = 255; // bytes of a file name, on every file system

TemporaryFile::TemporaryFile(const fs::path& of) : target(of) {
    const std::string name = of.filename().string();
    std::string pattern = of.parent_path() / FirstBytes(name, LongestName - Unique.size());
    pattern += Unique;
    const int descriptor = ::mkstemp(pattern.data());
    if (descriptor < 0) ThrowFileError(errno, target);
    ::fchmod(descriptor, 0644); // a file system without modes may refuse; the bytes are what counts
    ::close(descriptor);
    temporary = pattern;
}

TemporaryFile::~TemporaryFile() {
    if (!temporary.empty()) ::unlink(temporary.c_str());
}

void TemporaryFile::Keep() {
    ReplaceFile(temporary, target);
    temporary.clear();
}

} // namespace ornivane
