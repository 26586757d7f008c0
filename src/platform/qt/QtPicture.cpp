#include "platform/qt/QtPicture.h"

namespace ornivane {

namespace {

using Phase = TiledChart::Phase;

// A file that is missing or no image at all says nothing; the catalogue shows it. What the user's own image
// programs show, and this one cannot, needs its reason.
bool HasToBeTold(Fault fault) { return fault == Fault::TooLarge || fault == Fault::Coefficients; }

} // namespace

QtPicture::QtPicture(SharedCharts& allCharts) : charts(allCharts) {}

QtPicture::~QtPicture() { LetGo(); }

void QtPicture::LetGo() {
    viewer.reset(); // posts nothing any more
    charts.LetGo(std::move(chart));
}

bool QtPicture::Load(const std::filesystem::path& image) {
    auto opened = charts.Tiles().Open(image);
    refused.reset();
    if (!opened) {
        if (!HasToBeTold(opened.Why().Kind)) return false;
        refused = opened.Why();
        refusedFile = image;
        news.Post();
        return false;
    }
    LetGo();
    file = image;
    chart = std::move(*opened);
    viewer = charts.Tiles().View(chart, [this] { news.Post(); });
    if (chart->Now().At != Phase::Ready) news.Post();
    return true;
}

bool QtPicture::MustBeReadAgain() const {
    if (!chart) return false;
    const auto now = chart->Now();
    return now.At == Phase::Failed && now.Why && now.Why->Kind == Fault::CannotRead;
}

TileView QtPicture::View(const ViewRequest& request) const {
    return viewer ? viewer->View(request) : TileView{};
}

std::optional<int> QtPicture::PassPercent() const {
    if (!chart) return std::nullopt;
    const auto now = chart->Now();
    return now.At == Phase::Building ? std::optional(now.Percent) : std::nullopt;
}

bool QtPicture::IsFinished() const { return !chart || chart->Now().At != Phase::Building; }

std::optional<QtPicture::Trouble> QtPicture::IfNew(const std::filesystem::path& of, const Failure& why) {
    if (!charts.IsNew(of, why.Kind)) return std::nullopt;
    return Trouble{of.filename().string(), why};
}

std::optional<QtPicture::Trouble> QtPicture::NewTrouble() {
    if (const Outcome why = std::exchange(refused, {})) return IfNew(refusedFile, *why);
    if (!chart) return std::nullopt;
    const auto now = chart->Now();
    const bool isOver = now.At == Phase::Failed || now.At == Phase::WithoutCache;
    if (!isOver || !now.Why || now.Why->Kind == Fault::Cancelled) return std::nullopt;
    return IfNew(file, *now.Why);
}

} // namespace ornivane
