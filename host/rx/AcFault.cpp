#include "AcFault.h"

#include "AcUtText.h"

#include <algorithm>
#include <cstdlib>
#include <cxxabi.h>
#include <exception>
#include <typeinfo>
#include <vector>

namespace {
std::vector<AcFaultReader>& readers() {
    static auto* const theReaders = new std::vector<AcFaultReader>; // libraries register before main
    return *theReaders;
}
std::wstring textOfKnown() {
    std::wstring text;
    for (const AcFaultReader reader : readers())
        if (reader(text))
            return text;
    try {
        throw;
    } catch (const std::exception& e) {
        return acFromUtf8(e.what());
    } catch (...) {
        return {}; // the name of the type has to do
    }
}
std::wstring typeName() {
    const std::type_info* const type = abi::__cxa_current_exception_type();
    if (type == nullptr)
        return L"of an unknown type";
    int status = 0;
    char* const plain = abi::__cxa_demangle(type->name(), nullptr, nullptr, &status);
    std::wstring name = acFromUtf8(plain != nullptr ? plain : type->name());
    std::free(plain);
    return name;
}
bool isBlank(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n';
}
} // namespace

void acAddFaultReader(AcFaultReader reader) {
    readers().push_back(reader);
}
std::wstring acFaultText() {
    const std::wstring type = typeName(); // first: a reader may dispose of what was thrown
    std::wstring text = textOfKnown();
    std::replace_if(text.begin(), text.end(), isBlank, L' ');
    text.erase(std::find_if_not(text.rbegin(), text.rend(), isBlank).base(), text.end());
    return text.empty() ? L"exception " + type : text;
}
