#include "chart-import/PreparedSource.h"

#include <algorithm>
#include <array>
#include <unistd.h>

#include "base/AtomicFile.h"
#include "base/Paths.h"
#include "base/RuntimeError.h"
#include "base/Strings.h"
#include "chart-import/SourcePicture.h"

namespace ornivane {

namespace {

namespace fs = std::filesystem;

using Arguments = std::vector<std::string>;

// Anything else would be guessed at, down to files that name others to be fetched. The last one reads what
// GeoTIFF and COG are.
constexpr std::array Formats = {"PDF", "MBTiles", "BSB",  "GPKG", "JP2OpenJPEG",
                                "MAP", "PNG",     "JPEG", "BMP",  "GTiff"};

void Append(Arguments& to, const Arguments& more) { to.insert(to.end(), more.begin(), more.end()); }

Arguments OnlyFormats() {
    Arguments arguments;
    for (const char* format : Formats) Append(arguments, {"-if", format});
    return arguments;
}

// GDAL takes texts for projections that are names of files or addresses as well.
bool IsProjection(std::string_view text) {
    if (text.starts_with("EPSG:"))
        return text.size() > 5 && text.find_first_not_of("0123456789", 5) == std::string_view::npos;
    return text.starts_with("+proj=") || text.starts_with("PROJCS[") || text.starts_with("GEOGCS[") ||
           text.starts_with("PROJCRS[") || text.starts_with("GEOGCRS[");
}

bool CanBeRead(const fs::path& file) { return FileExists(file) && ::access(file.c_str(), R_OK) == 0; }

// What a file with several charts calls them: "SUBDATASET_2_NAME=PDF:2:/home/..." in GDAL's own words.
struct PartNames {
    Arguments Names, Descriptions;
};

PartNames PartsIn(const std::string& listing) {
    PartNames parts;
    for (const std::string& line : Split(listing, "\n")) {
        const std::string_view text = Trim(line);
        const std::size_t equals = text.find('=');
        if (!text.starts_with("SUBDATASET_") || equals == std::string_view::npos) continue;
        const std::string_view key = text.substr(0, equals);
        (key.ends_with("_NAME") ? parts.Names : parts.Descriptions).emplace_back(text.substr(equals + 1));
    }
    return parts;
}

class Preparation {
public:
    Preparation(const GdalPrograms& programs, const ImportOrder& of, fs::path file, const fs::path& scratch,
                std::size_t number)
        : gdal(programs), order(of), source(std::move(file)),
          copy(scratch / ("source-" + std::to_string(number) + ".vrt")),
          expanded(scratch / ("expanded-" + std::to_string(number) + ".vrt")),
          coloured(scratch / ("colours-" + std::to_string(number) + ".vrt")) {}

