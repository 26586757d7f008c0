#pragma once

#include <QString>
#include <filesystem>

#include "flightplan/Report.h"

class QPainter;
class QPrinter;
class QWidget;

namespace ornivane {

// Paints the report on paper: portrait, 10995 twips wide.
class frmReport {
public:
    frmReport(const Recordset& plan, const report::Totals& totals, const LocaleText& locale);

    // The preview, from which the user prints or saves a PDF. Returns when it is closed. RuntimeError
    // DeviceError when no page can be painted.
    void ShowFlightPlanReport(QWidget* parent, const QString& title);
    // The old file stays until the new one is whole. RuntimeError DeviceError, or as WriteFileAtomically.
    void SavePdf(const std::filesystem::path& file);

private:
    void Prepare(QPrinter& printer) const;
    void Paint(QPrinter& printer) const;
    void PaintItem(QPainter& painter, const report::Item& item) const;

    const Recordset& plan;
    report::Totals totals;
    const LocaleText& locale;
};

} // namespace ornivane
