#include "nav/frmStageButton.h"

#include <QGridLayout>
#include <algorithm>

#include "platform/qt/Events.h"
#include "platform/qt/LampButton.h"
#include "platform/qt/Named.h"

namespace ornivane {

frmStageButton::frmStageButton(QWidget* parent, EventGuard& guard, const char* icon,
                               const std::array<const char*, 3>& names,
                               const std::function<void(bool on, bool withText)>& click)
    : QWidget(parent) {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    for (std::size_t i = 0; i < names.size(); ++i) {
        auto* button = Named(new LampButton(this), names[i]);
        button->SetIcon(QString(":/icons/%1.svg").arg(icon));
        button->setFocusPolicy(Qt::TabFocus);
        button->SetLit(i > 0);
        button->SetStage({static_cast<int>(i), 2});
        // From off to on, from there to on with texts, and off again.
        guard.Connect(button, &QAbstractButton::clicked, [click, i] { click(i < 2, i == 1); });
        grid->addWidget(button, 0, 0);
        buttons[i] = button;
    }
    ShowStage(false, false);
}

void frmStageButton::ShowStage(bool on, bool withText) {
    const std::size_t stage = withText ? 2 : on ? 1 : 0;
    // The next one takes the focus before the present one is hidden, or a neighbour would get it.
    const bool hadFocus = std::count(buttons.begin(), buttons.end(), window()->focusWidget()) > 0;
    buttons[stage]->setVisible(true);
    if (hadFocus) buttons[stage]->setFocus();
    for (std::size_t i = 0; i < buttons.size(); ++i)
        if (i != stage) buttons[i]->setVisible(false);
}

void frmStageButton::SetTexts(const QString& caption, const std::array<QString, 3>& tips) {
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        buttons[i]->setText(caption);
        buttons[i]->setToolTip(tips[i]);
    }
}

} // namespace ornivane
