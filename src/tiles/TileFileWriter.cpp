#include "tiles/TileFileWriter.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <xxhash.h>

namespace ornivane {

namespace {

constexpr std::size_t WriteBytes = 1 << 20;

Failure WhyNotWritten() {
    const bool full = errno == ENOSPC || errno == EDQUOT || errno == EFBIG;
    return {full ? Fault::DiskFull : Fault::CannotWrite, std::strerror(errno)};
}

} // namespace

Result<std::unique_ptr<TileFileWriter>> TileFileWriter::Create(const std::filesystem::path& part,
                                                               const TileFileHeader& header) {
    const int descriptor = ::open(part.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (descriptor < 0) return WhyNotWritten();
    std::unique_ptr<TileFileWriter> writer(new TileFileWriter(descriptor, part));
    // Before the lock another program may have taken the file for a left one.
    struct stat state {};
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0 || ::fstat(descriptor, &state) != 0 ||
        state.st_nlink == 0)
        return Failure{Fault::CannotWrite, "part file"};
    auto reader = ReadOnlyFile::Open(part);
    if (!reader) return reader.Why();
    writer->store = std::make_shared<TileStore>(std::move(*reader), header);
    return writer;
}

TileFileWriter::~TileFileWriter() {
    if (!finished) ::unlink(path.c_str());
    ::close(file);
}

Outcome TileFileWriter::Write(const std::vector<unsigned char>& bytes, std::uint64_t at) {
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t now =
            ::pwrite(file, bytes.data() + done, bytes.size() - done, static_cast<off_t>(at + done));
        if (now < 0 && errno != EINTR) return WhyNotWritten();
        if (now > 0) done += static_cast<std::size_t>(now);
    }
    return std::nullopt;
}

Outcome TileFileWriter::Append(const TileKey& key, PackedTile packed) {
    waiting.insert(waiting.end(), packed.begin(), packed.end());
    waitingTiles.emplace_back(key, packed.size());
    return waiting.size() < WriteBytes ? std::nullopt : Flush();
}

Outcome TileFileWriter::Flush() {
    if (Outcome failure = Write(waiting, end)) return failure;
    // The disk begins now, or all would be left to the fsync at the end.
    ::sync_file_range(file, static_cast<off_t>(end), static_cast<off_t>(waiting.size()),
                      SYNC_FILE_RANGE_WRITE);
    const unsigned char* at = waiting.data();
    for (const auto& [key, length] : waitingTiles) {
        store->Add(key, end, {at, length});
        at += length;
        end += length;
    }
    waiting.clear();
    waitingTiles.clear();
    return std::nullopt;
}

Outcome TileFileWriter::Finish(std::uint64_t wholeHash, const std::filesystem::path& name) {
    if (Outcome failure = Flush()) return failure;
    const std::vector<unsigned char> index = store->Index();
    TileFileHeader header = store->Header();
    header.WholeHash = wholeHash;
    header.IndexAt = end;
    header.IndexHash = XXH3_64bits(index.data(), index.size());
    if (Outcome failure = Write(index, end)) return failure;
    if (Outcome failure = Write(TileStore::Bytes(header), 0)) return failure;
    if (::fsync(file) != 0 && errno != EINVAL) return WhyNotWritten();
    if (::rename(path.c_str(), name.c_str()) != 0) return WhyNotWritten();
    finished = true;
    // A cache whose name did not reach the disk is made again; nothing else is lost.
    return std::nullopt;
}

} // namespace ornivane
