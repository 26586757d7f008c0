#include "platform/qt/QtNotice.h"

#include <QApplication>
#include <QMessageBox>
#include <QMouseEvent>
#include <algorithm>

namespace ornivane {

QtNotice::QtNotice(QWidget* parent) : QLabel(parent) {
    setObjectName("noticeBar");
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setMinimumHeight(44);
    setMargin(8);
    setToolTip(QString::fromUtf8("Klick blendet die Meldung aus · Click to dismiss"));
    hide();
}

void QtNotice::Show(const std::string& text) {
    setText(QString::fromStdString(text));
    show();
    // A modal dialog hides the window's bar and takes its clicks.
    QWidget* dialog = QApplication::activeModalWidget();
    if (dialog && !dialog->isAncestorOf(this) && !qobject_cast<QMessageBox*>(dialog)) ShowOver(*dialog);
}

void QtNotice::ShowOver(QWidget& dialog) {
    auto* over = dialog.findChild<QtNotice*>(objectName(), Qt::FindDirectChildrenOnly);
    if (!over) over = new QtNotice(&dialog);
    over->below = this;
    over->setText(text());
    const int height = std::max(over->minimumHeight(), over->heightForWidth(dialog.width()));
    over->setGeometry(0, dialog.height() - height, dialog.width(), height);
    over->raise();
    over->show();
}

void QtNotice::mousePressEvent(QMouseEvent* event) {
    hide();
    if (below) below->hide();
    event->accept();
}

} // namespace ornivane