    Imported<PreparedSource> Run() const {
        const auto opened = NameToOpen();
        if (!opened) return opened.Why();
        Arguments arguments = OnlyFormats();
        Append(arguments, {"-of", "VRT", *opened, copy.string()});
        const auto copied = Gdal("gdal_translate", arguments, ImportFault::NotAChart);
        if (!copied)
            return copied.Why().Detail.find("subdataset") == std::string::npos ? copied.Why()
                                                                               : SeveralParts();
        auto vrt = ReadWholeFile(copy);
        if (!vrt) return ImportFailure{ImportFault::NotAChart, {}};
        const std::string before = *vrt;
        const auto picture = ReadSourcePicture(*vrt);
        if (!picture) return picture.Why();
        if (*vrt != before)
            if (ErrorOf([&] { WriteFileAtomically(copy, *vrt); }))
                return ImportFailure{ImportFault::CannotWrite, {}};
        if (picture->Kind != SourcePicture::Channels::PaletteWithAlpha) return Colour(*picture, copy);
        Arguments expanding{"-of", "VRT"};
        Append(expanding, picture->Translation());
        Append(expanding, {copy.string(), expanded.string()});
        if (const auto done = Gdal("gdal_translate", expanding, ImportFault::NotAChart); !done)
            return done.Why();
        return Colour(picture->Expanded(), expanded);
    }

private:
    Imported<std::string> Gdal(const char* program, Arguments arguments, ImportFault otherwise,
                               std::string input = {}) const {
        return gdal.Run({program, std::move(arguments), std::move(input), order.Limits}, otherwise);
    }
    Imported<PartNames> Parts() const {
        Arguments arguments = OnlyFormats();
        Append(arguments, {"-norat", "-noct", "-nogcp", source.string()});
        const auto listing = Gdal("gdalinfo", arguments, ImportFault::NotAChart);
        if (!listing) return listing.Why();
        return PartsIn(*listing);
    }
    Imported<std::string> NameToOpen() const {
        if (order.Part == 0) return source.string();
        const auto parts = Parts();
        if (!parts) return parts.Why();
        if (order.Part == 1 && parts->Names.empty()) return source.string();
        if (static_cast<std::size_t>(order.Part) > parts->Names.size())
            return ImportFailure{ImportFault::NoSuchPart, std::to_string(order.Part)};
        return parts->Names[static_cast<std::size_t>(order.Part) - 1];
    }
    ImportFailure SeveralParts() const {
        const auto parts = Parts();
        if (!parts) return parts.Why();
        std::string list;
        for (std::size_t i = 0; i < parts->Descriptions.size(); ++i)
            list += (i ? "; " : "") + std::to_string(i + 1) + ": " + parts->Descriptions[i];
        return {ImportFault::SeveralParts, Shortened(list, 400)};
    }
    Imported<PreparedSource> Colour(const SourcePicture& picture, const fs::path& from) const {
        if (!picture.HasPlace) return ImportFailure{ImportFault::NoPlace, {}};
        Arguments arguments{"-of", "VRT"};
        Append(arguments, picture.Translation());
        if (!picture.HasProjection) {
            if (order.Projection.empty()) return ImportFailure{ImportFault::ProjectionNeeded, {}};
            Append(arguments, {"-a_srs", order.Projection});
        }
        int width = picture.Width, height = picture.Height;
        if (const auto window = Window(picture)) {
            if (window->Width <= 0 || window->Height <= 0) return ImportFailure{ImportFault::OutsideCut, {}};
            Append(arguments, {"-srcwin", std::to_string(window->X), std::to_string(window->Y),
                               std::to_string(window->Width), std::to_string(window->Height)});
            width = window->Width;
            height = window->Height;
        }
        Append(arguments, {from.string(), coloured.string()});
        const auto otherwise = picture.HasProjection ? ImportFault::NotAChart : ImportFault::WrongProjection;
        if (const auto done = Gdal("gdal_translate", arguments, otherwise); !done) return done.Why();
        const PixelPlaces places(width, height);
        const auto answers = Gdal("gdaltransform", {"-output_xy", "-t_srs", "EPSG:4326", coloured.string()},
                                  ImportFault::CannotBePlaced, places.Questions());
        if (!answers) return answers.Why();
        const auto place = places.Read(*answers);
        if (!place) return place.Why();
        return PreparedSource{coloured, *place, picture.HasNoData};
    }
    std::optional<PixelBox> Window(const SourcePicture& picture) const {
        if (!order.CutPixels) return std::nullopt;
        const auto [x, y, width, height] = *order.CutPixels;
        const int left = std::max(0, x), top = std::max(0, y);
        return PixelBox{left, top, std::min(picture.Width, x + width) - left,
                        std::min(picture.Height, y + height) - top};
    }

    const GdalPrograms& gdal;
    const ImportOrder& order;
    fs::path source, copy, expanded, coloured;
};

} // namespace

Imported<PreparedSource> PrepareSource(const GdalPrograms& gdal, const ImportOrder& order,
                                       const fs::path& source, const fs::path& scratch, std::size_t number) {
    if (!CanBeRead(source)) return ImportFailure{ImportFault::NotThere, {}};
    if (!order.Projection.empty() && !IsProjection(order.Projection))
        return ImportFailure{ImportFault::WrongProjection, {}};
    // A whole path begins with a slash: it is neither taken for an option nor for one of the other things
    // that GDAL opens. One that names a file system of its own could be.
    std::error_code failed;
    const fs::path whole = fs::canonical(source, failed);
    if (failed || whole.string().starts_with("/vsi")) return ImportFailure{ImportFault::NotThere, {}};
    // A virtual raster may be written out in place of a name, anywhere in it.
    if (whole.string().find('<') != std::string::npos) return ImportFailure{ImportFault::NameNotTaken, {}};
    return Preparation(gdal, order, whole, scratch, number).Run();
}

} // namespace ornivane
