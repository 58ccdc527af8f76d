// Reads a resource script statement by statement. Every statement ends at a token that names the
// next one, so the first thing that does not fit is reported with its line and ends the reading.
#include "AcUtText.h"
#include "AfxMessages.h"
#include "resource/RcLexer.h"
#include "resource/RcScript.h"
#include "resource/RcStyles.h"

#include <cwctype>

namespace {
struct Fault { // leaves the reader at the first error
    RcError error;
};

// What a control statement stands for.
struct Statement {
    const wchar_t* name;
    const wchar_t* className;
    DWORD style;
    bool hasText;
};
const Statement kStatements[] = {
    {L"LTEXT", L"Static", SS_LEFT | WS_GROUP, true},
    {L"CTEXT", L"Static", SS_CENTER | WS_GROUP, true},
    {L"RTEXT", L"Static", SS_RIGHT | WS_GROUP, true},
    {L"ICON", L"Static", SS_ICON, true},
    {L"PUSHBUTTON", L"Button", BS_PUSHBUTTON | WS_TABSTOP, true},
    {L"DEFPUSHBUTTON", L"Button", BS_DEFPUSHBUTTON | WS_TABSTOP, true},
    {L"AUTOCHECKBOX", L"Button", BS_AUTOCHECKBOX | WS_TABSTOP, true},
    {L"CHECKBOX", L"Button", BS_CHECKBOX | WS_TABSTOP, true},
    {L"AUTORADIOBUTTON", L"Button", BS_AUTORADIOBUTTON, true},
    {L"RADIOBUTTON", L"Button", BS_RADIOBUTTON, true},
    {L"GROUPBOX", L"Button", BS_GROUPBOX, true},
    {L"EDITTEXT", L"Edit", ES_LEFT | WS_BORDER | WS_TABSTOP, false},
    {L"COMBOBOX", L"ComboBox", WS_TABSTOP, false},
    {L"LISTBOX", L"ListBox", WS_BORDER | WS_TABSTOP, false},
};

class Parser {
public:
    Parser(std::wstring_view text, RcScript& script) : mLexer(text), mScript(script) { advance(); }
    void run() {
        while (mToken.kind != RcToken::kEnd)
            statement();
    }

private:
    [[noreturn]] void fail(const std::wstring& reason) const { throw Fault{{mToken.line, reason}}; }
    [[noreturn]] void failAt(int line, const std::wstring& reason) const { throw Fault{{line, reason}}; }
    void advance() {
        mToken = mLexer.next();
        while (mToken.kind == RcToken::kDirective) {
            directive(mToken);
            mToken = mLexer.next();
        }
        if (mToken.kind == RcToken::kJunk)
            fail(mToken.text);
    }
    bool take(const wchar_t* word) {
        if (!mToken.is(word))
            return false;
        advance();
        return true;
    }
    void expect(const wchar_t* word) {
        if (!take(word))
            fail(std::wstring(L"\"") + word + L"\" is missing before " + shown());
    }
    std::wstring shown() const { return mToken.kind == RcToken::kEnd ? L"the end" : L"\"" + mToken.text.substr(0, 40) + L"\""; }
    bool takeBegin() { return take(L"BEGIN") || take(L"{"); }
    bool takeEnd() { return take(L"END") || take(L"}"); }
    void expectBegin() {
        if (!takeBegin())
            fail(L"BEGIN is missing before " + shown());
    }

    void directive(const RcToken& token);
    long symbolValue(const std::wstring& name, bool& known) const;
    long value();
    int small(long least, long greatest, const wchar_t* what);
    int coordinate() { return small(-32768, 32767, L"a coordinate"); }
    int id() { return small(-1, 65535, L"an id"); }
    std::wstring text();
    DWORD style(DWORD start);
    DWORD stylePart();
    void statement();
    void stringTable();
    void dialog(const std::wstring& key);
    void dialogOptions(RcDialog& dialog);
    void control(RcDialog& dialog);
    void generalControl(RcControl& control);
    void place(RcControl& control);
    void picture(const std::wstring& key);
    void skipOptions();
    std::wstring resourceName();

