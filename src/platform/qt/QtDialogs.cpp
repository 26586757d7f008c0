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
