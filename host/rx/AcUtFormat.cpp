// Wide formatting by the API's rules, without regard to the process's locale.
#include "AcUtText.h"

#include <clocale>
#include <cstdio>
#include <vector>

#include <locale.h>

namespace {
// Numbers are written in the C locale even after a toolkit has set the user's.
class CLocaleScope {
public:
    CLocaleScope() : mEarlier(uselocale(theLocale())) {}
    ~CLocaleScope() { uselocale(mEarlier); }
    CLocaleScope(const CLocaleScope&) = delete;
    CLocaleScope& operator=(const CLocaleScope&) = delete;

private:
    static locale_t theLocale() {
        static const locale_t theC = newlocale(LC_ALL_MASK, "C", nullptr);
        return theC;
    }
    locale_t mEarlier;
};

enum class Size { kNone, kChar, kShort, kLong, kLongLong, kIntMax, kSize, kPtrDiff, kLongDouble };

struct Directive {
    std::string flags;
    int width = -1, precision = -1;
    Size size = Size::kNone;
    ACHAR conversion = 0;
};

// Walks a format and its arguments. va_list is kept by value through va_copy.
class Formatter {
public:
    Formatter(const ACHAR* format, va_list args) : mAt(format) { va_copy(mArgs, args); }
    ~Formatter() { va_end(mArgs); }
    Formatter(const Formatter&) = delete;
    Formatter& operator=(const Formatter&) = delete;

    std::wstring run() {
        while (*mAt != 0) {
            if (*mAt != L'%') {
                mOut += *mAt++;
                continue;
            }
            ++mAt;
            if (*mAt == L'%') {
                mOut += *mAt++;
                continue;
            }
            put(parse());
        }
        return std::move(mOut);
    }

private:
    Directive parse() {
        Directive d;
        while (*mAt == L'-' || *mAt == L'+' || *mAt == L' ' || *mAt == L'#' || *mAt == L'0')
            d.flags += static_cast<char>(*mAt++);
        d.width = number();
        if (d.width < -1) { // a negative argument is a flag and a width
            d.flags += '-';
            d.width = -d.width;
        }
        if (*mAt == L'.') {
            ++mAt;
            d.precision = number();
            if (d.precision == -1)
                d.precision = 0;
            else if (d.precision < -1)
                d.precision = -1;
        }
        d.size = size();
        d.conversion = *mAt;
        if (*mAt != 0)
            ++mAt;
        return d;
    }
    // A number or an asterisk; -1 when there is none.
    int number() {
        if (*mAt == L'*') {
            ++mAt;
            return va_arg(mArgs, int);
        }
        if (*mAt < L'0' || *mAt > L'9')
            return -1;
        int value = 0;
        while (*mAt >= L'0' && *mAt <= L'9') {
            if (value < 100000)
                value = value * 10 + (*mAt - L'0');
            ++mAt;
        }
        return value;
    }
    Size size() {
        switch (*mAt) {
        case L'h':
            return *++mAt == L'h' ? (++mAt, Size::kChar) : Size::kShort;
        case L'l':
            return *++mAt == L'l' ? (++mAt, Size::kLongLong) : Size::kLong;
        case L'w':
            ++mAt;
            return Size::kLong;
        case L'j':
            ++mAt;
            return Size::kIntMax;
        case L'z':
            ++mAt;
            return Size::kSize;
        case L't':
            ++mAt;
            return Size::kPtrDiff;
        case L'L':
            ++mAt;
            return Size::kLongDouble;
        case L'I':
            return sizeOfI();
        default:
            return Size::kNone;
        }
    }
    // The API family's own spelling: I64, I32, I.
    Size sizeOfI() {
        ++mAt;
        if (mAt[0] == L'6' && mAt[1] == L'4') {
            mAt += 2;
            return Size::kLongLong;
        }
        if (mAt[0] == L'3' && mAt[1] == L'2') {
            mAt += 2;
            return Size::kNone;
        }
        return Size::kSize;
    }
    void put(const Directive& d) {
        switch (d.conversion) {
        case L's':
            d.size == Size::kShort ? putNarrow(d) : putWide(d);
            break;
        case L'S':
            d.size == Size::kLong ? putWide(d) : putNarrow(d);
            break;
        case L'c':
            d.size == Size::kShort ? putNarrowChar(d) : putPadded(std::wstring(1, static_cast<ACHAR>(va_arg(mArgs, int))), d);
            break;
        case L'C':
            putNarrowChar(d);
            break;
        case L'd':
        case L'i':
            putSigned(d);
            break;
        case L'u':
        case L'x':
        case L'X':
        case L'o':
            putUnsigned(d);
            break;
        case L'f':
        case L'F':
        case L'e':
        case L'E':
        case L'g':
        case L'G':
        case L'a':
        case L'A':
            putReal(d);
            break;
        case L'p':
            putNumber(d, "p", va_arg(mArgs, void*));
            break;
        default: // no conversion: shown as it stands
            mOut += L'%';
            if (d.conversion != 0)
                mOut += d.conversion;
        }
    }
    void putPadded(std::wstring text, const Directive& d) {
        const std::size_t width = d.width < 0 ? 0 : static_cast<std::size_t>(d.width);
        const std::size_t fill = text.size() < width ? width - text.size() : 0;
        const bool left = d.flags.find('-') != std::string::npos;
        if (!left)
            mOut.append(fill, L' ');
        mOut += text;
        if (left)
            mOut.append(fill, L' ');
    }
    void putWide(const Directive& d) {
        const ACHAR* const text = va_arg(mArgs, const ACHAR*);
        std::wstring shown;
        if (text == nullptr) {
            shown = L"(null)";
        } else { // with a precision the text need not be null-ended
            for (std::size_t i = 0; (d.precision < 0 || i < static_cast<std::size_t>(d.precision)) && text[i] != 0; ++i)
                shown += text[i];
        }
        putPadded(std::move(shown), d);
    }
    void putNarrow(const Directive& d) {
        const char* const text = va_arg(mArgs, const char*);
        std::string bytes;
        for (std::size_t i = 0; text != nullptr && (d.precision < 0 || i < static_cast<std::size_t>(d.precision)) && text[i] != 0; ++i)
            bytes += text[i];
        putPadded(text == nullptr ? L"(null)" : acFromAnsi(bytes), d);
    }
    void putNarrowChar(const Directive& d) {
        putPadded(acFromAnsi(std::string(1, static_cast<char>(va_arg(mArgs, int)))), d);
    }
    void putSigned(const Directive& d) {
        switch (d.size) {
        case Size::kChar:
            return putNumber(d, "lld", static_cast<long long>(static_cast<signed char>(va_arg(mArgs, int))));
        case Size::kShort:
            return putNumber(d, "lld", static_cast<long long>(static_cast<short>(va_arg(mArgs, int))));
        case Size::kNone:
            return putNumber(d, "lld", static_cast<long long>(va_arg(mArgs, int)));
        case Size::kLong:
        case Size::kLongLong:
        case Size::kIntMax:
        case Size::kSize:
        case Size::kPtrDiff:
        case Size::kLongDouble:
            return putNumber(d, "lld", va_arg(mArgs, long long));
        }
    }
    void putUnsigned(const Directive& d) {
        const std::string conversion = std::string("ll") + static_cast<char>(d.conversion);
        switch (d.size) {
        case Size::kChar:
            return putNumber(d, conversion, static_cast<unsigned long long>(static_cast<unsigned char>(va_arg(mArgs, unsigned))));
        case Size::kShort:
            return putNumber(d, conversion, static_cast<unsigned long long>(static_cast<unsigned short>(va_arg(mArgs, unsigned))));
        case Size::kNone:
            return putNumber(d, conversion, static_cast<unsigned long long>(va_arg(mArgs, unsigned)));
        case Size::kLong:
        case Size::kLongLong:
        case Size::kIntMax:
        case Size::kSize:
        case Size::kPtrDiff:
        case Size::kLongDouble:
            return putNumber(d, conversion, va_arg(mArgs, unsigned long long));
        }
    }
    void putReal(const Directive& d) {
        if (d.size == Size::kLongDouble)
            putNumber(d, std::string("L") + static_cast<char>(d.conversion), va_arg(mArgs, long double));
        else
            putNumber(d, std::string(1, static_cast<char>(d.conversion)), va_arg(mArgs, double));
    }
    template <class T> void putNumber(const Directive& d, const std::string& conversion, T value) {
        std::string format = "%" + d.flags;
        if (d.width >= 0)
            format += std::to_string(d.width);
        if (d.precision >= 0)
            format += "." + std::to_string(d.precision);
        format += conversion;
        char small[64];
        const CLocaleScope inC;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
        const int length = std::snprintf(small, sizeof small, format.c_str(), value);
        if (length < 0)
            return;
        if (static_cast<std::size_t>(length) < sizeof small) {
            mOut.append(small, small + length);
            return;
        }
        std::vector<char> large(static_cast<std::size_t>(length) + 1);
        std::snprintf(large.data(), large.size(), format.c_str(), value);
#pragma GCC diagnostic pop
        mOut.append(large.data(), large.data() + length);
    }

