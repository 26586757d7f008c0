#pragma once

#include <QFileDialog>
#include <QPointer>
#include <QQueue>
#include <QWidget>

#include "platform/Dialogs.h"

class QMessageBox;

namespace ornivane {

class QtDialogs : public Dialogs {
public:
    // The window that boxes belong to; may come later than this.
    void SetWindow(QWidget* window) { parent = window; }

    void Message(const std::string& title, const std::string& text) override;
    void MessageWithList(const std::string& title, const std::string& text,
                         const std::vector<std::string>& list) override;
    void MessageBeside(const std::string& title, const std::string& text) override;
    void MessageWithDetails(const std::string& title, const std::string& text,
                            const std::string& details) override;
    bool AskYesNo(const std::string& title, const std::string& text) override;
    std::string InputBox(const std::string& prompt) override;
    std::optional<std::filesystem::path> OpenFile(const FileQuestion& question) override;
    std::optional<std::filesystem::path> SaveFile(const FileQuestion& question) override;

private:
    struct Box {
        QString Title, Text;
        QString List; // below the text; may be empty
        bool operator==(const Box&) const = default;
    };
    void Show(const Box& box);
    void ShowNext();
    QMessageBox* Make(const Box& box);
    std::optional<std::filesystem::path> Ask(QFileDialog& dialog, const FileQuestion& question);

    QPointer<QWidget> parent;
    QPointer<QMessageBox> standing, beside;
    QQueue<Box> waiting; // the first one is the one that stands
};

} // namespace ornivane
