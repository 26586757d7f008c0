#pragma once

#include <QDialog>
#include <string>

#include "common/Variablen.h"
#include "platform/System.h"

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

private:
    explicit frmInfo(QWidget* parent);
    frmInfo(const Texts& texts, bool english, Shell& shell, const std::string& reason, QWidget* parent);
};

} // namespace ornivane
