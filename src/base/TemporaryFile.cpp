#include "base/TemporaryFile.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

#include "base/AtomicFile.h"

namespace ornivane {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Unique = ".XXXXXX";
constexpr std::size_t LongestName = 255; // bytes of a file name, on every file system

// The name with room for what makes it unique, cut before a letter.
std::string Shortened(std::string name) {
    if (name.size() + Unique.size() <= LongestName) return name;
    std::size_t end = LongestName - Unique.size();
    while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0) == 0x80) --end;
    return name.substr(0, end);
}

} // namespace

TemporaryFile::TemporaryFile(const fs::path& of) : target(of) {
    const fs::path name = Shortened(of.filename().string()) + std::string(Unique);
    std::string pattern = (of.parent_path() / name).string();
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
