#include "platform/qt/QtNotice.h"

#include <QApplication>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <algorithm>

#include "platform/qt/EnterKey.h"

namespace ornivane {

namespace {

// Pixels.
constexpr int Margin = 8, LeastHeight = 44;
constexpr int LeastButtonWidth = 150, ButtonGap = 2; // for gloves

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

void QtNotice::MakeButton() {
    cmdNotice = new QPushButton(this);
    cmdNotice->setObjectName("cmdNotice");
    cmdNotice->setFocusPolicy(Qt::TabFocus);
    cmdNotice->setAutoDefault(false);
    cmdNotice->hide();
    connect(cmdNotice, &QPushButton::clicked, this, [this] { Press(); });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* before, QWidget* now) {
        if (now == cmdNotice) focusBefore = before;
    });
    new EnterKey(*cmdNotice, [this] { cmdNotice->click(); });
}

void QtNotice::Show(const std::string& text) {
    ShowButton(false);
    setText(QString::fromStdString(text));
    show();
    // A modal dialog hides the window's bar and takes its clicks.
    QWidget* dialog = QApplication::activeModalWidget();
    if (dialog && !dialog->isAncestorOf(this) && !qobject_cast<QMessageBox*>(dialog)) ShowOver(*dialog);
}

void QtNotice::Offer(const std::string& text, const std::string& button, std::function<void()> press) {
    offered = {QString::fromStdString(text), QString::fromStdString(button), std::move(press)};
    ShowOffer();
}

void QtNotice::ShowOffer() {
    setText(offered->Text);
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
    if (stands) hide();
}

void QtNotice::Press() {
    const auto press = offered ? offered->Press : nullptr; // which ends the offer
    if (press) press();
}

void QtNotice::ShowOver(QWidget& dialog) {
    auto* over = dialog.findChild<QtNotice*>(objectName(), Qt::FindDirectChildrenOnly);
    if (!over) over = new QtNotice(&dialog);
    over->below = this;
    over->ShowButton(false);
    over->setText(text());
    const int height = std::max(over->minimumHeight(), over->heightForWidth(dialog.width()));
    over->setGeometry(0, dialog.height() - height, dialog.width(), height);
    over->raise();
    over->show();
}

// A text that stood over an offer gives it back.
void QtNotice::mousePressEvent(QMouseEvent* event) {
    const bool wasText = !cmdNotice->isVisibleTo(this);
    if (offered && wasText) {
        ShowOffer();
    } else {
        Withdraw();
        hide();
    }
    if (below) below->hide();
    event->accept();
}

} // namespace ornivane
