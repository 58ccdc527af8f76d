#include "JetFormat.h"

#include <array>
#include <numeric>
#include <utility>

namespace odbc::jet {

void maskHeader(std::span<std::uint8_t> page, std::size_t maskedSize) {
    constexpr std::array<std::uint8_t, 4> key{0xC7, 0xDA, 0x39, 0x6B}; // RC4, the same in every file
    std::array<std::uint8_t, 256> state;
    std::iota(state.begin(), state.end(), std::uint8_t{0});
    std::uint8_t j = 0;
    for (std::size_t i = 0; i < state.size(); ++i) {
        j = static_cast<std::uint8_t>(j + state[i] + key[i % key.size()]);
        std::swap(state[i], state[j]);
    }
    std::uint8_t i = 0;
    j = 0;
    for (std::uint8_t& byte : page.subspan(header::kMasked, maskedSize)) {
        j = static_cast<std::uint8_t>(j + state[++i]);
        std::swap(state[i], state[j]);
        byte ^= state[static_cast<std::uint8_t>(state[i] + state[j])];
    }
}

} // namespace odbc::jet
