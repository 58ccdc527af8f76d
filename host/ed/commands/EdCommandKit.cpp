#include "EdCommandKit.h"

std::optional<std::wstring> edAskPath(const std::wstring& prompt, const std::wstring& byDefault) {
    std::wstring text;
    const EdReply reply = EdPrompt(prompt).text(text, true);
    if (reply.cancelled())
        return std::nullopt;
    text = edTrim(text);
    if (text.size() >= 2 && text.front() == L'"' && text.back() == L'"')
        text = text.substr(1, text.size() - 2);
    if (text.empty())
        text = byDefault;
    return text.empty() ? std::nullopt : std::optional<std::wstring>(text);
}
std::wstring edWithEnding(const std::wstring& path, const std::wstring& ending) {
    const std::size_t dot = path.find_last_of(L'.');
    const std::size_t slash = path.find_last_of(L"\\/");
    const bool has = dot != std::wstring::npos && (slash == std::wstring::npos || dot > slash);
    return has ? path : path + ending;
}
std::wstring edHeadOf(const AcDbEntity& entity) {
    return edTypeName(entity) + L" " + entity.getAcDbHandle().text();
}
std::wstring edDegrees(double radians) {
    return edNumber(radians * 180.0 / kPi);
}
