#include "planning/frmListPanel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QTableView>

#include "platform/qt/FittedButton.h"
#include "platform/qt/Named.h"

namespace ornivane {

namespace {

constexpr int ButtonHeight = 44, LineHeight = 34; // pixels

} // namespace

frmListPanel::frmListPanel(QWidget* parent, const Language& texts, std::function<void(const Event&)> toRun)
    : QWidget(parent), language(texts), run(std::move(toRun)) {}

QPushButton* frmListPanel::Button(const char* name, const Event& click) {
    auto* button = new FittedButton(this);
    button->setMinimumHeight(ButtonHeight);
    button->setStyleSheet("font-size: 14px; padding: 0 2px;");
    Wire(*button, name, click);
    return button;
}

void frmListPanel::Wire(QAbstractButton& button, const char* name, const Event& click) {
    button.setObjectName(name);
    button.setFocusPolicy(Qt::TabFocus); // a click leaves the keys where they are
    button.installEventFilter(this);
    connect(&button, &QAbstractButton::clicked, this, [this, click] { Do(click); });
}

void frmListPanel::Enable(QWidget& button, bool enabled, QWidget& next) {
    if (!enabled && button.hasFocus()) next.setFocus();
    button.setEnabled(enabled);
}

QTableView* frmListPanel::Grid(const char* name) {
    auto* grid = Named(new QTableView(this), name);
    grid->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    grid->verticalHeader()->setDefaultSectionSize(LineHeight);
    grid->horizontalHeader()->setSectionsClickable(true);
    grid->horizontalHeader()->setHighlightSections(false);
    grid->horizontalHeader()->setStyleSheet("font-size: 12px;");
    grid->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grid->installEventFilter(this);
    return grid;
}

bool frmListPanel::IsEnter(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

bool frmListPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut) pressedKeys.clear();
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
        return event->type() == QEvent::KeyPress ? KeyPressed(watched, key.key(), key.isAutoRepeat())
                                                 : KeyReleased(watched, key.key(), key.isAutoRepeat());
    }
    return QWidget::eventFilter(watched, event);
}

// One that is held since before it came here, as the Enter that closed a message, is no press.
bool frmListPanel::KeyPressed(QObject* watched, int key, bool isHeld) {
    const bool isPush = IsEnter(key) && qobject_cast<QAbstractButton*>(watched);
    if (!isPush && !TakesKey(watched, key)) return false;
    if (!isHeld) pressedKeys.insert(key);
    return true;
}

bool frmListPanel::KeyReleased(QObject* watched, int key, bool isHeld) {
    if (!pressedKeys.count(key)) return false;
    const bool isStep = key == Qt::Key_Up || key == Qt::Key_Down;
    if (isHeld && !isStep) return true;
    if (!isHeld) pressedKeys.erase(key);
    if (auto* button = qobject_cast<QAbstractButton*>(watched))
        button->click();
    else
        KeyDone(watched, key);
    return true;
}

} // namespace ornivane
