#pragma once

#include <QLocalServer>
#include <QObject>
#include <QPointer>
#include <QStringList>

class QLocalSocket;
class QWidget;

namespace ornivane {

// Answers one line for each line that comes in over a local socket. NAME is a widget's object name.
//   text NAME (of a grid: its current row) · visible NAME · enabled NAME · tooltip NAME
//   property NAME PROPERTY · texts
//   click/doubleclick NAME [X Y] [right] · press/move/release NAME X Y · key NAME KEY · type NAME TEXT
//   select NAME TEXT (combo box) · slider NAME VALUE · menu NAME (an action) · resize W H · grab FILE [NAME]
//   close · quit
// The answer is the value or "ok", or "error: ..." when there is no such widget.
class Probe : public QObject {
    Q_OBJECT

public:
    explicit Probe(const QString& socket);

private:
    void Serve(const QPointer<QLocalSocket>& peer);
    QString Answer(const QString& line);
    QString Ask(const QString& command, QWidget* widget, const QStringList& words);
    QString Act(const QString& command, QWidget* widget, const QStringList& words);
    QString ActOnWindow(const QString& command, const QStringList& words);

    QLocalServer server;
};

} // namespace ornivane
