#include "platform/qt/QtDialogs.h"

#include <QMessageBox>

namespace ornivane {

void QtDialogs::Message(const std::string& title, const std::string& text) {
    const Box box{QString::fromStdString(title), QString::fromStdString(text)};
    if (waiting.contains(box)) return;
    waiting.enqueue(box);
    if (!standing) ShowNext();
}

void QtDialogs::ShowNext() {
    if (waiting.isEmpty()) return;
    standing = new QMessageBox(QMessageBox::NoIcon, waiting.head().first, waiting.head().second,
                               QMessageBox::Ok, parent);
    standing->setObjectName("messageBox");
    standing->setTextFormat(Qt::PlainText); // a name is never markup
    standing->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(standing, &QMessageBox::finished, standing, [this] {
        waiting.dequeue();
        standing = nullptr;
        ShowNext();
    });
    standing->open();
}

void QtDialogs::MessageAndWait(const std::string& title, const std::string& text) {
    QMessageBox box(QMessageBox::NoIcon, QString::fromStdString(title), QString::fromStdString(text),
                    QMessageBox::Ok, parent);
    box.setObjectName("messageBox");
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

bool QtDialogs::AskYesNo(const std::string& title, const std::string& text) {
    QMessageBox box(QMessageBox::Question, QString::fromStdString(title), QString::fromStdString(text),
                    QMessageBox::Yes | QMessageBox::No, parent);
    box.setObjectName("questionBox");
    box.setTextFormat(Qt::PlainText);
    return box.exec() == QMessageBox::Yes;
}

} // namespace ornivane
