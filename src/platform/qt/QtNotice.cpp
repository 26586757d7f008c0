#include "platform/qt/QtNotice.h"

#include <QApplication>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <algorithm>

#include "platform/qt/EnterKey.h"
#include "platform/qt/Named.h"
#include "platform/qt/NoticePlace.h"

namespace ornivane {

namespace {

constexpr int MostTexts = 3;
constexpr int Margin = 8, LeastHeight = 44;          // pixels
constexpr int LeastButtonWidth = 150, ButtonGap = 2; // pixels, for gloves
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
    if (texts.isEmpty()) return {};
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
    setMinimumHeight(LeastHeight);
    setMargin(Margin);
    setToolTip(QString::fromUtf8("Klick blendet die Meldung aus · Click to dismiss"));
    MakeButton();
    hide();
}

// A window that closes while it is destroyed still tells of the focus, when this is no notice any more.
QtNotice::~QtNotice() { disconnect(qApp, nullptr, this, nullptr); }

void QtNotice::MakeButton() {
    cmdNotice = Named(new QPushButton(this), "cmdNotice");
    cmdNotice->setFocusPolicy(Qt::TabFocus);
    cmdNotice->setAutoDefault(false);
    cmdNotice->hide();
    connect(cmdNotice, &QPushButton::clicked, this, [this] { Press(); });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* before, QWidget* now) {
        if (now == cmdNotice) focusBefore = before;
    });
    new EnterKey(*cmdNotice, [this] { cmdNotice->click(); });
}

void QtNotice::StandIn(QWidget& window) { place = new NoticePlace(*this, window); }

void QtNotice::Show(const std::string& text) {
    Join(Readable(QString::fromStdString(text)));
    ShowTexts();
    if (QWidget* dialog = DialogOver(*this)) ShowOver(*dialog);
}

// What has just happened comes last; the same text does not come twice.
void QtNotice::Join(const QString& text) {
    standing.removeAll(text);
    standing.append(text);
    if (standing.size() > MostTexts) standing.removeFirst();
}

void QtNotice::ShowTexts() {
    ShowButton(false);
    setText(Joined(standing));
    show();
}

void QtNotice::Offer(const std::string& text, const std::string& button, const std::function<void()>& press) {
    offered = {Readable(QString::fromStdString(text)), QString::fromStdString(button), press};
    ShowOffer();
}

void QtNotice::ShowOffer() {
    setText(Joined(standing + QStringList(offered->Text)));
    cmdNotice->setText(offered->Button);
    ShowButton(true);
    show();
}

// The text keeps clear of the button.
void QtNotice::ShowButton(bool shows) {
    if (!shows && cmdNotice->hasFocus() && focusBefore) focusBefore->setFocus();
    const QSize button = cmdNotice->sizeHint().expandedTo({LeastButtonWidth, 0});
    setMinimumHeight(shows ? std::max(LeastHeight, button.height() + 2 * ButtonGap) : LeastHeight);
    setContentsMargins(0, 0, shows ? button.width() + Margin : 0, 0);
    cmdNotice->setFixedWidth(button.width());
    cmdNotice->setVisible(shows);
    resizeEvent(nullptr);
}

void QtNotice::resizeEvent(QResizeEvent*) {
    cmdNotice->setGeometry(width() - cmdNotice->width() - ButtonGap, ButtonGap, cmdNotice->width(),
                           height() - 2 * ButtonGap);
}

void QtNotice::Withdraw() {
    const bool stands = cmdNotice->isVisibleTo(this);
    ShowButton(false);
    offered.reset();
    if (!stands) return; // a text that came later goes on standing
    setText(Joined(standing));
    if (standing.isEmpty()) hide();
}

void QtNotice::Press() {
    const auto press = offered ? offered->Press : nullptr; // which ends the offer
    if (press) press();
}

void QtNotice::ShowOver(QWidget& dialog) {
    auto* over = dialog.findChild<QtNotice*>(objectName(), Qt::FindDirectChildrenOnly);
    if (!over) {
        over = new QtNotice(&dialog);
        over->StandIn(dialog);
    }
    over->below = this;
    for (const QString& text : standing) over->Join(text);
    over->ShowTexts();
    // Older texts come to sight in the window when the dialog is closed.
    while (over->place && over->standing.size() > 1 && !over->place->HasRoom()) {
        over->standing.removeFirst();
        over->ShowTexts();
    }
}

// A text that stood over an offer gives it back.
void QtNotice::Dismiss() {
    const bool stood = !standing.isEmpty() || !cmdNotice->isVisibleTo(this);
    standing.clear();
    if (offered && stood) return ShowOffer();
    Withdraw();
    hide();
}

void QtNotice::mousePressEvent(QMouseEvent* event) {
    if (below) below->Dismiss();
    below = nullptr; // a click on what this one offers leaves the other in peace
    Dismiss();
    event->accept();
}

} // namespace ornivane
