#include "chart-import/SourcePicture.h"

#include <algorithm>
#include <array>
#include <map>
#include <sstream>

#include <pugixml.hpp>

namespace ornivane {

namespace {

using Bands = std::vector<pugi::xml_node>;

std::string InterpOf(const pugi::xml_node& band) { return band.child_value("ColorInterp"); }

pugi::xml_node Entry(const pugi::xml_node& palette, int index) {
    for (const pugi::xml_node& entry : palette.children("Entry"))
        if (index-- == 0) return entry;
    return {};
}

bool HasTransparentColour(const pugi::xml_node& palette) {
    for (const pugi::xml_node& entry : palette.children("Entry"))
        if (entry.attribute("c4").as_int(255) < 255) return true;
    return false;
}

// After the palette is expanded, its number would be taken for a share of each colour.
bool MakeNoDataTransparent(pugi::xml_node band) {
    pugi::xml_node noData = band.child("NoDataValue");
    if (!noData) return false;
    pugi::xml_node entry = Entry(band.child("ColorTable"), noData.text().as_int(-1));
    if (entry) {
        entry.remove_attribute("c4");
        entry.append_attribute("c4") = 0;
    }
    band.remove_child(noData);
    return true;
}

// Of channels that say which colour they are; empty when one of the three is missing.
std::vector<int> NamedColours(const Bands& bands) {
    std::map<std::string, int> numbers;
    for (std::size_t i = 0; i < bands.size(); ++i)
        numbers.try_emplace(InterpOf(bands[i]), static_cast<int>(i) + 1);
    std::vector<int> colours;
    for (const char* name : {"Red", "Green", "Blue"})
        if (const auto found = numbers.find(name); found != numbers.end()) colours.push_back(found->second);
    if (colours.size() < 3) return {};
    if (const auto alpha = numbers.find("Alpha"); alpha != numbers.end()) colours.push_back(alpha->second);
    return colours;
}

ImportOutcome ReadChannels(const Bands& bands, SourcePicture& picture) {
    using Channels = SourcePicture::Channels;
    const std::string type = bands.front().attribute("dataType").value();
    if (type != "Byte" && type != "UInt16") return ImportFailure{ImportFault::NotAPicture, type};
    if (type == "UInt16") picture.Bits = 16;
    const bool secondIsAlpha = bands.size() == 2 && InterpOf(bands[1]) == "Alpha";
    if (bands.front().child("ColorTable") && (bands.size() == 1 || secondIsAlpha)) {
        picture.Kind = HasTransparentColour(bands.front().child("ColorTable")) ? Channels::PaletteWithAlpha
                                                                               : Channels::Palette;
    } else if (picture.Bands = NamedColours(bands); !picture.Bands.empty()) {
        picture.Kind = Channels::AsTheyAre;
    } else if (bands.size() == 1) {
        picture.Kind = Channels::Grey;
    } else if (secondIsAlpha) {
        picture.Kind = Channels::GreyWithAlpha;
    } else {
        return ImportFailure{ImportFault::NotAPicture, std::to_string(bands.size())};
    }
    return std::nullopt;
}

} // namespace

std::vector<std::string> SourcePicture::Translation() const {
    std::vector<std::string> arguments;
    const auto bands = [&arguments](const std::vector<int>& numbers) {
        for (const int number : numbers) arguments.insert(arguments.end(), {"-b", std::to_string(number)});
    };
    switch (Kind) {
    case Channels::Palette:
        arguments = {"-expand", "rgb"};
        break;
    case Channels::PaletteWithAlpha:
        arguments = {"-expand", "rgba"};
        break;
    case Channels::Grey:
        bands({1, 1, 1});
        break;
    case Channels::GreyWithAlpha:
        bands({1, 1, 1});
        arguments.insert(arguments.end(), {"-mask", "2"});
        break;
    case Channels::AsTheyAre:
        bands({Bands.begin(), Bands.begin() + 3});
        if (Bands.size() == 4) arguments.insert(arguments.end(), {"-mask", std::to_string(Bands[3])});
    }
    if (Kind == Channels::Grey || Kind == Channels::GreyWithAlpha)
        arguments.insert(arguments.end(),
                         {"-colorinterp_1", "red", "-colorinterp_2", "green", "-colorinterp_3", "blue"});
    if (Bits == 16) arguments.insert(arguments.end(), {"-ot", "Byte", "-scale", "0", "65535", "0", "255"});
    return arguments;
}

SourcePicture SourcePicture::Expanded() const {
    SourcePicture expanded = *this;
    expanded.Kind = Channels::AsTheyAre;
    expanded.Bands = {1, 2, 3, 4};
    return expanded;
}

Imported<SourcePicture> ReadSourcePicture(std::string& vrt) {
    // White space may be of a file's name.
    constexpr auto keepAll = pugi::parse_default | pugi::parse_ws_pcdata;
    pugi::xml_document document;
    if (!document.load_buffer(vrt.data(), vrt.size(), keepAll))
        return ImportFailure{ImportFault::NotAChart, {}};
    const pugi::xml_node root = document.child("VRTDataset");
    SourcePicture picture;
    picture.Width = root.attribute("rasterXSize").as_int();
    picture.Height = root.attribute("rasterYSize").as_int();
    const auto children = root.children("VRTRasterBand");
    const Bands bands(children.begin(), children.end());
    if (picture.Width <= 0 || picture.Height <= 0 || bands.empty())
        return ImportFailure{ImportFault::NotAChart, {}};
    const pugi::xml_node known = root.child("GCPList");
    picture.HasPlace = root.child("GeoTransform") || known;
    picture.HasProjection = *root.child_value("SRS") || *known.attribute("Projection").value();
    if (bands.front().child("ColorTable") && MakeNoDataTransparent(bands.front())) {
        std::ostringstream changed;
        document.save(changed, "", pugi::format_raw);
        vrt = changed.str();
    }
    if (const auto failure = ReadChannels(bands, picture)) return *failure;
    picture.HasNoData = std::any_of(bands.begin(), bands.end(), [](const pugi::xml_node& band) {
        return static_cast<bool>(band.child("NoDataValue"));
    });
    return picture;
}

} // namespace ornivane
