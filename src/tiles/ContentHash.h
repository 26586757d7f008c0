#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <xxhash.h>

namespace ornivane {

// The hash of bytes that come in pieces.
class ContentHash {
public:
    ContentHash() { XXH3_64bits_reset(state.get()); }
    void Add(const void* bytes, std::size_t count) { XXH3_64bits_update(state.get(), bytes, count); }
    std::uint64_t Value() const { return XXH3_64bits_digest(state.get()); }

private:
    struct Free {
        void operator()(XXH3_state_t* of) const { XXH3_freeState(of); }
    };
    std::unique_ptr<XXH3_state_t, Free> state{XXH3_createState()};
};

} // namespace ornivane
