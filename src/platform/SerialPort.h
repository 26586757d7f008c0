#pragma once

#include <functional>
#include <string>

namespace ornivane {

// What a serial port tells: bytes wait, the line was held in the break state, or anything else that is no
// data (a hang-up, a line or device error).
enum class SerialEvent { Receive, Break, Other };

// A serial line by its number, 1 to 20. The callback runs on the one thread of the program, never inside a
// call of this interface.
class SerialPort {
public:
    virtual ~SerialPort() = default;

    // Settings as "4800,n,8,1": baud rate, parity, data bits, stop bits.
    virtual void SetSettings(const std::string& settings) = 0;
    // RuntimeError FileNotFound when there is no such port, PermissionDenied when it may not be opened (the
    // detail names the group to join), FileAlreadyOpen when another program holds it, DeviceError otherwise.
    // Opening an open port reopens it.
    virtual void Open(int number) = 0;
    virtual void Close() = 0;
    virtual bool IsOpen() const = 0;
    // All waiting bytes; empty when there are none.
    virtual std::string ReadAll() = 0;
    virtual void OnEvent(std::function<void(SerialEvent)> callback) = 0;
};

} // namespace ornivane
