#pragma once

#include <QTranslator>

#include "base/Language.h"

namespace ornivane {

// The texts of Qt's own dialogs: buttons of message boxes, choosing files, the print preview. They travel
// inside the program, because the machine in the cockpit need not have Qt's translations.
class QtTexts {
public:
    // Widgets that stand are told to take their texts anew.
    void SetLanguage(const Language& language);

private:
    QTranslator translator;
    QString spoken; // the file of the language of now, which need not exist
};

} // namespace ornivane
