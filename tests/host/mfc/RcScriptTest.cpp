#include "AfxMessages.h"
#include "SampleDialog.h"
#include "resource/RcScript.h"

namespace {
RcError read(std::string_view text, RcScript& script) {
    return rcRead(text, script);
}
std::wstring fault(std::string_view text) {
    RcScript script;
    const RcError error = rcRead(text, script);
    return error.line == 0 ? L"none" : std::to_wstring(error.line) + L": " + error.reason;
}
} // namespace

TEST(ResourceScript, a_dialog_keeps_caption_size_style_and_controls) {
    RcScript script;
    ASSERT_EQ(read(kSampleResources, script).line, 0);
    const RcDialog& dialog = script.dialogs.at(L"500");
    EXPECT_EQ(dialog.caption, L"Minta ablak");
    EXPECT_EQ(dialog.w, 380);
    EXPECT_EQ(dialog.fontSize, 8);
    EXPECT_NE(dialog.style & WS_SYSMENU, 0u);
    const RcControl& edit = dialog.controls[1];
    EXPECT_EQ(edit.className, L"Edit");
    EXPECT_EQ(edit.id, 1001);
    EXPECT_NE(edit.style & ES_AUTOHSCROLL, 0u);
}

TEST(ResourceScript, not_takes_a_style_away) {
    RcScript script;
    ASSERT_EQ(read("1 DIALOG 0,0,9,9 { PUSHBUTTON \"a\", 5, 0,0,1,1, NOT WS_TABSTOP | NOT WS_VISIBLE }", script).line, 0);
    EXPECT_EQ(script.dialogs.at(L"1").controls[0].style & (WS_TABSTOP | WS_VISIBLE), 0u);
}

TEST(ResourceScript, strings_take_escapes_and_doubled_quotes) {
    RcScript script;
    ASSERT_EQ(read("STRINGTABLE { 5 \"a \"\"b\"\"\\n\\\\c\" 6, \"ű\" }", script).line, 0);
    EXPECT_EQ(script.strings[5], L"a \"b\"\n\\c");
    EXPECT_EQ(script.strings[6], L"ű");
}

TEST(ResourceScript, comments_and_symbols_are_read) {
    RcScript script;
    ASSERT_EQ(read("// c\n/* #define X 3\n*/ #define A 0x10L // ten\n#define B A\n#include \"x.h\"\n#pragma code_page(65001)\n"
                   "LANGUAGE LANG_HUNGARIAN, SUBLANG_DEFAULT\nSTRINGTABLE BEGIN B \"x\" END", script).line, 0);
    EXPECT_EQ(script.symbols.count(L"X"), 0u);
    EXPECT_EQ(script.strings[16], L"x");
}

TEST(ResourceScript, a_picture_is_a_file_or_rows_of_text) {
    RcScript script;
    ASSERT_EQ(read("IDB_A BITMAP \"a.bmp\"\n7 BITMAP { \"1 1 1 1\", \"x c None\", \"x\" }", script).line, 0);
    EXPECT_EQ(script.pictures.at(L"IDB_A").file, L"a.bmp");
    EXPECT_EQ(script.pictures.at(L"7").rows.size(), 3u);
}

TEST(ResourceScript, an_error_names_its_line_and_reason) {
    EXPECT_EQ(fault("\n\nSTRINGTABLE { 5 }"), L"3: a text in quotes is missing before \"}\"");
    EXPECT_EQ(fault("STRINGTABLE {\n5 \"abc\n}"), L"2: a text is not closed");
    EXPECT_EQ(fault("1 DIALOGEX 0,0,5,5\nSTYLE WS_NONSENSE\n{}"), L"2: the style WS_NONSENSE is not known");
    EXPECT_EQ(fault("1 DIALOGEX 0,0,5,5 { PUSHBUTTON \"a\", IDC_MISSING, 0,0,1,1 }"), L"1: the symbol IDC_MISSING is not defined");
    EXPECT_EQ(fault("1 DIALOGEX 0,0,5,5 { PUSHBUTTON \"a\", 5, 0,0,1 }"), L"1: \",\" is missing before \"}\"");
    EXPECT_EQ(fault("1 DIALOGEX 0,0,5,99999 {}"), L"1: the dialog's height is out of range");
    EXPECT_EQ(fault("1 VERSIONINFO {}"), L"1: the kind of resource \"VERSIONINFO\" is not known");
    EXPECT_EQ(fault("1 DIALOGEX 0,0,5,5 {"), L"1: a control or END is missing before the end");
    EXPECT_EQ(fault("/* open"), L"1: a comment does not end");
    EXPECT_EQ(fault("#ifdef X"), L"1: the directive #ifdef is not known");
    EXPECT_EQ(fault("#define A 99999999999999999999"), L"1: #define A needs one number up to 65535");
    EXPECT_EQ(fault("1 DIALOGEX 99999999999,0,5,5 {}"), L"1: a number is too large");
    EXPECT_EQ(fault("@"), L"1: a character that has no meaning here");
}

TEST(ResourceScript, what_stands_before_an_error_is_not_registered) {
    useResources("STRINGTABLE { 5 \"old\" }");
    const std::string_view broken = "STRINGTABLE { 5 \"new\" } junk junk";
    std::wstring reason;
    EXPECT_FALSE(AfxSetResourceText(broken.data(), broken.size(), &reason));
    EXPECT_EQ(reason, L"line 1: the kind of resource \"junk\" is not known");
    EXPECT_EQ(AfxResourceString(5), L"old");
}

TEST(ResourceScript, a_later_registration_replaces_ids_and_keeps_the_rest) {
    useResources("STRINGTABLE { 5 \"five\" 6 \"six\" }");
    const std::string_view more = "STRINGTABLE { 6 \"hat\" }";
    EXPECT_TRUE(AfxSetResourceText(more.data(), more.size()));
    EXPECT_EQ(AfxResourceString(5), L"five");
    EXPECT_EQ(AfxResourceString(6), L"hat");
    EXPECT_EQ(AfxResourceString(7), L"");
}
