#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app/Captions.h"
#include "platform/qt/Screen.h"

namespace ornivane {

// Which screen is in front. A screen is made when it is first shown and then kept. Its owner is the window
// that it is put into.
class ScreenSwitch {
public:
    struct Window {
        std::function<Screen*(Mode)> Make;
        std::function<void(Screen*)> BringToFront;
        // Runs a step; an error in it is shown and ends only this step. False then.
        std::function<bool(const std::function<void()>&)> Guarded;
    };

    explicit ScreenSwitch(Window mainWindow);

    // Nothing happens for the mode that is in front already. A screen that cannot be made leaves the one in
    // front where it is.
    void Show(Mode mode);
    std::optional<Mode> Current() const { return current; }
    // Those that were made, in the order of the toolbar.
    std::vector<Screen*> Loaded() const;
    // The end of the program: the front screen stops, then every screen saves, except the form of the given
    // name (whoever is ending already does not end itself again). An error in one does not keep the others
    // from it.
    void UnloadAllForms(const std::string& exceptName);

private:
    Screen* Made(Mode mode);

    Window window;
    std::map<Mode, Screen*> screens;
    std::optional<Mode> current;
};

} // namespace ornivane
