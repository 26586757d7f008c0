#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Dialogs.h"

namespace ornivane {

// A notice whose button a test presses. Text is what stands, empty when nothing does.
struct PressedNotice : Notice {
    std::string Text;
    std::vector<std::string> Shown; // all texts without a button, in their order
    std::function<void()> OnPress;  // empty without a button

    void Show(const std::string& text) override {
        Text = text;
        OnPress = nullptr;
        Shown.push_back(text);
    }
    void Offer(const std::string& text, const std::string& button,
               const std::function<void()>& press) override {
        Text = text + " [" + button + "]";
        OnPress = press;
    }
    void Withdraw() override {
        Text.clear();
        OnPress = nullptr;
    }
    // False when there is no button.
    bool Press() {
        const auto press = OnPress; // a press ends the offer
        if (press) press();
        return static_cast<bool>(press);
    }
};

} // namespace ornivane
