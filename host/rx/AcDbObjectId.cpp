// Handles and ids.
#include "AcDbObjectId.h"

#include "AcDbStub.h"

namespace {
int hexDigit(ACHAR c) {
    if (c >= L'0' && c <= L'9')
        return c - L'0';
    if (c >= L'a' && c <= L'f')
        return c - L'a' + 10;
    if (c >= L'A' && c <= L'F')
        return c - L'A' + 10;
    return -1;
}
} // namespace

AcDbHandle::AcDbHandle(const ACHAR* hexText) {
    if (hexText == nullptr)
        return;
    Adesk::UInt64 value = 0;
    int digits = 0;
    for (const ACHAR* c = hexText; *c != 0; ++c, ++digits) {
        const int digit = hexDigit(*c);
        if (digit < 0 || digits == 16)
            return;
        value = value << 4 | static_cast<Adesk::UInt64>(digit);
    }
    mValue = value;
}

std::wstring AcDbHandle::text() const {
    ACHAR digits[17];
    int at = 16;
    digits[at] = 0;
    Adesk::UInt64 value = mValue;
    do {
        digits[--at] = L"0123456789ABCDEF"[value & 15];
        value >>= 4;
    } while (value != 0);
    return digits + at;
}

bool AcDbHandle::getIntoAsciiBuffer(ACHAR* buffer, std::size_t size) const {
    const std::wstring digits = text();
    if (buffer == nullptr || size <= digits.size())
        return false;
    digits.copy(buffer, digits.size());
    buffer[digits.size()] = 0;
    return true;
}

bool AcDbObjectId::isValid() const {
    return mStub != nullptr && mStub->object != nullptr;
}
bool AcDbObjectId::isErased() const {
    return mStub != nullptr && mStub->erased;
}
AcDbHandle AcDbObjectId::handle() const {
    return mStub == nullptr ? AcDbHandle() : AcDbHandle(mStub->handle);
}
AcDbDatabase* AcDbObjectId::database() const {
    return mStub == nullptr ? nullptr : mStub->database;
}
