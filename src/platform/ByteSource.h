#pragma once

#include <functional>
#include <string>

#include "platform/SerialPort.h"

namespace ornivane {

// Where a receiver's bytes come from: a serial port that the user chose, later a network address or a file.
// The callback runs on the one thread of the program, never inside a call of this interface.
class ByteSource {
public:
    virtual ~ByteSource() = default;

    // Takes what the user has chosen since; an open source stays as it is until it is opened anew.
    virtual void TakeSettings() = 0;
    // Opens it, also when it is open. False when that fails; OpenFailure says why, for the user.
    virtual bool Open() = 0;
    virtual std::string OpenFailure() const = 0;
    virtual void Close() = 0;
    virtual bool IsOpen() const = 0;
    // All waiting bytes; empty when there are none.
    virtual std::string ReadAll() = 0;
    virtual void OnEvent(std::function<void(SerialEvent)> callback) = 0;
    // As messages call it, "COM 7".
    virtual std::string Name() const = 0;
};

} // namespace ornivane
