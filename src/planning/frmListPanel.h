#pragma once

#include <QWidget>
#include <functional>
#include <set>

#include "common/Variablen.h"

class QAbstractButton;
class QPushButton;
class QTableView;

namespace ornivane {

class EventGuard;

// What the panels of planning's lists have in common: events that end by showing the state, and keys that act
// when they are let go. A key counts only where it was pressed too: the Enter that closed a message or a list
// is let go over another control, which must not take it for its own.
// The room that a panel shows must outlive it: a form that owns both deletes the panel first.
class frmListPanel : public QWidget {
    Q_OBJECT

public:
    virtual void ShowState() = 0;
    virtual void ApplyLanguage() = 0;

protected:
    // `changed` runs after each event, when the panel itself shows the state already.
    frmListPanel(QWidget* parent, const Variablen& shared, EventGuard& guard, std::function<void()> changed);

    void Do(const std::function<void()>& event);
    QPushButton* Button(const char* name, const std::function<void()>& click);
    void Wire(QAbstractButton& button, const char* name, const std::function<void()>& click);
    // Out of reach, the button passes the keys on.
    static void Enable(QWidget& button, bool enabled, QWidget& next);
    QTableView* Grid(const char* name);
    QString Text(const char* german, const char* english) const;
    bool eventFilter(QObject* watched, QEvent* event) override;

    // Whether a key is taken from a control, and what it does there. Enter presses the button that has the
    // focus; the arrows of a key that is held come again and again.
    virtual bool TakesKey(QObject* watched, int key) const = 0;
    virtual void KeyDone(QObject* watched, int key) = 0;
    static bool IsEnter(int key);

    const Variablen& shared;
    EventGuard& guard;

private:
    bool KeyPressed(QObject* watched, int key, bool isHeld);
    bool KeyReleased(QObject* watched, int key, bool isHeld);

    std::function<void()> changed;
    std::set<int> pressedKeys; // on the control that has the focus
};

} // namespace ornivane
