#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/PictureSurface.h"
#include "platform/qt/SharedCharts.h"
#include "platform/qt/TileNews.h"

namespace ornivane {

// A chart image, of any size: its pixels come from tiles. It loads at once; what can be painted of a chart
// that was never shown before grows while its tiles are made.
class QtPicture : public Picture {
public:
    explicit QtPicture(SharedCharts& allCharts);
    ~QtPicture() override;
    QtPicture(const QtPicture&) = delete;
    QtPicture& operator=(const QtPicture&) = delete;

    bool Load(const std::filesystem::path& image) override;
    int ScaleWidth() const override { return Extent().Width; }
    int ScaleHeight() const override { return Extent().Height; }
    bool MustBeReadAgain() const override;

    ImageExtent Extent() const { return chart ? chart->Extent() : ImageExtent{}; }
    // What can be painted of it at this moment. What is missing is ordered, which changes nothing that is
    // seen.
    TileView View(const ViewRequest& request) const;
    // Called when there is more to paint, or something else to tell of the chart.
    void OnBetter(std::function<void()> callback) { better = std::move(callback); }
    // Of the pass over the image; none while there is no pass.
    std::optional<int> PassPercent() const;
    // Nothing more will come of itself.
    bool IsFinished() const;

    // What is wrong with which file, and was told of it by no screen yet.
    struct Trouble {
        std::string FileName;
        Failure Why;
    };
    std::optional<Trouble> NewTrouble();

private:
    void LetGo();
    std::optional<Trouble> IfNew(const std::filesystem::path& of, const Failure& why);

    SharedCharts& charts;
    std::function<void()> better;
    TileNews news{[this] {
        if (better) better();
    }};
    std::filesystem::path file, refusedFile;
    Outcome refused; // why the last Load failed, when that has to be told
    std::shared_ptr<TiledChart> chart;
    std::unique_ptr<ChartViewer> viewer;
};

} // namespace ornivane
