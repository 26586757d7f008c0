#pragma once

#include <QLabel>
#include <QPointer>
#include <QStringList>
#include <functional>
#include <optional>

#include "platform/Dialogs.h"

class QPushButton;

namespace ornivane {

class NoticePlace;

// The bar at the bottom of the window, with all the lines of its texts: a new one joins those that stand, a
// click takes all of them away. What is offered with a button comes last and stays until it is clicked away
// by itself.
class QtNotice : public QLabel, public Notice {
public:
    explicit QtNotice(QWidget* parent = nullptr);
    ~QtNotice() override;
    // At the bottom of this window from now on; it has a layout.
    void StandIn(QWidget& window);
    void Show(const std::string& text) override;
    // The button is reached by mouse, finger, Tab and its letter with Alt, and never takes the focus by
    // itself.
    void Offer(const std::string& text, const std::string& button,
               const std::function<void()>& press) override;
    void Withdraw() override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Offered {
        QString Text, Button;
        std::function<void()> Press;
    };
    void Join(const QString& text);
    void ShowTexts();
    void ShowOver(QWidget& dialog);
    void Dismiss();
    void MakeButton();
    void ShowButton(bool shows);
    void ShowOffer();
    void Press();

    QStringList standing;
    NoticePlace* place = nullptr; // none where a layout places it
    QPointer<QtNotice> below;     // in the window under the dialog over which this one stands
    QPushButton* cmdNotice = nullptr;
    QPointer<QWidget> focusBefore; // where the keys were before Tab led to the button
    std::optional<Offered> offered;
};

} // namespace ornivane
