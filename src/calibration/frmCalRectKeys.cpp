// Keys and the slider of frmCalRect.

#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSlider>
#include <QTableView>
#include <cmath>
#include <optional>

#include "calibration/frmCalRect.h"
#include "platform/qt/Events.h"
#include "platform/qt/RecordsetModel.h"
#include "platform/qt/SurfaceWidget.h"

namespace ornivane {

namespace {

constexpr double FineStep = 1, CoarseStep = 20; // of the cross-hair, view pixels

// Qt numbers its arrows in this order, too.
std::optional<ArrowKey> ArrowOf(int key) {
    if (key < Qt::Key_Left || key > Qt::Key_Down) return std::nullopt;
    return static_cast<ArrowKey>(key - Qt::Key_Left);
}

bool IsEnter(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

} // namespace

bool frmCalRect::eventFilter(QObject* watched, QEvent* event) {
    if (watched == SlideMap) {
        const auto type = event->type();
        if (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
            type == QEvent::MouseMove || type == QEvent::MouseButtonRelease)
            return SlideByMouse(*static_cast<QMouseEvent*>(event));
    }
    if (event->type() == QEvent::FocusOut && watched == picMap && loaded) logic->ArrowsGone();
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (watched == picMap) return MapKey(key);
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (EntryKey(i, watched, key)) return true;
    return QDialog::eventFilter(watched, event);
}

// The value is taken from the pointer, on a width counted as 10500 units.
bool frmCalRect::SlideByMouse(const QMouseEvent& event) {
    if (!loaded || (event.button() != Qt::LeftButton && !(event.buttons() & Qt::LeftButton))) return true;
    constexpr double middle = 5250;
    const double units = event.position().x() * 2 * middle / std::max(1, SlideMap->width());
    const int value = static_cast<int>(std::nearbyint((units - middle) * SlideMax / middle));
    const int inRange = std::min(std::max(value, SlideMin), SlideMax);
    Click([&] {
        if (event.type() == QEvent::MouseButtonRelease)
            logic->SlideMap_Click(inRange);
        else
            logic->SlideMap_Scroll(inRange);
    });
    return true;
}

// A key that was pressed while the picture has the focus. True when it was one of the picture's.
bool frmCalRect::MapKey(const QKeyEvent& event) {
    const int key = event.key();
    if (const auto arrow = ArrowOf(key)) {
        const bool fine = event.modifiers() & Qt::ShiftModifier,
                   coarse = event.modifiers() & Qt::ControlModifier;
        if (!fine && !coarse) return false; // the form's
        const double step = fine ? FineStep : CoarseStep;
        const double dx = *arrow == ArrowKey::Left ? -step : *arrow == ArrowKey::Right ? step : 0;
        const double dy = *arrow == ArrowKey::Up ? -step : *arrow == ArrowKey::Down ? step : 0;
        Click([&] { logic->MoveCross(dx, dy); });
        return true;
    }
    if (IsEnter(key)) {
        if (!event.isAutoRepeat()) Click([&] { logic->picMap_Click(); });
        return true;
    }
    if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
        SlideMap->setValue(SlideMap->value() + (key == Qt::Key_PageUp ? -1 : 1) * SlideMap->pageStep());
        return true;
    }
    const QString text = event.text();
    if (text.isEmpty() || !text[0].isPrint() || (event.modifiers() & Qt::ControlModifier)) return false;
    Typed(text);
    return true;
}

void frmCalRect::Typed(const QString& text) {
    TypedInto into = TypedInto::Nothing;
    Click([&] { into = logic->KeyTyped(text.toStdString()); });
    QLineEdit* const fields[] = {nullptr, entries[0].tLat, entries[1].tLat, entries[0].tQuickfind,
                                 entries[1].tQuickfind};
    QLineEdit* field = fields[static_cast<int>(into)];
    if (!field) return;
    field->setFocus();
    field->deselect();
    field->setCursorPosition(into == TypedInto::Lat2 ? static_cast<int>(logic->tLat2Caret)
                                                     : static_cast<int>(field->text().size()));
}

bool frmCalRect::EntryKey(std::size_t index, QObject* field, const QKeyEvent& event) {
    Entry& entry = entries[index];
    const bool grid = field == entry.gridWay, quick = field == entry.tQuickfind;
    if (!grid && !quick && field != entry.tLat && field != entry.tLong) return false;
    const int key = event.key();
    if (key == Qt::Key_Escape) {
        picMap->setFocus();
        return true;
    }
    if (quick && (key == Qt::Key_Down || key == Qt::Key_Up)) {
        const int row = entry.gridWay->currentIndex().row() + (key == Qt::Key_Down ? 1 : -1);
        if (row >= 0 && row < entry.Model->rowCount()) entry.gridWay->selectRow(row);
        return true;
    }
    return false;
}

// Arrows that no field, list or slider needs for itself move the picture. Escape goes back one step each time
// that it is pressed: held in a field, it would close the form with all that was entered.
void frmCalRect::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && event->isAutoRepeat()) return;
    const auto arrow = ArrowOf(event->key());
    if (!arrow) return QDialog::keyPressEvent(event);
    if (loaded && !event->isAutoRepeat()) Click([&] { logic->ArrowDown(*arrow); });
}

void frmCalRect::keyReleaseEvent(QKeyEvent* event) {
    const auto arrow = ArrowOf(event->key());
    if (!arrow) return QDialog::keyReleaseEvent(event);
    if (loaded && !event->isAutoRepeat()) Click([&] { logic->ArrowUp(*arrow); });
}

} // namespace ornivane
