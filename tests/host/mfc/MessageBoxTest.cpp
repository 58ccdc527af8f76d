#include "AcPath.h"
#include "AfxFolderDialog.h"
#include "CException.h"
#include "CFileDialog.h"
#include "SampleDialog.h"
#include "TestSupport.h"
#include "WinFiles.h"
#include "WinTextFile.h"

namespace {
int answer(std::vector<std::wstring> lines, UINT type, std::wstring* printed = nullptr) {
    DialogScript user(std::move(lines));
    const int result = AfxMessageBoxOf(nullptr, L"Biztosan törölni akarja?\r\nIgen?", L"Korvant - Figyelmeztetés", type);
    EXPECT_TRUE(user.refusals.empty()) << acToUtf8(user.refusals[0]);
    if (printed != nullptr)
        *printed = user.printed;
    return result;
}
void touch(const std::wstring& path) {
    WinTextFile file;
    ASSERT_TRUE(file.open(path.c_str(), L"w"));
}
} // namespace

TEST(MessageBoxes, the_text_is_printed_and_lines_answer) {
    std::wstring printed;
    EXPECT_EQ(answer({L"@ok"}, MB_OKCANCEL | MB_ICONWARNING, &printed), IDOK);
    EXPECT_TRUE(holds(printed, L"Korvant - Figyelmeztetés: Biztosan törölni akarja?"));
    EXPECT_EQ(answer({L"@cancel"}, MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(answer({L"@close"}, MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(answer({L"@ok"}, MB_OK), IDOK);
    EXPECT_EQ(answer({L"@close"}, MB_OK), IDOK) << "a box of one button knows one answer";
    EXPECT_EQ(answer({L"@click \"Igen\""}, MB_YESNO), IDYES);
    EXPECT_EQ(answer({L"@click 7"}, MB_YESNO | MB_DEFBUTTON2), IDNO);
    EXPECT_EQ(answer({L"@cancel"}, MB_YESNOCANCEL), IDCANCEL);
}

TEST(MessageBoxes, captions_are_hungarian) {
    std::wstring printed;
    answer({L"@show", L"@cancel"}, MB_OKCANCEL | MB_ICONERROR, &printed);
    EXPECT_TRUE(holds(printed, L"button \"Mégse\""));
    EXPECT_FALSE(holds(printed, L"Cancel\""));
}

TEST(MessageBoxes, a_line_that_no_button_takes_is_refused) {
    DialogScript user({L"@cancel"});
    EXPECT_EQ(AfxMessageBoxOf(nullptr, L"x", L"y", MB_OK), IDOK);
    EXPECT_TRUE(user.refusals.empty());
    DialogScript other({L"@click 4"});
    AfxMessageBoxOf(nullptr, L"x", L"y", MB_OK);
    EXPECT_EQ(other.refusals.size(), 1u);
}

TEST(Exceptions, report_their_text_in_a_message_box) {
    class Fault : public CException {
        BOOL GetErrorMessage(LPTSTR text, UINT size, UINT*) const override {
            return std::swprintf(text, size, L"Elfogyott a hely.") > 0 ? TRUE : FALSE;
        }
    };
    DialogScript user({L"@ok"});
    auto* const fault = new Fault;
    EXPECT_EQ(fault->ReportError(MB_ICONWARNING), IDOK);
    fault->Delete();
    EXPECT_TRUE(holds(user.printed, L"Elfogyott a hely."));
}

TEST(FileDialogs, the_path_is_asked_on_the_command_line) {
    const std::wstring folder = testTempDir();
    touch(folder + L"\\a.ini");
    DialogScript user;
    user.asksForPaths = true;
    user.paths = {L"a"};
    CFileDialog dialog(TRUE, L"ini", L"settings.ini", OFN_HIDEREADONLY | OFN_FILEMUSTEXIST, L"INI files (*.ini)|*.ini||");
    dialog.m_ofn.lpstrInitialDir = folder.c_str();
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(user.prompts[0], L"Megnyitás <settings.ini>: ");
    EXPECT_EQ(GetFileAttributesW(dialog.GetPathName()), FILE_ATTRIBUTE_NORMAL);
    EXPECT_STREQ(dialog.GetFileName(), L"a.ini");
    EXPECT_STREQ(dialog.GetFileTitle(), L"a");
    EXPECT_STREQ(dialog.GetFileExt(), L"ini");
}

TEST(FileDialogs, a_missing_file_is_asked_again_and_an_empty_answer_cancels) {
    DialogScript user;
    user.asksForPaths = true;
    user.paths = {L"\\none\\x.ini", L""};
    CFileDialog dialog(TRUE, L"ini", nullptr, OFN_FILEMUSTEXIST);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(user.prompts.size(), 2u);
    EXPECT_TRUE(holds(user.printed, L"A fájl nem található"));
}

TEST(FileDialogs, the_third_missing_file_ends_the_run) {
    DialogScript user;
    user.asksForPaths = true;
    user.paths = {L"\\none\\x.ini", L"\\none\\y.ini", L"\\none\\z.ini", L"\\none\\never.ini"};
    CFileDialog dialog(TRUE, L"ini", nullptr, OFN_FILEMUSTEXIST);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(user.prompts.size(), 3u);
    ASSERT_EQ(user.refusals.size(), 1u);
    EXPECT_TRUE(holds(user.refusals[0], L"z.ini"));
}

TEST(FileDialogs, saving_over_a_file_asks_first) {
    const std::wstring file = testTempDir() + L"\\list.txt";
    touch(file);
    for (const bool yes : {true, false}) {
        DialogScript user({yes ? L"@click \"Igen\"" : L"@click \"Nem\""});
        user.asksForPaths = true;
        user.paths = {file};
        CFileDialog dialog(FALSE, L"txt");
        EXPECT_EQ(dialog.DoModal(), yes ? IDOK : IDCANCEL);
        EXPECT_TRUE(user.refusals.empty());
    }
}

TEST(FileDialogs, a_window_takes_the_name_in_its_field) {
    const std::wstring folder = testTempDir();
    DialogScript user({L"@set \"Fájlnév:\" \"" + folder + L"\\új\"", L"@ok"});
    CFileDialog dialog(FALSE, L"txt");
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetPathName().text(), acHostPath(acToUtf8(folder)) + L"\\új.txt");
    DialogScript cancels({L"@cancel"});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST(FolderDialogs, starts_at_the_present_folder_and_takes_another) {
    const std::wstring folder = testTempDir();
    CreateDirectoryW((folder + L"\\Táblák").c_str(), nullptr);
    DialogScript user({L"@show", L"@set \"Mappa:\" \"" + folder + L"\\Táblák\\\"", L"@ok"});
    CString chosen;
    const auto status = [](LPCTSTR path) { return CString(path).Right(6) + L"..."; };
    ASSERT_TRUE(SHBrowseForFolderW(nullptr, L"Válasszon mappát!", folder.c_str(), status, chosen));
    EXPECT_EQ(chosen.text(), folder + L"\\Táblák");
    EXPECT_TRUE(holds(user.printed, L"label \"" + folder.substr(folder.size() - 6) + L"...\""));
}

TEST(FolderDialogs, a_folder_that_does_not_exist_disables_ok) {
    DialogScript user({L"@set \"Mappa:\" \"\\none\\none\"", L"@ok"});
    CString chosen;
    EXPECT_FALSE(SHBrowseForFolderW(nullptr, L"x", L"\\tmp", nullptr, chosen));
    ASSERT_EQ(user.refusals.size(), 1u);
    EXPECT_EQ(user.refusals[0], L"@ok: the control is disabled");
}

TEST(Profile, values_and_window_places_are_kept) {
    const std::string folder = testTempPath();
    setenv("KORVANT_LOCALAPPDATA", folder.c_str(), 1);
    EXPECT_TRUE(AfxGetApp()->WriteProfileString(L"A", L"x", L"ő"));
    EXPECT_STREQ(AfxGetApp()->GetProfileString(L"A", L"x"), L"ő");
    EXPECT_STREQ(AfxGetApp()->GetProfileString(L"A", L"y", L"none"), L"none");
    EXPECT_TRUE(AfxGetApp()->WriteProfileInt(L"A", L"n", 12));
    EXPECT_EQ(AfxGetApp()->GetProfileInt(L"A", L"n", 3), 12u);
    useResources(kSampleResources);
    DialogScript user({L"@ok"});
    SampleDialog dialog;
    dialog.atStart = [](SampleDialog& d) {
        EXPECT_FALSE(AfxRestorePlacement(d, L"Sample"));
        d.SetWindowPos(nullptr, 40, 30, 0, 0, SWP_NOSIZE);
        AfxSavePlacement(d, L"Sample");
        d.SetWindowPos(nullptr, 0, 0, 0, 0, SWP_NOSIZE);
        EXPECT_TRUE(AfxRestorePlacement(d, L"Sample"));
        CRect rect;
        d.GetWindowRect(rect);
        EXPECT_EQ(rect.left, 40);
        EXPECT_EQ(rect.top, 30);
    };
    dialog.DoModal();
    unsetenv("KORVANT_LOCALAPPDATA");
}
