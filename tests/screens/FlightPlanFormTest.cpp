#include <QBuffer>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QSvgGenerator>
#include <cmath>

#include "flightplan/frmFlugPlan.h"
#include "flightplan/frmPlanGrid.h"
#include "flightplan/frmReport.h"
#include "screens/FormFixture.h"

namespace ornivane {
namespace {

class FlightPlanFormTest : public FormTest {
protected:
    FlightPlanFormTest() {
        AddRoute("R", {6.3, 7.0, 7.3, 8.0, 8.3, 9.0});
        AddRoute("S", {6.4, 7.4});
        Shared.EnglishUI = 1;
        Form = std::make_unique<frmFlugPlan>(frmFlugPlan::Services{Shared, Guard, Boxes, Notices, [] {}});
        Front = &Show(*Form);
    }
    std::string Cell(int row, int column) {
        auto& model = *Find<frmPlanGrid>("gridFlug").model();
        return model.index(row, column).data().toString().toStdString();
    }
    // The one that is open; a closed one lives on for a moment.
    QLineEdit* Editor() {
        for (QLineEdit* field : Find<frmPlanGrid>("gridFlug").findChildren<QLineEdit*>("cell"))
            if (field->isVisible()) return field;
        return nullptr;
    }

    ScriptedDialogs Boxes;
    std::unique_ptr<frmFlugPlan> Form;
};

TEST_F(FlightPlanFormTest, TheGridIsEditedAsASpreadsheet) {
    auto& grid = Find<frmPlanGrid>("gridFlug");
    grid.setFocus();
    grid.setCurrentIndex(grid.model()->index(1, 5));
    QTest::keyClick(grid.viewport(), '2'); // typing begins the edit
    ASSERT_TRUE(Editor());
    QTest::keyClicks(Editor(), "70");
    QTest::keyClick(Editor(), Qt::Key_Tab);
    EXPECT_EQ(Cell(1, 5), "270");
    EXPECT_EQ(grid.currentIndex().column(), 6);
    QTest::qWait(1);
    ASSERT_TRUE(Editor());
    Editor()->selectAll();
    QTest::keyClicks(Editor(), "1O");
    QTest::keyClick(Editor(), Qt::Key_Return); // refused: the cell keeps focus and text
    QTest::qWait(1);
    EXPECT_EQ(Boxes.Shown, std::vector<std::string>{"Datenfehler|Fehler in der Dateneingabe"});
    QTest::qWait(60);
    ASSERT_TRUE(Editor());
    EXPECT_EQ(Editor()->text(), "1O");
    EXPECT_EQ(grid.currentIndex(), grid.model()->index(1, 6));
    EXPECT_EQ(Cell(1, 6), "0");
    Editor()->selectAll();
    QTest::keyClicks(Editor(), "12,5");
    QTest::keyClick(Editor(), Qt::Key_Return);
    QTest::qWait(1);
    EXPECT_EQ(Cell(1, 6), "12.5");
    EXPECT_EQ(grid.currentIndex(), grid.model()->index(2, 6)); // Enter goes down
    QTest::keyClick(&grid, Qt::Key_F2);
    ASSERT_TRUE(Editor());
    QTest::keyClicks(Editor(), "99");
    QTest::keyClick(Editor(), Qt::Key_Escape);
    EXPECT_EQ(Cell(2, 6), "0");
    EXPECT_EQ(Boxes.Shown.size(), 1u);
    // The last editable cell of a row goes on to the next row's first, and nothing else can be edited.
    QTest::qWait(1);
    QTest::keyClick(&grid, Qt::Key_Tab);
    EXPECT_EQ(grid.currentIndex(), grid.model()->index(3, 2));
    grid.setCurrentIndex(grid.model()->index(0, 4));
    QTest::keyClicks(grid.viewport(), "5");
    EXPECT_EQ(Cell(0, 4), "0");
}

TEST_F(FlightPlanFormTest, ACellThatIsOpenCountsWhenTheScreenIsLeft) {
    auto& grid = Find<frmPlanGrid>("gridFlug");
    const auto type = [&](const char* text) {
        grid.setCurrentIndex(grid.model()->index(1, 4));
        QTest::keyClick(&grid, Qt::Key_F2);
        Editor()->selectAll();
        QTest::keyClicks(Editor(), text);
        Form->Form_Deactivate();
        Form->hide();
        QTest::qWait(60);
        EXPECT_EQ(Editor(), nullptr);
        Form->show();
        Form->Form_Activate();
    };
    type("95");
    EXPECT_EQ(Cell(1, 4), "95"); // from the file
    type("fast");
    EXPECT_EQ(Cell(1, 4), "95");
    EXPECT_EQ(Boxes.Shown, std::vector<std::string>{"Datenfehler|Fehler in der Dateneingabe"});
}

TEST_F(FlightPlanFormTest, AWrongEntryTakesTheFocusAndAnErrorIsANotice) {
    auto& speed = Find<QLineEdit>("tSpeed");
    speed.selectAll();
    QTest::keyClicks(&speed, "0");
    Click("cmdCalc");
    EXPECT_TRUE(Form->focusWidget() == &speed);
    EXPECT_TRUE(speed.styleSheet().contains("#ffc0c0"));
    Find<QComboBox>("cmbRoute").setFocus();
    Form->Form_Deactivate();
    Form->Form_Activate();
    EXPECT_TRUE(Form->focusWidget() == &speed);
    QTest::mouseDClick(&speed, Qt::LeftButton);
    EXPECT_EQ(speed.text(), "");
    QTest::keyClicks(&speed, "100");
    auto& wind = Find<QLineEdit>("tWindspeed");
    wind.selectAll();
    QTest::keyClicks(&wind, "100");
    Find<QLineEdit>("tWinddir").setText("90");
    emit Find<QLineEdit>("tWinddir").textEdited("90");
    const std::string before = Cell(1, 9);
    Click("cmdCalc"); // about 90: no ground speed
    EXPECT_EQ(Cell(1, 9), before);
    EXPECT_FALSE(Notices.isHidden());
}

// What a widget paints, as the texts of a picture.
std::string TextsOf(QWidget& widget) {
    QBuffer svg;
    QSvgGenerator generator;
    generator.setOutputDevice(&svg);
    generator.setSize(widget.size());
    QPainter painter(&generator);
    widget.render(&painter);
    painter.end();
    std::string texts;
    static const QRegularExpression text(">([^<]*)</text>");
    for (auto found = text.globalMatch(QString::fromUtf8(svg.data())); found.hasNext();)
        texts += found.next().captured(1).toStdString();
    return texts;
}

TEST_F(FlightPlanFormTest, ANumberIsNeverCutOnTheScreen) {
    Shared.Locale.DecimalSeparator = ',';
    Form->Logic().Entries = {"-123456789,125", "1e300", "123,4", "33", "17"};
    Form->ApplyLanguage();
    Click("cmdCalc");
    const std::string texts = TextsOf(*Find<frmPlanGrid>("gridFlug").viewport());
    for (int column = 2; column < 13; ++column)
        EXPECT_NE(texts.find(Cell(1, column)), std::string::npos) << Cell(1, column) << " in " << texts;
    for (const char* name : {"tVAR", "tFF"}) {
        auto& field = Find<QLineEdit>(name);
        EXPECT_LT(QFontMetrics(field.font()).horizontalAdvance(field.text()), field.width() - 20) << name;
    }
}

// An edited fuel flow is forgotten by the next computation.
TEST_F(FlightPlanFormTest, TheColumnOfTheFuelFlowTellsHowLongAnEditCounts) {
    auto& model = *Find<frmPlanGrid>("gridFlug").model();
    const auto tip = [&] { return model.headerData(3, Qt::Horizontal, Qt::ToolTipRole).toString(); };
    EXPECT_TRUE(tip().contains("until the plan is computed again"));
    EXPECT_EQ(model.index(1, 3).data(Qt::ToolTipRole).toString(), tip());
    Shared.EnglishUI = 0;
    EXPECT_TRUE(tip().contains("bis der Plan neu berechnet wird"));
    EXPECT_EQ(model.headerData(4, Qt::Horizontal, Qt::ToolTipRole).toString(), "");
}

TEST_F(FlightPlanFormTest, CaptionsFollowTheLanguageAndTheRouteItsPlan) {
    EXPECT_EQ(Find<QPushButton>("cmdRevert").text(), "Cancel calculation");
    Shared.EnglishUI = 0;
    Form->ApplyLanguage();
    EXPECT_EQ(Find<QPushButton>("cmdRevert").text(), "Berechnung rückgängig");
    auto& routes = Find<QComboBox>("cmbRoute");
    routes.setCurrentIndex(1);
    emit routes.activated(1);
    EXPECT_EQ(Find<QLabel>("tDatei").text(), "Plan der Strecke: S");
    EXPECT_EQ(Find<frmPlanGrid>("gridFlug").model()->rowCount(), 2);
}

// ---- The printed log ----

struct Word {
    double X, Y, Right, Bottom; // points from the top left of the page
    QString Text;
};

std::vector<std::vector<Word>> WordsOf(const QString& pdf) {
    QProcess reader;
    reader.start("pdftotext", {"-bbox", pdf, "-"});
    reader.waitForFinished();
    std::vector<std::vector<Word>> pages;
    const QRegularExpression word(
        R"r(<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="([\d.]+)">([^<]*)<)r");
    for (const QString& line : QString::fromUtf8(reader.readAllStandardOutput()).split('\n')) {
        if (line.contains("<page ")) pages.emplace_back();
        const auto match = word.match(line);
        if (match.hasMatch() && !pages.empty())
            pages.back().push_back({match.captured(1).toDouble(), match.captured(2).toDouble(),
                                    match.captured(3).toDouble(), match.captured(4).toDouble(),
                                    match.captured(5)});
    }
    return pages;
}

// The page at 150 dpi: rows of grey values.
struct Raster {
    int Width = 0, Height = 0;
    QByteArray Pixels;
    bool IsDark(int x, int y) const { return static_cast<unsigned char>(Pixels[y * Width + x]) < 160; }
};

Raster Render(const QString& pdf, int page) {
    QProcess painter;
    const QString number = QString::number(page);
    painter.start("pdftoppm", {"-r", "150", "-gray", "-f", number, "-l", number, pdf});
    painter.waitForFinished();
    QByteArray pgm = painter.readAllStandardOutput();
    const QList<QByteArray> head = pgm.left(40).split('\n');
    Raster raster;
    if (head.size() < 3) return raster;
    raster.Width = head[1].split(' ')[0].toInt();
    raster.Height = head[1].split(' ')[1].toInt();
    raster.Pixels = pgm.right(static_cast<qsizetype>(raster.Width) * raster.Height);
    return raster;
}

class PrintedLogTest : public FlightPlanFormTest {
protected:
    static constexpr double PixelsPerTwip = 150.0 / 1440, PaperWidth = 11906, Top = 567;
    static double Left() { return (PaperWidth - report::Width) / 2; }

