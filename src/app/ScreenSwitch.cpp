#include "app/ScreenSwitch.h"

namespace ornivane {

ScreenSwitch::ScreenSwitch(Window mainWindow) : window(std::move(mainWindow)) {}

Screen* ScreenSwitch::Made(Mode mode) {
    Screen*& screen = screens[mode];
    if (!screen) window.Guarded([&] { screen = window.Make(mode); });
    if (!screen) screens.erase(mode);
    return screens.contains(mode) ? screens[mode] : nullptr;
}

void ScreenSwitch::Show(Mode mode) {
    if (current == mode) return;
    // The old screen stops before the new one is made: only one of them may use the serial port.
    const std::optional<Mode> left = std::exchange(current, std::nullopt);
    if (left) window.Guarded([&] { screens[*left]->Form_Deactivate(); });

    Screen* next = Made(mode);
    current = next ? mode : left;
    if (!next && left) next = screens[*left];
    if (!next) return;
    window.BringToFront(next);
    window.Guarded([&] { next->Form_Activate(); });
}

std::vector<Screen*> ScreenSwitch::Loaded() const {
    std::vector<Screen*> result;
    for (const auto& [mode, screen] : screens) result.push_back(screen);
    return result;
}

void ScreenSwitch::UnloadAllForms(const std::string& exceptName) {
    const QString stays = QString::fromStdString(exceptName);
    if (current && screens[*current]->objectName() != stays) {
        Screen* left = screens[*std::exchange(current, std::nullopt)];
        window.Guarded([&] { left->Form_Deactivate(); });
    }
    for (Screen* screen : Loaded())
        if (screen->objectName() != stays) window.Guarded([&] { screen->Form_Unload(); });
}

} // namespace ornivane
