#include "platform/qt/QtDialogs.h"

#include <QInputDialog>
#include <QMessageBox>
#include <QStringList>

#include "base/Paths.h"

namespace ornivane {

void QtDialogs::Message(const std::string& title, const std::string& text) {
    const Box box{QString::fromStdString(title), QString::fromStdString(text)};
    if (waiting.contains(box)) return;
    waiting.enqueue(box);
    if (!standing) ShowNext();
}

void QtDialogs::ShowNext() {
    if (waiting.isEmpty()) return;
    standing = Make(waiting.head());
    QObject::connect(standing, &QMessageBox::finished, standing, [this] {
        waiting.dequeue();
        standing = nullptr;
        ShowNext();
    });
    standing->open();
}

QMessageBox* QtDialogs::Make(const Box& box) {
    auto* made = new QMessageBox(QMessageBox::NoIcon, box.first, box.second, QMessageBox::Ok, parent);
    made->setObjectName("messageBox");
    made->setTextFormat(Qt::PlainText); // a name is never markup
    made->setAttribute(Qt::WA_DeleteOnClose);
    return made;
}

void QtDialogs::MessageBeside(const std::string& title, const std::string& text) {
    const Box box{QString::fromStdString(title), QString::fromStdString(text)};
    if (beside) {
        beside->setText(box.second);
        return;
    }
    beside = Make(box);
    beside->setModal(false);
    beside->setAttribute(Qt::WA_ShowWithoutActivating); // the keys stay where they are
    beside->show();
}

void QtDialogs::MessageAndWait(const std::string& title, const std::string& text) {
    MessageWithDetails(title, text, {});
}

void QtDialogs::MessageWithDetails(const std::string& title, const std::string& text,
                                   const std::string& details) {
    QMessageBox box(QMessageBox::NoIcon, QString::fromStdString(title), QString::fromStdString(text),
                    QMessageBox::Ok, parent);
    box.setObjectName("messageBox");
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(QString::fromStdString(details));
    box.exec();
}

bool QtDialogs::AskYesNo(const std::string& title, const std::string& text) {
    QMessageBox box(QMessageBox::Question, QString::fromStdString(title), QString::fromStdString(text),
                    QMessageBox::Yes | QMessageBox::No, parent);
    box.setObjectName("questionBox");
    box.setTextFormat(Qt::PlainText);
    return box.exec() == QMessageBox::Yes;
}

std::string QtDialogs::InputBox(const std::string& prompt) {
    QInputDialog box(parent);
    box.setObjectName("inputBox");
    box.setWindowTitle("Ornivane GPS");
    box.setLabelText(QString::fromStdString(prompt));
    return box.exec() == QDialog::Accepted ? box.textValue().toStdString() : std::string();
}

// Qt's own dialog, not the desktop's: it is the same on every machine and can be driven by keys in tests.
std::optional<std::filesystem::path> QtDialogs::Ask(QFileDialog& dialog, const FileQuestion& question) {
    dialog.setObjectName("fileDialog");
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setWindowTitle(QString::fromStdString(question.Title));
    QStringList filters;
    for (const auto& filter : question.Filters)
        filters << QString::fromStdString(filter.Text + (filter.Text.find('(') == std::string::npos
                                                             ? " (" + filter.Pattern + ")"
                                                             : std::string()));
    dialog.setNameFilters(filters);
    if (question.Preselected < static_cast<std::size_t>(filters.size()))
        dialog.selectNameFilter(filters[static_cast<int>(question.Preselected)]);
    dialog.setDefaultSuffix(QString::fromStdString(question.DefaultExtension));
    if (DirExists(question.Start)) {
        dialog.setDirectory(QString::fromStdString(question.Start.string()));
    } else if (!question.Start.empty()) {
        dialog.setDirectory(QString::fromStdString(question.Start.parent_path().string()));
        dialog.selectFile(QString::fromStdString(question.Start.filename().string()));
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return std::filesystem::path(dialog.selectedFiles().front().toStdString());
}

std::optional<std::filesystem::path> QtDialogs::OpenFile(const FileQuestion& question) {
    QFileDialog dialog(parent);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return Ask(dialog, question);
}

std::optional<std::filesystem::path> QtDialogs::SaveFile(const FileQuestion& question) {
    QFileDialog dialog(parent);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    return Ask(dialog, question);
}

} // namespace ornivane
