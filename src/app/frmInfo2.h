#pragma once

#include <QDialog>

#include "base/Language.h"
#include "platform/System.h"

namespace ornivane {

// The report cannot be shown: which file is needed for that, and where it is. Modal; deletes itself.
class frmInfo2 : public QDialog {
    Q_OBJECT
public:
    frmInfo2(const Language& language, Shell& shell, QWidget* parent);
};

} // namespace ornivane
