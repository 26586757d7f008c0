#include "platform/qt/QtSerialPort.h"

#include <QMetaObject>

#include <grp.h>
#include <linux/serial.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/RuntimeError.h"
#include "base/Strings.h"

namespace ornivane {

namespace {

// The group that may read and write the device; empty when there is none, or when it is no group to join.
std::string GroupToJoin(const std::filesystem::path& device) {
    struct stat status {};
    if (stat(device.c_str(), &status) != 0 || (status.st_mode & S_IRGRP) == 0 || status.st_gid == 0)
        return {};
    const struct group* owner = getgrgid(status.st_gid);
    return owner == nullptr ? std::string() : owner->gr_name;
}

} // namespace

QtSerialPort::QtSerialPort(PortDevices portDevices) : devices(std::move(portDevices)) {
    connect(&port, &QSerialPort::readyRead, this, &QtSerialPort::TakeReadyRead);
    connect(&port, &QSerialPort::errorOccurred, this, &QtSerialPort::TakeError);
}

QtSerialPort::~QtSerialPort() { Close(); }

void QtSerialPort::SetSettings(const std::string& newSettings) {
    settings = newSettings;
    if (port.isOpen()) ApplySettings();
}

// Baud rate, parity, data bits, stop bits. No handshaking; what is not understood stays at n, 8, 1.
void QtSerialPort::ApplySettings() {
    const std::vector<std::string> words = Split(settings, ",");
    const auto word = [&](std::size_t i) {
        return i < words.size() ? QString::fromStdString(words[i]) : QString();
    };
    if (const int baud = word(0).toInt(); baud > 0) port.setBaudRate(baud);
    port.setParity(word(1) == "e"   ? QSerialPort::EvenParity
                   : word(1) == "o" ? QSerialPort::OddParity
                                    : QSerialPort::NoParity);
    port.setDataBits(word(2) == "7" ? QSerialPort::Data7 : QSerialPort::Data8);
    port.setStopBits(word(3) == "2" ? QSerialPort::TwoStop : QSerialPort::OneStop);
    port.setFlowControl(QSerialPort::NoFlowControl);
}

void QtSerialPort::Open(int number) {
    Close();
    const auto device = devices.DeviceOf(number);
    if (!device) throw RuntimeError(ErrorNumber::FileNotFound, "COM" + std::to_string(number));
    port.setPortName(QString::fromStdString(device->string()));
    ApplySettings();
    // A receiver is only listened to, so the right to read is enough.
    if (!port.open(QIODevice::ReadOnly)) ThrowOpenError(*device);
    breaksSeen = BreakCount();
}

void QtSerialPort::ThrowOpenError(const std::filesystem::path& device) const {
    const QSerialPort::SerialPortError error = port.error();
    if (error == QSerialPort::DeviceNotFoundError)
        throw RuntimeError(ErrorNumber::FileNotFound, device.string());
    // QSerialPort calls it a permission error as well when another program holds the device.
    if (error == QSerialPort::PermissionError && access(device.c_str(), R_OK) != 0)
        throw RuntimeError(ErrorNumber::PermissionDenied, GroupToJoin(device));
    if (error == QSerialPort::PermissionError)
        throw RuntimeError(ErrorNumber::FileAlreadyOpen, device.string());
    throw RuntimeError(ErrorNumber::DeviceError, device.string() + ": " + port.errorString().toStdString());
}

void QtSerialPort::Close() {
    ++connection;
    receiveUnderWay = false;
    rest.clear();
    if (port.isOpen()) port.close();
}

std::string QtSerialPort::ReadAll() {
    std::string bytes = std::exchange(rest, {});
    if (port.isOpen()) bytes += port.readAll().toStdString();
    return bytes;
}

void QtSerialPort::TakeReadyRead() {
    if (const unsigned breaks = BreakCount(); breaks != breaksSeen) {
        breaksSeen = breaks;
        Tell(SerialEvent::Break);
    }
    if (receiveUnderWay) return;
    receiveUnderWay = true;
    Tell(SerialEvent::Receive);
}

void QtSerialPort::TakeError(QSerialPort::SerialPortError error) {
    // Opening and setting up report by exception.
    if (!port.isOpen() || (error != QSerialPort::ReadError && error != QSerialPort::ResourceError)) return;
    rest += port.readAll().toStdString();
    port.close();
    Tell(SerialEvent::Other);
}

void QtSerialPort::Tell(SerialEvent event) {
    QMetaObject::invokeMethod(
        this,
        [this, event, told = connection] {
            if (told != connection) return;
            if (event == SerialEvent::Receive) receiveUnderWay = false;
            if (callback) callback(event);
        },
        Qt::QueuedConnection);
}

// How often the line was held in the break state since the machine started; 0 where the device cannot tell. A
// break always comes with a byte, so looking whenever bytes come is enough.
unsigned QtSerialPort::BreakCount() const {
    struct serial_icounter_struct counters {};
    if (!port.isOpen() || ioctl(port.handle(), TIOCGICOUNT, &counters) != 0) return 0;
    return static_cast<unsigned>(counters.brk);
}

} // namespace ornivane
