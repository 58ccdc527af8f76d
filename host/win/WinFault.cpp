// Reads the exceptions that are thrown by pointer for those who run a module's code.
#include "AcFault.h"
#include "CException.h"

namespace {
bool readException(std::wstring& text) {
    constexpr UINT kMostCharacters = 1024;
    try {
        throw;
    } catch (CException* const fault) {
        wchar_t message[kMostCharacters];
        if (fault != nullptr && fault->GetErrorMessage(message, kMostCharacters) != FALSE)
            text = message;
        if (fault != nullptr)
            fault->Delete();
        return true;
    } catch (...) {
        return false; // some other reader's
    }
}
const bool kRegistered = [] {
    acAddFaultReader(readException);
    return true;
}();
} // namespace
