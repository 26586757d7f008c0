#pragma once

#include <QMouseEvent>
#include <QPointer>
#include <QWidget>

namespace ornivane {

// The second press of a double click counts only where the first one was, in the whole application. The first
// may have closed what it hit, a message or the name of the next chart; the second would then drag, step or
// choose on what lay below. Buttons that take each other's place still follow each other as fast as one
// clicks.
class SecondClickFilter : public QObject {
public:
    // Works from here on.
    explicit SecondClickFilter(QObject& application);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool IsPassedOn(const QWidget& widget, const QMouseEvent& press) const;
    bool Refuses(const QWidget& widget, const QMouseEvent& press) const;
    bool Pressed(QWidget& widget, const QMouseEvent& press);

    struct Press {
        QPointer<QWidget> Widget, Window; // gone when it is deleted
        bool WasHere = false;             // a press was seen
        quint64 Timestamp = 0;
        Qt::MouseButton Button = Qt::NoButton;
        QPointF At; // of the screen
    };
    Press last;
    QPointer<QWidget> refused; // until it is let go
};

} // namespace ornivane
