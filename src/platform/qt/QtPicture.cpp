#include "platform/qt/QtPicture.h"

#include <QFile>
#include <QImageReader>
#include <algorithm>

#include "platform/PictureFormats.h"

namespace ornivane {

namespace {

// More than a sheet of one square metre scanned at 400 dpi, twice over. A damaged header must not claim all
// the memory of the machine in flight.
constexpr long long MostPixels = 400'000'000;

// Qt refuses images above 128 MiB, and charts are larger. The limit is one for the whole program.
class AllocationLimitLifted {
public:
    AllocationLimitLifted() { QImageReader::setAllocationLimit(0); }
    ~AllocationLimitLifted() { QImageReader::setAllocationLimit(usual); }
    AllocationLimitLifted(const AllocationLimitLifted&) = delete;
    AllocationLimitLifted& operator=(const AllocationLimitLifted&) = delete;

private:
    int usual = QImageReader::allocationLimit();
};

QImage InKeptFormat(QImage image) {
    switch (image.format()) {
    case QImage::Format_RGB32:
    case QImage::Format_Grayscale8:
    case QImage::Format_Indexed8:
        break;
    case QImage::Format_Mono:
    case QImage::Format_MonoLSB:
        image.convertTo(QImage::Format_Indexed8);
        break;
    default:
        image.convertTo(QImage::Format_RGB32);
    }
    return image;
}

// The JPEG decoder brings an image down to an eighth while it reads, and that is where a preview's time goes;
// the others would only shrink what they have read whole.
QSize ReducedSize(const QImageReader& reader, QSize size, QSize enough) {
    if (enough.isEmpty() || reader.format() != "jpeg") return size;
    const QSize reduced = size.scaled(2 * enough, Qt::KeepAspectRatioByExpanding);
    return reduced.width() < size.width() ? reduced : size;
}

QImage Decode(const std::filesystem::path& path, QSize enough, QSize& stored) {
    QFile file(QString::fromStdString(path.string()));
    if (!file.open(QIODevice::ReadOnly)) return {};
    const AllocationLimitLifted lifted;
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    // Positions are computed from pixels as stored; a turn noted by a camera would move them all.
    reader.setAutoTransform(false);
    const auto decodes = [&reader](const PictureFormat& format) { return reader.format() == format.Decoder; };
    if (std::none_of(PictureFormats.begin(), PictureFormats.end(), decodes)) return {};
    const QSize size = reader.size();
    const QSize reduced = ReducedSize(reader, size, enough);
    if (static_cast<long long>(reduced.width()) * reduced.height() > MostPixels) return {};
    if (reduced != size) reader.setScaledSize(reduced);
    QImage image = InKeptFormat(reader.read());
    stored = reduced != size ? size : image.size();
    return image;
}

} // namespace

bool QtPicture::Load(const std::filesystem::path& file) {
    const bool whole = preview.isEmpty();
    if (others && whole)
        if (const auto found = others->Find(file); found.Levels) {
            stored = found.Stored;
            levels = found.Levels;
            return true;
        }
    QSize size;
    QImage image = Decode(file, preview, size);
    if (image.isNull()) return false;
    stored = size;
    levels = std::make_shared<PictureLevels>(std::move(image));
    if (others && whole) others->Add(file, {stored, levels});
    return true;
}

PixelRect QtPicture::InLevels(const PixelRect& source) const {
    const double x = stored.width() > 0 ? static_cast<double>(levels->Width()) / stored.width() : 1;
    const double y = stored.height() > 0 ? static_cast<double>(levels->Height()) / stored.height() : 1;
    return {source.X * x, source.Y * y, source.Width * x, source.Height * y};
}

} // namespace ornivane