    QString Print(const std::vector<double>& longitudes) {
        AddRoute("Printed", longitudes);
        Form->Form_Activate();
        Form->Logic().cmbRoute_Click(2);
        const auto file = Folder.Path() / "plan.pdf";
        const auto another = Folder.Path() / "plan.pdf.part"; // of the user, whatever it is
        WriteFileAtomically(another, "mine");
        Boxes.File = file;
        Click("cmdPDF");
        EXPECT_EQ(ReadWholeFile(another).value_or("gone"), "mine");
        EXPECT_EQ(Boxes.FileAsked->Start.filename(), "Printed.pdf");
        return QString::fromStdString(file.string());
    }
    void ExpectPage(const report::Page& page, const std::vector<Word>& words, const Raster& raster) {
        ASSERT_GT(raster.Width, 1000);
        for (const report::Item& item : page) {
            const double x = (Left() + item.Left) * PixelsPerTwip, y = (Top + item.Top) * PixelsPerTwip;
            if (item.What == report::Item::Kind::Line)
                ExpectLine(item, raster, x, y);
            else
                ExpectText(item, words, x, y);
        }
    }
    // Dark along its whole length, at most a pixel beside its place.
    void ExpectLine(const report::Item& item, const Raster& raster, double x, double y) {
        const bool across = item.Height == 0;
        const int length = static_cast<int>((across ? item.Width : item.Height) * PixelsPerTwip) - 2;
        const auto darkAt = [&](int beside) {
            for (int i = 2; i < length; i += 5) {
                const int px = static_cast<int>(x) + (across ? i : beside);
                const int py = static_cast<int>(y) + (across ? beside : i);
                if (!raster.IsDark(px, py)) return false;
            }
            return true;
        };
        EXPECT_TRUE(darkAt(0) || darkAt(1) || darkAt(-1)) << item.Name << " at " << x << ", " << y;
    }
    void ExpectText(const report::Item& item, const std::vector<Word>& words, double x, double y) {
        const QString first =
            QString::fromStdString(item.Text).split(QRegularExpression("\\s+"), Qt::SkipEmptyParts).value(0);
        if (first.isEmpty()) return;
        const double indent = item.Text[0] == ' ' ? 8 : 0;
        const bool there = std::any_of(words.begin(), words.end(), [&](const Word& word) {
            const double wx = word.X * 150 / 72, wy = word.Y * 150 / 72;
            return first.startsWith(word.Text.left(8)) && std::abs(wx - x) <= 1 + indent &&
                   std::abs(wy - y) <= 6;
        });
        EXPECT_TRUE(there) << item.Name << " [" << item.Text << "] at " << x << ", " << y;
    }
    std::vector<report::Page> Pages() {
        const FlightPlan& plan = Form->Logic();
        return report::LayOut(plan.PlanSet,
                              {plan.lblDistanz, plan.lblZeit, plan.Entries[1], plan.lblFF, plan.lblAvgWind},
                              16838 - 2 * 567, Shared.Locale);
    }
    void ExpectPrinted(std::size_t points, std::size_t pageCount) {
        std::vector<double> longitudes;
        for (std::size_t i = 0; i < points; ++i)
            longitudes.push_back(6 + static_cast<double>(i / 6) + static_cast<double>(i % 6) / 10);
        const QString pdf = Print(longitudes);
        const auto pages = Pages();
        const auto words = WordsOf(pdf);
        ASSERT_EQ(words.size(), pageCount);
        ASSERT_EQ(pages.size(), pageCount);
        for (std::size_t i = 0; i < pages.size(); ++i)
            ExpectPage(pages[i], words[i], Render(pdf, static_cast<int>(i) + 1));
    }
};

TEST_F(PrintedLogTest, ANumberIsNeverCutOnPaper) {
    Shared.Locale.DecimalSeparator = ',';
    Form->Logic().Entries = {"-123456789,125", "123456789,1", "123,4", "33", "17"};
    const auto words = WordsOf(Print({6.0, 7.0, 8.0})).at(0);
    const auto pages = Pages();
    int printed = 0;
    for (const report::Item& item : pages[0]) {
        if (item.What != report::Item::Kind::Value || item.Name == "Text1") continue;
        const double left = (Left() + item.Left) / 20 - 0.5,
                     right = (Left() + item.Left + item.Width) / 20 + 0.5;
        const double top = (Top + item.Top) / 20, bottom = top + item.Height / 20.0;
        QString there;
        for (const Word& word : words) {
            const double middle = (word.Y + word.Bottom) / 2;
            if (word.X >= left && word.X < right && middle > top && middle < bottom && word.Right <= right)
                there += word.Text;
        }
        EXPECT_EQ(there, QString::fromStdString(item.Text).remove(' ')) << item.Name;
        ++printed;
    }
    EXPECT_EQ(printed, 5 + 3 * 11);
}

TEST_F(PrintedLogTest, SixPointsStandWhereTheLayoutHasThem) { ExpectPrinted(6, 1); }

TEST_F(PrintedLogTest, SixtyPointsGoOverFourPages) { ExpectPrinted(60, 4); }

} // namespace
} // namespace ornivane
