#pragma once

#include <QObject>
#include <QSerialPort>

#include "platform/SerialPort.h"
#include "platform/qt/PortDevices.h"

namespace ornivane {

// A serial line on QSerialPort.
//
// Events are delivered from the event loop and never from inside the port's own signals: a handler may run a
// nested event loop (a box that waits for an answer), and inside its own signal the port would not read on.
// What the line does after Close or Open belongs to nobody and is dropped.
//
// When the other end hangs up (a pulled plug), QSerialPort repeats its error for ever: the port is closed at
// the first one and one event of the kind Other is told, after the bytes that came before it.
class QtSerialPort : public QObject, public SerialPort {
    Q_OBJECT

public:
    explicit QtSerialPort(PortDevices portDevices);
    ~QtSerialPort() override;

    void SetSettings(const std::string& settings) override;
    // For PermissionDenied the detail is the group that owns the device, empty when membership would not
    // help.
    void Open(int number) override;
    void Close() override;
    bool IsOpen() const override { return port.isOpen(); }
    std::string ReadAll() override;
    void OnEvent(std::function<void(SerialEvent)> handler) override { callback = std::move(handler); }

private:
    void TakeError(QSerialPort::SerialPortError error);
    void TakeReadyRead();
    void Tell(SerialEvent event);
    void ApplySettings();
    unsigned BreakCount() const;
    [[noreturn]] void ThrowOpenError(const std::filesystem::path& device) const;

    PortDevices devices;
    QSerialPort port;
    std::function<void(SerialEvent)> callback;
    std::string settings = "4800,n,8,1";
    std::string rest;             // came before the hang-up, not yet read
    bool receiveUnderWay = false; // a Receive is in the queue
    unsigned connection = 0;      // counts Open and Close
    unsigned breaksSeen = 0;
};

} // namespace ornivane
