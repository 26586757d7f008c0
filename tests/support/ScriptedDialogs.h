#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Dialogs.h"

namespace ornivane {

// Writes down what was shown and asked, and answers as told.
struct ScriptedDialogs : Dialogs {
    std::vector<std::string> Shown; // "title|text"; also the questions; "|prompt" of an input box
    std::string Details;            // of the last message that had some
    bool Answer = false;            // of AskYesNo
    std::deque<std::string> Inputs; // of InputBox, one after another; then cancelled
    std::optional<std::filesystem::path> File;
    std::optional<FileQuestion> FileAsked; // the last one

    void Message(const std::string& title, const std::string& text) override {
        Shown.push_back(title + "|" + text);
    }
    void MessageWithDetails(const std::string& title, const std::string& text,
                            const std::string& details) override {
        Message(title, text);
        Details = details;
    }
    bool AskYesNo(const std::string& title, const std::string& text) override {
        Message(title, text);
        return Answer;
    }
    std::string InputBox(const std::string& prompt) override {
        Message({}, prompt);
        if (Inputs.empty()) return {};
        const std::string input = Inputs.front();
        Inputs.pop_front();
        return input;
    }
    std::optional<std::filesystem::path> OpenFile(const FileQuestion& question) override {
        FileAsked = question;
        return File;
    }
    std::optional<std::filesystem::path> SaveFile(const FileQuestion& question) override {
        return OpenFile(question);
    }
};

} // namespace ornivane
