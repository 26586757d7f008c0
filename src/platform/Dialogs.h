#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace ornivane {

// The title of boxes that have none of their own.
inline constexpr const char* MessageTitle = "Ornivane GPS";

// What a file dialog shows first and lets the user choose from.
struct FileQuestion {
    struct Filter {
        std::string Text;    // "All files (*.*)"
        std::string Pattern; // "*.*"
    };
    std::string Title;
    std::filesystem::path Start; // a folder, or the name suggested for saving
    std::vector<Filter> Filters;
    std::size_t Preselected = 0;  // place in Filters
    std::string DefaultExtension; // without the point; added to a name that has none when saving
};

class Dialogs {
public:
    virtual ~Dialogs() = default;
    // A message with an OK button that does not stop the program: the call returns at once, the receiver goes
    // on being read. While a message stands, the same one is not shown again; others wait behind it.
    virtual void Message(const std::string& title, const std::string& text) = 0;
    // The same with a list below that may be long: the box stays on the screen.
    virtual void MessageWithList(const std::string& title, const std::string& text,
                                 const std::vector<std::string>& list) {
        std::string all = text;
        for (const std::string& line : list) all += "\n" + line;
        Message(title, all);
    }
    // The same as Message, and it keeps the user from nothing: the window under it can be used while it
    // stands.
    virtual void MessageBeside(const std::string& title, const std::string& text) { Message(title, text); }
    // Like Message, but the call returns when the user has answered: for the end of the program and questions
    // whose answer is needed.
    void MessageAndWait(const std::string& title, const std::string& text) {
        MessageWithDetails(title, text, {});
    }
    // The same with further text below, in smaller letters; that text may be empty.
    virtual void MessageWithDetails(const std::string& title, const std::string& text,
                                    const std::string& details) = 0;
    virtual bool AskYesNo(const std::string& title, const std::string& text) = 0;
    // One line of text under a prompt; empty when the user cancelled.
    virtual std::string InputBox(const std::string& prompt) = 0;
    // A file that exists; empty when the user cancelled.
    virtual std::optional<std::filesystem::path> OpenFile(const FileQuestion& question) = 0;
    // A file to write; the dialog has asked before an existing one is chosen. Empty when the user cancelled.
    virtual std::optional<std::filesystem::path> SaveFile(const FileQuestion& question) = 0;
};

// The non-blocking notice at the bottom of the window.
class Notice {
public:
    virtual ~Notice() = default;
    // Not repeated while the same text stands; goes away by a click.
    virtual void Show(const std::string& text) = 0;
    // The same with a button, & before the letter that presses it with Alt. A text that is shown later hides
    // it only as long as that one stands. A notice without buttons shows the text alone.
    virtual void Offer(const std::string& text, const std::string& /*button*/,
                       const std::function<void()>& /*press*/) {
        Show(text);
    }
    // What was offered goes; a text that stands over it stays.
    virtual void Withdraw() {}
};

class Progress {
public:
    virtual ~Progress() = default;
    virtual void SetValue(int percent) = 0; // shown at once
    virtual void SetVisible(bool visible) = 0;
};

} // namespace ornivane
