#pragma once

#include <QWidget>
#include <functional>
#include <set>
#include <type_traits>

#include "base/Language.h"
#include "planning/PlanEffects.h"

class QAbstractButton;
class QPushButton;
class QTableView;

namespace ornivane {

// What the panels of planning's lists have in common: events that end by showing the state, and keys that act
// when they are let go. A key counts only where it was pressed too: the Enter that closed a message or a list
// is let go over another control, which must not take it for its own.
// The component that a panel shows must outlive it: a form that owns both deletes the panel first.
class frmListPanel : public QWidget {
    Q_OBJECT

public:
    using Event = std::function<PlanEffects()>;

    virtual void ApplyLanguage() = 0;

protected:
    // `toRun`: runs an event, acts on its effects, and shows the state of the screen.
    frmListPanel(QWidget* parent, const Language& texts, std::function<void(const Event&)> toRun);

    // Also an event without a result.
    template <typename Any>
    void Do(const Any& event) {
        run([&] {
            if constexpr (std::is_void_v<decltype(event())>)
                return event(), PlanEffects();
            else
                return event();
        });
    }
    QPushButton* Button(const char* name, const Event& click);
    void Wire(QAbstractButton& button, const char* name, const Event& click);
    // Out of reach, the button passes the keys on.
    static void Enable(QWidget& button, bool enabled, QWidget& next);
    QTableView* Grid(const char* name);
    QString Text(const char* german, const char* english) const { return language.Text(german, english); }
    bool eventFilter(QObject* watched, QEvent* event) override;

    // Whether a key is taken from a control, and what it does there. Enter presses the button that has the
    // focus; the arrows of a key that is held come again and again.
    virtual bool TakesKey(QObject* watched, int key) const = 0;
    virtual void KeyDone(QObject* watched, int key) = 0;
    static bool IsEnter(int key);

    const Language& language;

private:
    bool KeyPressed(QObject* watched, int key, bool isHeld);
    bool KeyReleased(QObject* watched, int key, bool isHeld);

    std::function<void(const Event&)> run;
    std::set<int> pressedKeys; // on the control that has the focus
};

} // namespace ornivane
