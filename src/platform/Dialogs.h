#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace ornivane {

class Dialogs {
public:
    virtual ~Dialogs() = default;
    // A message with an OK button that does not stop the program: the call returns at once, the receiver goes
    // on being read. While a message stands, the same one is not shown again; others wait behind it.
    virtual void Message(const std::string& title, const std::string& text) = 0;
    // The same, and it keeps the user from nothing: the window under it can be used while it stands.
    virtual void MessageBeside(const std::string& title, const std::string& text) { Message(title, text); }
    // Like Message, but the call returns when the user has answered: for the end of the program and questions
    // whose answer is needed.
    virtual void MessageAndWait(const std::string& title, const std::string& text) = 0;
    virtual bool AskYesNo(const std::string& title, const std::string& text) = 0;
};

// The non-blocking notice at the bottom of the window.
class Notice {
public:
    virtual ~Notice() = default;
    // Not repeated while the same text stands; goes away by a click.
    virtual void Show(const std::string& text) = 0;
};

class Progress {
public:
    virtual ~Progress() = default;
    virtual void SetValue(int percent) = 0; // shown at once
    virtual void SetVisible(bool visible) = 0;
};

} // namespace ornivane
