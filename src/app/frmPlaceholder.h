#pragma once

#include <QLabel>

#include "app/Captions.h"
#include "common/Variablen.h"
#include "platform/qt/Screen.h"

namespace ornivane {

// Stands where a screen will be that does not exist yet, and says so.
class frmPlaceholder : public Screen {
public:
    // The title names the screen, the purpose what can be done there one day.
    frmPlaceholder(const Variablen& variablen, const char* name, Bilingual title, Bilingual purpose);

    void ApplyLanguage() override;

private:
    const Variablen& variablen;
    Bilingual title;
    Bilingual purpose;
    QLabel lblTitle;
    QLabel lblText;
};

} // namespace ornivane
