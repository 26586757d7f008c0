#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Numbers.h"
#include "platform/Dialogs.h"
#include "platform/PictureSurface.h"
#include "support/ScriptedDialogs.h"
#include "support/SetClock.h"

namespace ornivane {

// A picture of a size, without pixels. Loads what the test allows.
class FakePicture : public Picture {
public:
    bool Load(const std::filesystem::path& file) override {
        Asked.push_back(file.filename().string());
        if (!Readable) return false;
        Width = NextWidth;
        Height = NextHeight;
        return true;
    }
    int ScaleWidth() const override { return Width; }
    int ScaleHeight() const override { return Height; }

    std::vector<std::string> Asked;
    bool Readable = true;
    int NextWidth = 2000, NextHeight = 1000;
    int Width = 0, Height = 0;
};

// Remembers what was drawn, one text a step, coordinates to one decimal.
class DrawnSurface : public PictureSurface {
public:
    double ScaleWidth() const override { return Width; }
    double ScaleHeight() const override { return Height; }
    void Cls() override { Drawn.assign(1, "cls"); }
    void PaintPicture(const Picture&, const PixelRect&, const PictureSection& section) override {
        Drawn.clear(); // the picture covers all that was there
        Source = {section.X, section.Y, section.AcrossX, section.DownY};
        ++Paints;
    }
    void PaintTurned(const Picture&, double angle) override { Drawn.push_back("turned " + Number(angle)); }
    void SetDrawWidth(int pixels) override { Pen = pixels; }
    void SetForeColor(Colour colour) override { Fore = colour; }
    void Line(double x1, double y1, double x2, double y2, Colour colour) override {
        Drawn.push_back("line " + At(x1, y1) + " " + At(x2, y2) + Ink(colour));
    }
    void Circle(double x, double y, double radius, Colour colour) override {
        Drawn.push_back("circle " + At(x, y) + " r" + Number(radius) + Ink(colour));
    }
    void Print(double x, double y, const std::string& text) override {
        Drawn.push_back("text " + At(x, y) + " [" + text + "]");
    }
    double TextWidth(const std::string& text) override { return 8.0 * static_cast<double>(text.size()); }
    double TextHeight() const override { return 17; }
    void Keep() override { Kept = Drawn; }
    bool Recall() override {
        if (Kept) Drawn = *Kept;
        return Kept.has_value();
    }
    void Refresh() override { ++Refreshes; }

    int Count(const std::string& part) const {
        int count = 0;
        for (const std::string& step : Drawn) count += step.find(part) != std::string::npos ? 1 : 0;
        return count;
    }

    std::vector<std::string> Drawn;
    std::optional<std::vector<std::string>> Kept;
    PixelRect Source;
    double Width = 800, Height = 400;
    int Pen = 1, Paints = 0, Refreshes = 0;
    Colour Fore = 0;

private:
    static std::string Number(double x) { return NumberText(Round(x, 1)); }
    static std::string At(double x, double y) { return Number(x) + "," + Number(y); }
    std::string Ink(Colour colour) const {
        char text[32];
        std::snprintf(text, sizeof text, " w%d #%06X", Pen, colour);
        return text;
    }
};

class FakeProgress : public Progress {
public:
    void SetValue(int percent) override { Values.push_back(percent); }
    void SetVisible(bool visible) override { Visible = visible; }
    std::vector<int> Values;
    bool Visible = false;
};

class RecordedNotice : public Notice {
public:
    void Show(const std::string& text) override { Shown.push_back(text); }
    std::vector<std::string> Shown;
};

} // namespace ornivane