    RcLexer mLexer;
    RcScript& mScript;
    RcToken mToken;
};

// ---- values --------------------------------------------------------------------------
long Parser::symbolValue(const std::wstring& name, bool& known) const {
    known = true;
    const auto symbol = mScript.symbols.find(name);
    if (symbol != mScript.symbols.end())
        return symbol->second;
    if (const auto standard = rcStandardId(name))
        return *standard;
    known = false;
    return 0;
}

void Parser::directive(const RcToken& token) {
    RcLexer lexer(token.text);
    const RcToken name = lexer.next();
    if (name.is(L"include") || name.is(L"pragma"))
        return; // ids come as #define lines; the code page is always UTF-8
    if (!name.is(L"define"))
        failAt(token.line, L"the directive #" + name.text.substr(0, 40) + L" is not known");
    const RcToken symbol = lexer.next();
    if (symbol.kind != RcToken::kWord)
        failAt(token.line, L"#define lacks a name");
    RcToken number = lexer.next();
    const bool isNegative = number.is(L"-");
    if (isNegative)
        number = lexer.next();
    bool known = number.kind == RcToken::kNumber;
    long result = number.number;
    if (number.kind == RcToken::kWord)
        result = symbolValue(number.text, known);
    if (!known || result > 65535 || lexer.next().kind != RcToken::kEnd)
        failAt(token.line, L"#define " + symbol.text + L" needs one number up to 65535");
    mScript.symbols[symbol.text] = static_cast<int>(isNegative ? -result : result);
}

long Parser::value() {
    const bool isNegative = take(L"-");
    long result = mToken.number;
    if (mToken.kind == RcToken::kWord) {
        bool known = false;
        result = symbolValue(mToken.text, known);
        if (!known)
            fail(L"the symbol " + mToken.text + L" is not defined");
    } else if (mToken.kind != RcToken::kNumber) {
        fail(L"a number is missing before " + shown());
    }
    advance();
    return isNegative ? -result : result;
}

int Parser::small(long least, long greatest, const wchar_t* what) {
    const int line = mToken.line;
    const long result = value();
    if (result < least || result > greatest)
        failAt(line, std::wstring(what) + L" is out of range");
    return static_cast<int>(result);
}

std::wstring Parser::text() {
    if (mToken.kind != RcToken::kText)
        fail(L"a text in quotes is missing before " + shown());
    std::wstring result = mToken.text;
    advance();
    return result;
}

DWORD Parser::stylePart() {
    if (mToken.kind == RcToken::kWord) {
        const auto known = rcStyle(mToken.text);
        if (!known)
            fail(L"the style " + mToken.text + L" is not known");
        advance();
        return *known;
    }
    if (mToken.kind != RcToken::kNumber)
        fail(L"a style is missing before " + shown());
    const DWORD number = static_cast<DWORD>(mToken.number);
    advance();
    return number;
}

DWORD Parser::style(DWORD start) {
    do {
        if (take(L"NOT"))
            start &= ~stylePart();
        else
            start |= stylePart();
    } while (take(L"|"));
    return start;
}

// ---- statements ----------------------------------------------------------------------
void Parser::skipOptions() {
    static const wchar_t* kOptions[] = {L"DISCARDABLE", L"MOVEABLE", L"FIXED", L"PURE", L"IMPURE", L"PRELOAD", L"LOADONCALL"};
    for (bool found = true; found;) {
        found = false;
        for (const wchar_t* option : kOptions)
            found = take(option) || found;
    }
}

std::wstring Parser::resourceName() {
    if (mToken.kind == RcToken::kWord) {
        bool known = false;
        const long number = symbolValue(mToken.text, known);
        std::wstring name = known ? rcKey(static_cast<int>(number)) : mToken.text;
        for (wchar_t& c : name)
            c = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c)));
        advance();
        return name;
    }
    if (mToken.kind == RcToken::kText)
        return text();
    return rcKey(id());
}

