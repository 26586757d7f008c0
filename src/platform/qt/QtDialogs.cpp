#include "platform/qt/QtDialogs.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QInputDialog>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QStringList>
#include <algorithm>

#include "base/Paths.h"
#include "platform/qt/Named.h"

namespace ornivane {

namespace {

constexpr int NarrowestList = 400; // pixels
constexpr int MostLines = 10;      // of a list that show at once; the others are scrolled to

// Between the text and the button.
void AddList(QMessageBox& box, const QString& text) {
    auto* list = Named(new QPlainTextEdit(text), "list");
    list->setReadOnly(true);
    list->setTabChangesFocus(true);
    list->setMinimumWidth(NarrowestList);
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    QWidget* buttons = box.findChild<QDialogButtonBox*>();
    grid->removeWidget(buttons);
    grid->addWidget(list, grid->rowCount(), 0, 1, grid->columnCount());
    list->ensurePolished(); // its letters are those of the program from here on
    list->setFixedHeight((std::min(MostLines, list->blockCount()) + 1) * list->fontMetrics().lineSpacing());
    grid->addWidget(buttons, grid->rowCount(), 0, 1, grid->columnCount());
}

} // namespace

void QtDialogs::Message(const std::string& title, const std::string& text) {
    Show({QString::fromStdString(title), QString::fromStdString(text), {}});
}

void QtDialogs::MessageWithList(const std::string& title, const std::string& text,
                                const std::vector<std::string>& list) {
    QStringList lines;
    for (const std::string& line : list) lines << QString::fromStdString(line);
    Show({QString::fromStdString(title), QString::fromStdString(text), lines.join('\n')});
}

void QtDialogs::Show(const Box& box) {
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
    auto* made = Named(new QMessageBox(QMessageBox::NoIcon, box.Title, box.Text, QMessageBox::Ok, parent),
                       "messageBox");
    made->setTextFormat(Qt::PlainText); // a name is never markup
    made->setAttribute(Qt::WA_DeleteOnClose);
    if (!box.List.isEmpty()) AddList(*made, box.List);
    return made;
}

void QtDialogs::MessageBeside(const std::string& title, const std::string& text) {
    const Box box{QString::fromStdString(title), QString::fromStdString(text), {}};
    if (beside) return beside->setText(box.Text);
    beside = Make(box);
    beside->setModal(false);
    beside->setAttribute(Qt::WA_ShowWithoutActivating); // the keys stay where they are
    beside->show();
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
