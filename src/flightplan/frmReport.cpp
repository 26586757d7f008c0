#include "flightplan/frmReport.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>

#include "base/AtomicFile.h"
#include "base/RuntimeError.h"
#include "base/TemporaryFile.h"
#include "platform/qt/FittedRuns.h"

namespace ornivane {

namespace {

constexpr double TwipsPerPoint = 20;
constexpr int PdfResolution = 1200; // dots an inch: positions stay within a fortieth of a millimetre
constexpr double TopMargin = 567;   // twips, 1 cm
constexpr int HeaderSize = 8 * 20, RowSize = 9 * 20; // heights of letters in twips
constexpr int RowTop = report::HeaderHeight;
// The bar has more buttons than the program's large ones leave room for.
constexpr const char* PreviewStyle = "QToolButton { min-height: 28px; padding: 0 2px; border-width: 1px; } "
                                     "QLineEdit { min-width: 40px; font-size: "
                                     "14px; } QComboBox { min-height: 26px; }";
constexpr double PenWidth = 10; // twips

// The painter tells nothing of a disk that is full; the end of the file does.
void CheckWhole(const std::filesystem::path& pdf) {
    const auto bytes = ReadWholeFile(pdf);
    const auto end = bytes ? bytes->rfind("%%EOF") : std::string::npos;
    if (end == std::string::npos || end + 16 < bytes->size())
        throw RuntimeError(ErrorNumber::DiskFull, pdf.filename().string());
}

QFont Sans(int height) {
    QFont font("Arial");
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(height);                         // the painter's unit is a twip
    font.setHintingPreference(QFont::PreferNoHinting); // paper has no pixels to fit
    return font;
}

} // namespace

frmReport::frmReport(const Recordset& planOf, const report::Totals& totalsOf, const LocaleText& localeOf)
    : plan(planOf), totals(totalsOf), locale(localeOf) {}

void frmReport::Prepare(QPrinter& printer) const {
    printer.setDocName("Flugplan");
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageOrientation(QPageLayout::Portrait);
    printer.setFullPage(true); // the margins are the report's own
}

void frmReport::Paint(QPrinter& printer) const {
    const QSizeF paper = printer.pageLayout().fullRect(QPageLayout::Point).size() * TwipsPerPoint;
    const double left = (paper.width() - report::Width) / 2;
    const int height = static_cast<int>(paper.height() - 2 * TopMargin);
    const auto pages = report::LayOut(plan, totals, height, locale);
    QPainter painter;
    if (!painter.begin(&printer)) throw RuntimeError(ErrorNumber::DeviceError);
    const double scale = static_cast<double>(printer.resolution()) / report::TwipsPerInch;
    bool first = true;
    for (const report::Page& page : pages) {
        if (!first && !printer.newPage()) throw RuntimeError(ErrorNumber::DeviceError);
        first = false;
        painter.resetTransform();
        painter.scale(scale, scale);
        painter.translate(left, TopMargin);
        for (const report::Item& item : page) PaintItem(painter, item);
    }
    if (!painter.end()) throw RuntimeError(ErrorNumber::DeviceError);
}

void frmReport::PaintItem(QPainter& painter, const report::Item& item) const {
    using Kind = report::Item::Kind;
    painter.setPen(QPen(Qt::black, PenWidth));
    if (item.What == Kind::Line) {
        painter.drawLine(QPointF(item.Left, item.Top),
                         QPointF(item.Left + item.Width, item.Top + item.Height));
        return;
    }
    const QFont font = Sans(item.Top < RowTop ? HeaderSize : RowSize);
    const QFontMetricsF metrics(font);
    double baseline = item.Top + metrics.ascent();
    for (const QString& line : QString::fromStdString(item.Text).split('\n')) {
        for (const FittedRun& run : FitInWidth(line, font, item.Width)) {
            painter.setFont(run.Font);
            painter.drawText(QPointF(item.Left + run.Left, baseline), run.Text);
        }
        baseline += metrics.lineSpacing();
    }
}

void frmReport::ShowFlightPlanReport(QWidget* parent, const QString& title) {
    QPrinter printer(QPrinter::HighResolution);
    Prepare(printer);
    QPrintPreviewDialog preview(&printer, parent);
    preview.setObjectName("Flugplan");
    preview.setWindowTitle(title);
    preview.setStyleSheet(PreviewStyle);
    preview.resize(1000, 680);
    std::exception_ptr failed; // errors must not pass through the dialog
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview, [&](QPrinter* to) {
        try {
            Paint(*to);
        } catch (const std::exception&) {
            failed = std::current_exception();
            preview.reject();
        }
    });
    preview.exec();
    if (failed) std::rethrow_exception(failed);
}

void frmReport::SavePdf(const std::filesystem::path& file) {
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setResolution(PdfResolution);
    TemporaryFile unfinished(file);
    printer.setOutputFileName(QString::fromStdString(unfinished.Path().string()));
    Prepare(printer);
    Paint(printer);
    CheckWhole(unfinished.Path());
    unfinished.Keep();
}

} // namespace ornivane
