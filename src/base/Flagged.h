#pragma once

namespace ornivane {

// Sets a flag and gives it its former value back, also when an error passes.
class Flagged {
public:
    explicit Flagged(bool& target) : flag(target), before(target) { flag = true; }
    ~Flagged() { flag = before; }
    Flagged(const Flagged&) = delete;
    Flagged& operator=(const Flagged&) = delete;

private:
    bool& flag;
    bool before;
};

} // namespace ornivane
