#pragma once

#include <QDialog>
#include <string>

#include "base/Language.h"
#include "platform/System.h"

class QLabel;
class QPushButton;

namespace ornivane {

// A hint that stands beside the main window until it is closed and stops nothing: a store is not available,
// what that means, where to get it.
class frmInfo : public QDialog {
    Q_OBJECT
public:
    struct Texts;

    // frmInfo1 about track.ovd, frmInfo3 about Luftraum.ovd. The reason is empty when the file is missing.
    enum class Store { Track, Airspace };
    frmInfo(Store about, const Language& shownIn, Shell& shell, const std::string& reason, QWidget* parent);

    // Every caption in the language of this moment; the reason stays in the words of the system.
    void ApplyLanguage();

private:
    const Texts& texts;
    const Language& language;
    bool isMissing;
    QLabel *Label1 = nullptr, *Label2 = nullptr, *Label3 = nullptr, *Label4 = nullptr;
    QPushButton *lblLink = nullptr, *cmdClose = nullptr;
};

} // namespace ornivane
