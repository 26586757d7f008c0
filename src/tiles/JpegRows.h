#pragma once

#include <vector>

#include "tiles/ContentHash.h"
#include "tiles/ImageRows.h"
#include "tiles/JpegErrors.h"

namespace ornivane {

// A JPEG, decoded row by row. A file that ends early has the rows that were there, and grey or what the
// decoder makes of it behind them; a device that fails is a failure.
class JpegRows : public ImageRows {
public:
    static Result<std::unique_ptr<ImageRows>> Open(const ReadOnlyFile& file, const ImageReading& reading);
    ~JpegRows() override;

    ImageExtent Stored() const override;
    int Level() const override { return level; }
    bool IsGrey() const override { return info.num_components == 1; }
    Outcome Next(std::uint32_t* row) override;
    std::optional<std::uint64_t> WholeHash(const std::stop_token& stopped) override;

private:
    // The decoder's callbacks are given the base, so it must be first.
    struct Source : jpeg_source_mgr {
        JpegRows* Owner = nullptr;
    };
    struct Progress : jpeg_progress_mgr {
        JpegRows* Owner = nullptr;
    };
    enum class Pixels { Bgra, Rgb, Cmyk };

    JpegRows(const ReadOnlyFile& from, const ImageReading& how);
    Outcome ReadHeader();
    Outcome ChooseOutput();
    Outcome CheckMemory() const;
    Failure WhyLeft(const char* fallback);
    void Fill();
    void Skip(long count);
    void Watch();
    void Convert(std::uint32_t* row) const;

    const ReadOnlyFile& file;
    std::int64_t mostCoefficientBytes;
    std::stop_token stop;
    int level;
    Pixels pixels = Pixels::Bgra;
    bool started = false, readFailed = false, atEnd = false, tooManyScans = false;
    std::uint64_t offset = 0;
    std::vector<JOCTET> buffer;
    std::vector<JSAMPLE> line; // of what the decoder cannot write as it is wanted
    ContentHash hash;
    JpegErrors errors;
    jpeg_decompress_struct info{};
    Source source{};
    Progress progress{};
};

} // namespace ornivane
