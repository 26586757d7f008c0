#pragma once

#include <QLabel>
#include <QPointer>
#include <functional>
#include <optional>

#include "platform/Dialogs.h"

class QPushButton;

namespace ornivane {

// The bar at the bottom of the window. A new text replaces the one that stands; a click takes it away.
class QtNotice : public QLabel, public Notice {
public:
    explicit QtNotice(QWidget* parent = nullptr);
    void Show(const std::string& text) override;
    // The button is reached by mouse, finger, Tab and its letter with Alt, and never takes the focus by
    // itself.
    void Offer(const std::string& text, const std::string& button, std::function<void()> press) override;
    void Withdraw() override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Offered {
        QString Text, Button;
        std::function<void()> Press;
    };
    void ShowOver(QWidget& dialog);
    void MakeButton();
    void ShowButton(bool shows);
    void ShowOffer();
    void Press();

    QPointer<QtNotice> below; // in the window under the dialog over which this one stands
    QPushButton* cmdNotice = nullptr;
    QPointer<QWidget> focusBefore; // where the keys were before Tab led to the button
    std::optional<Offered> offered;
};

} // namespace ornivane
