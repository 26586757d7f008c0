#include "platform/qt/QtNotice.h"

#include <QApplication>
#include <QLayout>
#include <QMessageBox>
#include <QMouseEvent>

#include "platform/qt/NoticePlace.h"

namespace ornivane {

namespace {

constexpr int MostTexts = 3;
const QString Bullet = QString::fromUtf8("• ");
constexpr int LongestText = 400, LongestWord = 40; // characters

// A damaged value may be of any length and without a blank, where lines can break.
QString Readable(QString text) {
    if (text.size() > LongestText) text = text.left(LongestText) + QChar(0x2026);
    int word = 0;
    for (int i = 0; i < text.size(); ++i) {
        word = text[i].isSpace() ? 0 : word + 1;
        if (word <= LongestWord) continue;
        text.insert(i, QChar(0x200B)); // of no width
        word = 0;
    }
    return text;
}

QString Joined(const QStringList& texts) {
    return texts.size() == 1 ? texts.front() : Bullet + texts.join('\n' + Bullet);
}

// A modal dialog takes the clicks of the window behind it and may hide the bar there. A message box goes in a
// moment, and the bar is there then.
QWidget* DialogOver(const QWidget& notice) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        const bool isDialog = window->isModal() && !qobject_cast<QMessageBox*>(window);
        if (isDialog && window->isVisible() && window->layout() && !window->isAncestorOf(&notice))
            return window;
    }
    return nullptr;
}

} // namespace

QtNotice::QtNotice(QWidget* parent) : QLabel(parent) {
    setObjectName("noticeBar");
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setMinimumHeight(44);
    setMargin(8);
    setToolTip(QString::fromUtf8("Klick blendet die Meldung aus · Click to dismiss"));
    hide();
}

void QtNotice::StandIn(QWidget& window) { place = new NoticePlace(*this, window); }

// What has just happened comes last; the same text does not come twice.
void QtNotice::Show(const std::string& text) {
    const QString readable = Readable(QString::fromStdString(text));
    standing.removeAll(readable);
    standing.append(readable);
    if (standing.size() > MostTexts) standing.removeFirst();
    setText(Joined(standing));
    show();
    if (QWidget* dialog = DialogOver(*this)) ShowOver(*dialog);
}

void QtNotice::ShowOver(QWidget& dialog) {
    auto* over = dialog.findChild<QtNotice*>(objectName(), Qt::FindDirectChildrenOnly);
    if (!over) {
        over = new QtNotice(&dialog);
        over->StandIn(dialog);
    }
    over->below = this;
    QStringList texts = standing;
    over->setText(Joined(texts));
    over->show();
    // Older texts come to sight in the window when the dialog is closed.
    while (texts.size() > 1 && !over->place->HasRoom()) {
        texts.removeFirst();
        over->setText(Joined(texts));
    }
}

void QtNotice::Dismiss() {
    standing.clear();
    hide();
}

void QtNotice::mousePressEvent(QMouseEvent* event) {
    if (below) below->Dismiss();
    Dismiss();
    event->accept();
}

} // namespace ornivane
