#pragma once

#include <QLabel>
#include <QPointer>
#include <QStringList>

#include "platform/Dialogs.h"

namespace ornivane {

class NoticePlace;

// The bar at the bottom of the window, with all the lines of its texts: a new one joins those that stand, a
// click takes all of them away.
class QtNotice : public QLabel, public Notice {
public:
    explicit QtNotice(QWidget* parent = nullptr);
    // At the bottom of this window from now on; it has a layout.
    void StandIn(QWidget& window);
    void Show(const std::string& text) override;

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    void ShowOver(QWidget& dialog);
    void Dismiss();

    QStringList standing;
    NoticePlace* place = nullptr;
    QPointer<QtNotice> below; // in the window under the dialog over which this one stands
};

} // namespace ornivane
