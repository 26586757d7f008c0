#pragma once

#include <QString>
#include <QWidget>
#include <array>
#include <functional>

namespace ornivane {

class EventGuard;
class LampButton;

// A switch of three stages: off, on, on with texts. Three buttons lie over each other; the visible one shows
// the stage, and a click on it leads to the next. Two dots show the stage without colour.
class frmStageButton : public QWidget {
    Q_OBJECT

public:
    // `click`: leads to the next stage.
    frmStageButton(QWidget* parent, EventGuard& guard, const char* icon,
                   const std::array<const char*, 3>& names,
                   const std::function<void(bool on, bool withText)>& click);

    void ShowStage(bool on, bool withText);
    void SetTexts(const QString& caption, const std::array<QString, 3>& tips);

private:
    std::array<LampButton*, 3> buttons{};
};

} // namespace ornivane