void Parser::statement() {
    if (take(L"LANGUAGE")) {
        for (int part = 0; part < 2; ++part) { // names of languages are no symbols of the script
            if (mToken.kind != RcToken::kWord && mToken.kind != RcToken::kNumber)
                fail(L"LANGUAGE needs two values");
            advance();
            if (part == 0)
                expect(L",");
        }
        return;
    }
    if (take(L"STRINGTABLE"))
        return stringTable();
    const std::wstring key = resourceName();
    if (take(L"DIALOGEX") || take(L"DIALOG"))
        return dialog(key);
    if (take(L"BITMAP") || take(L"ICON"))
        return picture(key);
    fail(L"the kind of resource " + shown() + L" is not known");
}

void Parser::stringTable() {
    skipOptions();
    expectBegin();
    while (!takeEnd()) {
        const int number = small(0, 65535, L"a string's id");
        take(L",");
        mScript.strings[number] = text();
    }
}

void Parser::picture(const std::wstring& key) {
    skipOptions();
    RcPicture picture;
    if (!takeBegin()) {
        picture.file = text();
    } else {
        while (!takeEnd()) {
            picture.rows.push_back(acToUtf8(text()));
            take(L",");
        }
    }
    mScript.pictures[key] = std::move(picture);
}

void Parser::dialog(const std::wstring& key) {
    RcDialog dialog;
    dialog.key = key;
    skipOptions();
    coordinate();
    expect(L",");
    coordinate();
    expect(L",");
    dialog.w = small(1, 4000, L"the dialog's width");
    expect(L",");
    dialog.h = small(1, 4000, L"the dialog's height");
    if (take(L","))
        value(); // help id
    dialogOptions(dialog);
    expectBegin();
    while (!takeEnd())
        control(dialog);
    mScript.dialogs[key] = std::move(dialog);
}

void Parser::dialogOptions(RcDialog& dialog) {
    for (;;) {
        if (take(L"STYLE")) {
            dialog.style = style(0);
        } else if (take(L"EXSTYLE")) {
            style(0);
        } else if (take(L"CAPTION")) {
            dialog.caption = text();
        } else if (take(L"FONT")) {
            dialog.fontSize = small(4, 72, L"the font's size");
            expect(L",");
            dialog.fontFamily = text();
            while (take(L","))
                value(); // weight, italic, character set
        } else {
            return;
        }
    }
}

void Parser::place(RcControl& control) {
    control.x = coordinate();
    expect(L",");
    control.y = coordinate();
    expect(L",");
    control.w = small(0, 32767, L"a width");
    expect(L",");
    control.h = small(0, 32767, L"a height");
}

// CONTROL "text", id, class, style, x, y, w, h [, extended style]
void Parser::generalControl(RcControl& control) {
    if (mToken.kind == RcToken::kText)
        control.text = text();
    else
        value(); // a picture's number stands where the text would
    expect(L",");
    control.id = id();
    expect(L",");
    if (mToken.kind == RcToken::kWord) {
        control.className = mToken.text;
        advance();
    } else {
        control.className = text();
    }
    expect(L",");
    control.style = style(WS_CHILD | WS_VISIBLE);
    expect(L",");
    place(control);
    if (take(L","))
        style(0);
}

void Parser::control(RcDialog& dialog) {
    RcControl control;
    if (take(L"CONTROL")) {
        generalControl(control);
        dialog.controls.push_back(std::move(control));
        return;
    }
    for (const Statement& statement : kStatements) {
        if (!take(statement.name))
            continue;
        control.className = statement.className;
        control.style = WS_CHILD | WS_VISIBLE | statement.style;
        if (statement.hasText) {
            control.text = mToken.kind == RcToken::kText ? text() : resourceName();
            expect(L",");
        }
        control.id = id();
        expect(L",");
        place(control);
        if (take(L","))
            control.style = style(control.style);
        if (take(L","))
            style(0);
        dialog.controls.push_back(std::move(control));
        return;
    }
    fail(L"a control or END is missing before " + shown());
}
} // namespace

RcError rcRead(std::string_view utf8, RcScript& script) {
    const std::wstring text = acFromUtf8(utf8);
    try {
        Parser(text, script).run();
    } catch (const Fault& fault) {
        return fault.error;
    }
    return {};
}

std::wstring rcKey(int id) {
    return std::to_wstring(id);
}
