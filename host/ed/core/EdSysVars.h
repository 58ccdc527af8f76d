// System variables: typed values by name, of the session or of the current drawing.
#pragma once

#include "AcGe.h"

#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

class AcDbDatabase;

using EdVar = std::variant<short, int, double, std::wstring, AcGePoint3d>;

// One variable. A session variable has only a start value; one of the drawing has get and, unless
// it is read only, set, which answers a reason where it cannot take the value.
struct EdVarRow {
    const wchar_t* name;
    EdVar start;
    bool readOnly = false;
    EdVar (*get)(AcDbDatabase& db) = nullptr;
    std::wstring (*set)(AcDbDatabase& db, const EdVar& value) = nullptr;
    double minimum = 0.0, maximum = 0.0; // both 0: any
    bool kept = false;                   // a text of the session that belongs to the user and is there at the next start
};
const std::vector<EdVarRow>& edVarRows();

// Where the values that belong to the user stand between starts; the program supplies it, since files are not the
// editor's.
struct EdUserProfile {
    std::wstring (*read)(const wchar_t* name) = nullptr; // empty where nothing is kept
    void (*write)(const wchar_t* name, const std::wstring& value) = nullptr;
};

class EdSysVars {
public:
    static EdSysVars& instance();
    bool exists(const std::wstring& name) const;
    bool isReadOnly(const std::wstring& name) const;
    std::optional<EdVar> get(const std::wstring& name) const;
    // Empty where the value was taken, else the reason. Numbers are turned into the variable's type. Editor
    // reactors hear of it.
    std::wstring set(const std::wstring& name, const EdVar& value);
    std::wstring setFromText(const std::wstring& name, const std::wstring& text);
    std::vector<std::wstring> names() const; // by alphabet
    short getShort(const wchar_t* name) const;
    double getReal(const wchar_t* name) const;
    std::wstring getText(const wchar_t* name) const;
    // Takes the user's values from the profile, and keeps there from now on what is set.
    void useProfile(const EdUserProfile& profile);
    // Puts the session's variables back to their start values, and forgets the profile.
    void reset();
    // For values that the program itself keeps up (read-only ones too).
    void put(const wchar_t* name, const EdVar& value) { mSession[name] = value; }

private:
    const EdVarRow* find(const std::wstring& name) const;
    std::wstring assign(const EdVarRow& row, const EdVar& value);
    std::map<std::wstring, EdVar> mSession;
    EdUserProfile mProfile;
};

std::wstring edVarText(const EdVar& value);
// Shows a variable and asks for its new value, as typing its name does.
void edAskVariable(const std::wstring& name);
