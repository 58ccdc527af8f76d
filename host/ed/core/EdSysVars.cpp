#include "EdSysVars.h"

#include "AcUtText.h"
#include "EdDocuments.h"
#include "EdEditor.h"
#include "EdHeaderVars.h"
#include "input/EdParse.h"
#include "input/EdPrompt.h"

#include <algorithm>
#include <cmath>
#include <limits>

EdSysVars& EdSysVars::instance() {
    static EdSysVars theVars;
    return theVars;
}
const EdVarRow* EdSysVars::find(const std::wstring& name) const {
    for (const EdVarRow& row : edVarRows())
        if (edSameWord(row.name, name))
            return &row;
    return nullptr;
}
bool EdSysVars::exists(const std::wstring& name) const {
    return find(name) != nullptr || edHeaderVar(edUpper(name)).has_value();
}
bool EdSysVars::isReadOnly(const std::wstring& name) const {
    const EdVarRow* const row = find(name);
    return row == nullptr || row->readOnly;
}
std::optional<EdVar> EdSysVars::get(const std::wstring& name) const {
    const EdVarRow* const row = find(name);
    if (row == nullptr)
        return edHeaderVar(edUpper(name));
    if (row->get != nullptr)
        return edDatabase() != nullptr ? row->get(*edDatabase()) : row->start;
    const auto kept = mSession.find(row->name);
    return kept != mSession.end() ? kept->second : row->start;
}

namespace {
std::optional<double> numberOf(const EdVar& value) {
    if (const auto* s = std::get_if<short>(&value))
        return *s;
    if (const auto* i = std::get_if<int>(&value))
        return *i;
    if (const auto* r = std::get_if<double>(&value))
        return *r;
    return std::nullopt;
}
template <class T> std::optional<EdVar> whole(double number) {
    if (number != std::floor(number) || number < std::numeric_limits<T>::min() || number > std::numeric_limits<T>::max())
        return std::nullopt;
    return EdVar(static_cast<T>(number));
}
// The value in the type of the variable; nothing where it cannot be.
std::optional<EdVar> convert(const EdVar& type, const EdVar& value) {
    if (type.index() == value.index())
        return value;
    const auto number = numberOf(value);
    if (!number)
        return std::nullopt;
    if (std::holds_alternative<short>(type))
        return whole<short>(*number);
    if (std::holds_alternative<int>(type))
        return whole<int>(*number);
    if (std::holds_alternative<double>(type))
        return EdVar(*number);
    return std::nullopt;
}
} // namespace

std::wstring EdSysVars::assign(const EdVarRow& row, const EdVar& value) {
    if (row.readOnly)
        return std::wstring(row.name) + L" is read only.";
    const auto typed = convert(*get(row.name), value);
    if (!typed)
        return L"Invalid value for " + std::wstring(row.name) + L".";
    const auto number = numberOf(*typed);
    if (number && row.minimum != row.maximum && (*number < row.minimum || *number > row.maximum))
        return L"Requires a value from " + edNumber(row.minimum) + L" to " + edNumber(row.maximum) + L".";
    if (row.set == nullptr) {
        mSession[row.name] = *typed;
        if (row.kept && mProfile.write != nullptr)
            mProfile.write(row.name, std::get<std::wstring>(*typed));
        return L"";
    }
    return edDatabase() != nullptr ? row.set(*edDatabase(), *typed) : L"No drawing is open.";
}
std::wstring EdSysVars::set(const std::wstring& name, const EdVar& value) {
    const EdVarRow* const row = find(name);
    if (row == nullptr)
        return exists(name) ? edUpper(name) + L" is read only." : L"Unknown variable name \"" + name + L"\".";
    const std::wstring reason = assign(*row, value);
    EdEditor::instance().fireSysVarChanged(row->name, reason.empty());
    return reason;
}
std::wstring EdSysVars::setFromText(const std::wstring& name, const std::wstring& text) {
    const auto now = get(name);
    if (!now)
        return L"Unknown variable name \"" + name + L"\".";
    if (std::holds_alternative<std::wstring>(*now))
        return set(name, text == L"." ? std::wstring() : text); // "." is how a text is emptied
    if (std::holds_alternative<AcGePoint3d>(*now)) {
        const auto p = edParsePoint(text, edLastPoint());
        return p ? set(name, *p) : L"Invalid point.";
    }
    const auto number = edParseReal(text);
    return number ? set(name, *number) : L"Requires numeric value.";
}
void EdSysVars::useProfile(const EdUserProfile& profile) {
    mProfile = profile;
    for (const EdVarRow& row : edVarRows())
        if (row.kept)
            mSession[row.name] = profile.read(row.name);
}
void EdSysVars::reset() {
    mSession.clear();
    mProfile = {};
}
std::vector<std::wstring> EdSysVars::names() const {
    std::vector<std::wstring> all;
    for (const EdVarRow& row : edVarRows())
        all.emplace_back(row.name);
    std::sort(all.begin(), all.end());
    return all;
}
short EdSysVars::getShort(const wchar_t* name) const {
    const auto value = get(name);
    const auto number = value ? numberOf(*value) : std::nullopt;
    return number ? static_cast<short>(*number) : static_cast<short>(0);
}
double EdSysVars::getReal(const wchar_t* name) const {
    const auto value = get(name);
    return value ? numberOf(*value).value_or(0.0) : 0.0;
}
std::wstring EdSysVars::getText(const wchar_t* name) const {
    const auto value = get(name);
    const auto* const text = value ? std::get_if<std::wstring>(&*value) : nullptr;
    return text != nullptr ? *text : L"";
}

std::wstring edVarText(const EdVar& value) {
    if (const auto* text = std::get_if<std::wstring>(&value))
        return L"\"" + *text + L"\"";
    if (const auto* point = std::get_if<AcGePoint3d>(&value))
        return edPointText(*point, 6);
    return edNumber(*numberOf(value), 8);
}

void edAskVariable(const std::wstring& typed) {
    EdSysVars& vars = EdSysVars::instance();
    const std::wstring name = edUpper(typed);
    const EdVar now = *vars.get(name);
    if (vars.isReadOnly(name)) {
        acutPrintf(L"%s = %s (read only)\n", name.c_str(), edVarText(now).c_str());
        return;
    }
    const auto* const text = std::get_if<std::wstring>(&now);
    const std::wstring prompt = text != nullptr ? L"Enter new value for " + name + L", or . for none <" + edVarText(now) + L">: "
                                                : L"Enter new value for " + name + L" <" + edVarText(now) + L">: ";
    EdRefusals refusals;
    for (;;) {
        std::wstring answer;
        if (!EdPrompt(prompt).text(answer, text != nullptr).ok())
            return;
        const std::wstring reason = vars.setFromText(name, edTrim(answer));
        if (reason.empty() || !refusals.again(reason, answer))
            return;
    }
}
