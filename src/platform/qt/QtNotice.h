#pragma once

#include <QLabel>
#include <QPointer>

#include "platform/Dialogs.h"

namespace ornivane {

// The bar at the bottom of the window. A new text replaces the one that stands; a click takes it away.
class QtNotice : public QLabel, public Notice {
public:
    explicit QtNotice(QWidget* parent = nullptr);
    void Show(const std::string& text) override;

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    void ShowOver(QWidget& dialog);

    QPointer<QtNotice> below; // in the window under the dialog over which this one stands
};

} // namespace ornivane
