#include "platform/qt/QtNotice.h"

#include <QMouseEvent>

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
}

void QtNotice::mousePressEvent(QMouseEvent* event) {
    hide();
    event->accept();
}

} // namespace ornivane
