#pragma once

#include <QDialog>
#include <string>

#include "common/Variablen.h"
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
    static frmInfo* ForTrackStore(const Variablen& variablen, Shell& shell, const std::string& reason,
                                  QWidget* parent);
    static frmInfo* ForAirspaceStore(const Variablen& variablen, Shell& shell, const std::string& reason,
                                     QWidget* parent);

    // frmInfo2: the report cannot be shown. Modal.
    static frmInfo* ForReport(const Variablen& variablen, Shell& shell, QWidget* parent);

    // Every caption of a hint that stands while the language changes; the reason stays in the words of the
    // system.
    void ApplyLanguage();

private:
    frmInfo(const Variablen& variablen, QWidget* parent);
    frmInfo(const Texts& texts, const Variablen& variablen, Shell& shell, const std::string& reason,
            QWidget* parent);

    const Texts* texts = nullptr; // none of frmInfo2
    const Variablen& variablen;
    bool isMissing = false;
    QLabel *Label1 = nullptr, *Label2 = nullptr, *Label3 = nullptr, *Label4 = nullptr;
    QPushButton *lblLink = nullptr, *cmdClose = nullptr;
};

} // namespace ornivane
