#pragma once

#include <QDialog>
#include <QPointF>
#include <array>
#include <functional>
#include <memory>

#include "calibration/TwoPoints.h"

class QBoxLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMouseEvent;
class QPushButton;
class QSlider;
class QTableView;

namespace ornivane {

class EventGuard;
class GridBinding;
class ChartWatch;
class QtPicture;
class QtTimer;
class RecordsetModel;
class SharedCharts;
class SurfaceWidget;

// Calibrates the selected chart by two points. Deletes itself when it closes.
class frmCalRect : public QDialog {
    Q_OBJECT

public:
    // What of the program it works with.
    struct Services {
        const Language& Texts;
        Connection& DataConn;
        EventGuard& Guard;
        Dialogs& Messages;
        SharedCharts& Charts;
    };
    frmCalRect(const Services& services, MapData& frmCalibrate, QWidget* window);
    ~frmCalRect() override;

    // Shows the form and loads the image. RuntimeError for an image without size; the form closes then.
    void Start();
    TwoPoints& Logic() { return *logic; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    // The controls of one point, without their number.
    struct Entry {
        QGroupBox* frmP = nullptr;
        QLabel *lblLat = nullptr, *lblLong = nullptr, *hintLat = nullptr, *hintLong = nullptr,
               *lblQuickfind = nullptr;
        QLineEdit *tLat = nullptr, *tLong = nullptr, *tQuickfind = nullptr;
        QTableView* gridWay = nullptr;
        QPushButton* cmdSave = nullptr;
        std::unique_ptr<RecordsetModel> Model;
        std::unique_ptr<GridBinding> Binding;
    };

    void Unload();
    void MakeMap(QBoxLayout& layout);
    void MakePanel(QBoxLayout& layout);
    void MakePixels(QBoxLayout& layout);
    void MakeEntry(std::size_t index, QBoxLayout& layout);
    void MakeEntryFields(std::size_t index, QBoxLayout& layout);
    void MakeEntryGrid(std::size_t index, QBoxLayout& layout);
    void Click(const std::function<void()>& event);
    void Released(QPointF at, Qt::MouseButton button);
    bool SlideByMouse(const QMouseEvent& event);
    bool MapKey(const QKeyEvent& event);
    bool EntryKey(std::size_t index, QObject* field, const QKeyEvent& event);
    void Typed(const QString& text);
    void Save(std::size_t index);
    void ShowState();
    void ShowEntry(std::size_t index);
    void ApplyLanguage();
    QString Text(const char* german, const char* english) const { return language.Text(german, english); }

    const Language& language;
    EventGuard& guard;
    MapData& catalogue;
    std::unique_ptr<QtPicture> picStorage;
    std::unique_ptr<QtTimer> timArr;
    SurfaceWidget* picMap = nullptr;
    std::unique_ptr<TwoPoints> logic;
    std::unique_ptr<ChartWatch> chartWatch;
    QLabel *lblHint = nullptr, *lblKeys = nullptr;
    QSlider* SlideMap = nullptr;
    QLineEdit *tx = nullptr, *ty = nullptr;
    QPushButton* cmdExit = nullptr;
    std::array<Entry, 2> entries;
    QPointF pressedAt;
    bool dragged = false, loaded = false, closing = false;
    bool showing = false; // ShowState is writing to the controls
};

} // namespace ornivane
