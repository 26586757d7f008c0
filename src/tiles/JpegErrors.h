#pragma once

#include <cstddef>
#include <cstdio>

#include <csetjmp>
#include <jpeglib.h>
#include <string>

namespace ornivane {

// The decoder leaves by longjmp when it cannot go on; Try makes a return value of it. What runs in Try must
// have no object whose destructor matters.
class JpegErrors {
public:
    JpegErrors() {
        jpeg_std_error(&manager.Base);
        manager.Base.error_exit = [](j_common_ptr info) {
            std::longjmp(reinterpret_cast<Manager*>(info->err)->Jump, 1);
        };
        // Damage that the decoder can live with is counted and painted, as any other program does.
        manager.Base.output_message = [](j_common_ptr) {};
    }
    JpegErrors(const JpegErrors&) = delete;
    JpegErrors& operator=(const JpegErrors&) = delete;

    jpeg_error_mgr* Base() { return &manager.Base; }
    template <class Step>
    bool Try(Step&& step) {
        if (setjmp(manager.Jump) != 0) return false;
        step();
        return true;
    }
    // From within a callback of the decoder.
    [[noreturn]] void Leave() { std::longjmp(manager.Jump, 1); }
    std::string Text(j_common_ptr info) const {
        char text[JMSG_LENGTH_MAX] = {};
        manager.Base.format_message(info, text);
        return text;
    }

private:
    struct Manager {
        jpeg_error_mgr Base; // first: the decoder hands back its address
        std::jmp_buf Jump;
    } manager{};
};

} // namespace ornivane
