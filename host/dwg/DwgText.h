// Texts of AC1015 files: bytes of the drawing's code page; other characters as \U+XXXX.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

class DwgTextCodec {
public:
    // The number as the file header holds it (Open Design description of DWG, appendix on code pages):
    // 28 Windows-1250, 29 1251, 30 1252 and so on; an unknown number is taken as 1252.
    explicit DwgTextCodec(int codePage);
    int codePage() const { return mCodePage; }
    std::wstring decode(std::string_view bytes) const;
    std::string encode(std::wstring_view text) const;
    static constexpr int kAnsi1250 = 28;

private:
    int mCodePage;
    bool mMultiByte = false;
    std::array<wchar_t, 256> mToWide{};
    std::array<std::uint8_t, 0x10000> mToByte{}; // 0: not in the code page (but for NUL itself)
};

// A codec of that page that lives as long as the program: making one is costly.
const DwgTextCodec& dwgTextCodec(int codePage);