    const ACHAR* mAt;
    va_list mArgs;
    std::wstring mOut;
};

AcPrintSink& sink() {
    static AcPrintSink theSink;
    return theSink;
}
bool gAtLineStart = true;
int print(const ACHAR* format, va_list args) {
    const std::wstring text = acFormatV(format, args);
    if (!text.empty())
        gAtLineStart = text.back() == L'\n';
    if (sink()) {
        sink()(text);
    } else {
        const std::string bytes = acToUtf8(text);
        std::fwrite(bytes.data(), 1, bytes.size(), stdout);
        std::fflush(stdout);
    }
    return static_cast<int>(text.size());
}
} // namespace

std::wstring acFormatV(const ACHAR* format, va_list args) {
    return format == nullptr ? std::wstring() : Formatter(format, args).run();
}
std::wstring acFormat(const ACHAR* format, ...) {
    va_list args;
    va_start(args, format);
    std::wstring text = acFormatV(format, args);
    va_end(args);
    return text;
}
int acutSPrintf(ACHAR* buffer, std::size_t size, const ACHAR* format, ...) {
    if (buffer == nullptr || size == 0)
        return -1;
    va_list args;
    va_start(args, format);
    const std::wstring text = acFormatV(format, args);
    va_end(args);
    const std::size_t taken = text.copy(buffer, size - 1);
    buffer[taken] = 0;
    return taken < text.size() ? -1 : static_cast<int>(taken);
}
bool acPrintAtLineStart() {
    return gAtLineStart;
}
void acNoteLineStart() {
    gAtLineStart = true;
}
int acutPrintf(const ACHAR* format, ...) {
    va_list args;
    va_start(args, format);
    const int length = print(format, args);
    va_end(args);
    return length;
}
int acdbPrintf(const ACHAR* format, ...) {
    va_list args;
    va_start(args, format);
    const int length = print(format, args);
    va_end(args);
    return length;
}
AcPrintSink acSetPrintSink(AcPrintSink newSink) {
    AcPrintSink earlier = std::move(sink());
    sink() = std::move(newSink);
    return earlier;
}
