#include "platform/qt/QtPicture.h"

#include <QFile>
#include <QImageReader>

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

QImage Decode(const std::filesystem::path& path) {
    QFile file(QString::fromStdString(path.string()));
    if (!file.open(QIODevice::ReadOnly)) return {};
    const AllocationLimitLifted lifted;
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    // Positions are computed from pixels as stored; a turn noted by a camera would move them all.
    reader.setAutoTransform(false);
    if (reader.format() != "jpeg" && reader.format() != "bmp") return {};
    const QSize size = reader.size();
    if (static_cast<long long>(size.width()) * size.height() > MostPixels) return {};
    return InKeptFormat(reader.read());
}

} // namespace

bool QtPicture::Load(const std::filesystem::path& file) {
    QImage image = Decode(file);
    if (image.isNull()) return false;
    levels = std::make_unique<PictureLevels>(std::move(image));
    return true;
}

} // namespace ornivane
