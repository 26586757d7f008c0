#include "probe/Probe.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QLocalSocket>
#include <QMainWindow>
#include <QMessageBox>
#include <QMouseEvent>
#include <QProgressBar>
#include <map>
#include <vector>

namespace ornivane {

namespace {

// The one that is seen comes first where several have the name; "outer/inner" is the inner one of that outer.
QWidget* Named(const QString& name) {
    const auto slash = name.indexOf('/');
    if (slash > 0) {
        QWidget* outer = Named(name.left(slash));
        return outer ? outer->findChild<QWidget*>(name.mid(slash + 1)) : nullptr;
    }
    QWidget* found = nullptr;
    for (QWidget* widget : QApplication::allWidgets())
        if (widget->objectName() == name && (!found || widget->isVisible())) found = widget;
    return found;
}

QWidget* MainWindow() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (qobject_cast<QMainWindow*>(window)) return window;
    return nullptr;
}

QString CurrentRow(const QAbstractItemView& view) {
    const QModelIndex current = view.currentIndex();
    QStringList cells;
    for (int column = 0; current.isValid() && column < view.model()->columnCount(); ++column)
        cells += current.siblingAtColumn(column).data().toString();
    return cells.join(' ');
}

QString TextOf(QWidget* widget) {
    if (auto* view = qobject_cast<QAbstractItemView*>(widget)) return CurrentRow(*view) + QString("");
    if (auto* box = qobject_cast<QMessageBox*>(widget))
        return box->windowTitle() + "|" + box->text() +
               (box->informativeText().isEmpty() ? QString() : "|" + box->informativeText());
    if (auto* label = qobject_cast<QLabel*>(widget)) return label->text();
    if (auto* edit = qobject_cast<QLineEdit*>(widget)) return edit->text();
    if (auto* combo = qobject_cast<QComboBox*>(widget)) return combo->currentText();
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) return button->text();
    if (auto* slider = qobject_cast<QAbstractSlider*>(widget)) return QString::number(slider->value());
    if (auto* bar = qobject_cast<QProgressBar*>(widget)) return QString::number(bar->value());
    return widget->windowTitle();
}

const std::map<QString, std::vector<QEvent::Type>> MouseCommands{
    {"press", {QEvent::MouseButtonPress}},
    {"move", {QEvent::MouseMove}},
    {"release", {QEvent::MouseButtonRelease}},
    {"click", {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}},
    {"doubleclick",
     {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
      QEvent::MouseButtonRelease}}};

void Mouse(QWidget* widget, QEvent::Type type, const QPointF& at, Qt::MouseButton button) {
    const bool isMove = type == QEvent::MouseMove;
    QMouseEvent event(type, at, widget->mapToGlobal(at), isMove ? Qt::NoButton : button,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : button, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

QPointF PointIn(const QStringList& words, int from, QWidget* widget) {
    if (words.size() < from + 2) return QPointF(widget->rect().center());
    return {words[from].toDouble(), words[from + 1].toDouble()};
}

void Press(QWidget* widget, const QString& name) {
    const QKeyCombination key = QKeySequence(name)[0];
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key.key(), key.keyboardModifiers());
        QApplication::sendEvent(widget, &event);
    }
}

QString Texts() {
    QJsonObject texts;
    for (QWidget* widget : QApplication::allWidgets())
        if (!widget->objectName().isEmpty() && widget->isVisible())
            texts[widget->objectName()] = TextOf(widget);
    return QString::fromUtf8(QJsonDocument(texts).toJson(QJsonDocument::Compact));
}

} // namespace

Probe::Probe(const QString& socket) {
    QLocalServer::removeServer(socket);
    server.listen(socket);
    connect(&server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* peer = server.nextPendingConnection()) {
            connect(peer, &QLocalSocket::readyRead, this, [this, peer] { Serve(peer); });
            connect(peer, &QLocalSocket::disconnected, peer, &QObject::deleteLater);
        }
    });
}

// A command that opens a dialog answers when it closes; whoever asked may be gone by then.
void Probe::Serve(const QPointer<QLocalSocket>& peer) {
    while (peer && peer->canReadLine()) {
        QString answer = Answer(QString::fromUtf8(peer->readLine()).trimmed());
        answer.replace('\\', "\\\\").replace('\n', "\\n");
        if (!peer) return;
        peer->write(answer.toUtf8() + '\n');
        peer->flush();
    }
}

QString Probe::Answer(const QString& line) {
    const QStringList words = line.split(' ');
    const QString& command = words[0];
    QString done = ActOnWindow(command, words);
    if (!done.isEmpty()) return done;
    QWidget* widget = words.size() > 1 ? Named(words[1]) : nullptr;
    if (!widget) return "error: no widget " + words.value(1);
    const QString value = Ask(command, widget, words);
    return value.isNull() ? Act(command, widget, words) : value;
}

QString Probe::ActOnWindow(const QString& command, const QStringList& words) {
    if (command == "texts") return Texts();
    QWidget* window = MainWindow();
    if (command == "quit") {
        QCoreApplication::quit();
        return "ok";
    }
    if (command == "grab") {
        QWidget* target = words.size() > 2 ? Named(words[2]) : window;
        return target && target->grab().save(words.value(1), "PNG") ? "ok" : "error: nothing to grab";
    }
    if (command == "menu") {
        QAction* action = window ? window->findChild<QAction*>(words.value(1)) : nullptr;
        if (!action) return "error: no action " + words.value(1);
        action->trigger();
        return "ok";
    }
    if (command == "close" && words.size() == 1)
        return window && window->close() ? "ok" : "error: not closed";
    if (command == "resize" && window) {
        window->showNormal();
        window->resize(words.value(1).toInt(), words.value(2).toInt());
        return "ok";
    }
    return {};
}

QString Probe::Ask(const QString& command, QWidget* widget, const QStringList& words) {
    if (command == "text") return TextOf(widget) + QString("");
    if (command == "visible") return widget->isVisible() ? "yes" : "no";
    if (command == "enabled") return widget->isEnabled() ? "yes" : "no";
    if (command == "tooltip") return widget->toolTip() + QString("");
    if (command == "property")
        return widget->property(words.value(2).toLatin1().constData()).toString() + QString("");
    return {};
}

QString Probe::Act(const QString& command, QWidget* widget, const QStringList& words) {
    const Qt::MouseButton button = words.last() == "right" ? Qt::RightButton : Qt::LeftButton;
    const QString rest = words.mid(2).join(' ');
    if (const auto found = MouseCommands.find(command); found != MouseCommands.end()) {
        const QPointF at = PointIn(words, 2, widget);
        for (const auto type : found->second) Mouse(widget, type, at, button);
    } else if (command == "hover") {
        Mouse(widget, QEvent::MouseMove, PointIn(words, 2, widget), Qt::NoButton);
    } else if (command == "key") {
        Press(widget, rest);
    } else if (command == "type") {
        for (const QChar c : rest) {
            QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
            QApplication::sendEvent(widget, &event);
        }
    } else if (auto* combo = qobject_cast<QComboBox*>(widget); combo && command == "select") {
        const int index = combo->findText(rest);
        if (index < 0) return "error: no entry " + rest;
        combo->setCurrentIndex(index);
        emit combo->activated(index);
    } else if (auto* slider = qobject_cast<QAbstractSlider*>(widget); slider && command == "slider") {
        slider->setValue(rest.toInt());
    } else {
        return "error: cannot " + command + " " + words.value(1);
    }
    return "ok";
}

} // namespace ornivane
