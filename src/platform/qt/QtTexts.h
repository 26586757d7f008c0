#pragma once

#include <QTranslator>

namespace ornivane {

// The texts of Qt's own dialogs: buttons of message boxes, choosing files, the print preview. They travel
// inside the program, because the machine in the cockpit need not have Qt's translations.
class QtTexts {
public:
    // Widgets that stand are told to take their texts anew.
    void SetLanguage(bool english);

private:
    QTranslator german;
    bool installed = false;
};

} // namespace ornivane
