// Each page of each window with what it shows in use, looked at as a person would.
#include "PostDialogTest.h"

#include "AfxApp.h"
#include "AfxFolderDialog.h"
#include "CErrorDlg.h"
#include "CTrfcAboutDlg.h"
#include "TrfcAppSettings.h"
#include "TrfcBlockEnt.h"
#include "WindowLook.h"

namespace {
class PagePictures : public PostDialog {
protected:
    static void looksAt(DialogUser& user, const std::string& name) {
        user.sees([name] { lookAt(*topWindow(), name); });
    }
    // The window of the post at a page, with a step or two before the look.
    void lookAtPage(int page, const std::string& name, const std::vector<std::wstring>& steps = {}) {
        open(page);
        for (const std::wstring& step : steps)
            user.does(step);
        looksAt(user, name);
        user.does(L"@ok");
        run();
    }
};
} // namespace

TEST_F(PagePictures, the_general_page) {
    post->postText().text = L"km 12+345";
    post->postData().material = L"horganyzott acél";
    lookAtPage(0, "210-general");
}

TEST_F(PagePictures, the_page_of_signs_with_a_selection_and_without) {
    addTable(L"Jelzés\\C-030.dwg");
    addTable(L"Jelzés\\B-020.dwg");
    addTable(L"Kiegészítő\\H-001.dwg");
    lookAtPage(1, "210-tables-none");
    lookAtPage(1, "210-tables", {L"@select 217 0", L"@check 237 on", L"@select 212 \"Megszüntetendő\""});
}

TEST_F(PagePictures, a_page_of_lamps) {
    post->addLampChain({90.0, 200.0, 0.0});
    post->addLampChain({110.0, 200.0, 0.0});
    lookAtPage(2, "210-lamps", {L"@click 234", L"@select 300 \"Sárga\"", L"@select 301 0", L"@ok"});
}

TEST_F(PagePictures, a_file_name_longer_than_its_place) {
    library.add(L"Tábla\\Jelzés hosszú nevű mappában\\B-02 Állj! Elsőbbségadás kötelező, megkülönböztetett.dwg", "box 1 1\n");
    addTable(L"Jelzés hosszú nevű mappában\\B-02 Állj! Elsőbbségadás kötelező, megkülönböztetett.dwg");
    lookAtPage(1, "210-tables-long-name", {L"@select 217 0"});
}

TEST_F(PagePictures, the_choice_of_a_block) {
    open(1);
    user.does(L"@click 232").does(L"@select 300 \"Jelzés\"");
    looksAt(user, "103-select");
    user.does(L"@cancel").does(L"@ok");
    run();
}

TEST_F(PagePictures, the_page_of_a_road_marking) {
    library.add(L"Burkolat\\Nyilak\\Egyenes.dwg", "box 0.5 5\nattdef HOSSZ 5\n");
    TrfcBlockEnt marking(loadBlockTemplate(TrfcAppSettings::getAppString(APP_BLOCK_BASE_PATH), L"Nyilak\\Egyenes.dwg"));
    looksAt(user, "144-marking");
    user.does(L"@ok");
    EXPECT_TRUE(marking.editProperties());
}

TEST_F(PagePictures, a_cell_while_it_is_edited) {
    open(0);
    user.sees([&] { grid().showCellEditor(0, 1); });
    looksAt(user, "210-general-editing");
    user.sees([&] { grid().showCellEditor(4, 1); });
    looksAt(user, "210-general-choosing");
    user.does(L"@ok");
    run();
}

TEST_F(PagePictures, the_small_windows) {
    CErrorDlg error(L"Hiba történt az alkalamazás beállítások betöltésekor.\n\n(A 'C:\\Felhasználók\\Tervező\\AppData\\Local\\Korvant 2018\\settings.ini' fájl sérült, vagy nem található)");
    looksAt(user, "220-error");
    user.does(L"@ok");
    error.DoModal();
    CTrfcAboutDlg about;
    looksAt(user, "221-about");
    user.does(L"@ok");
    about.DoModal();
    looksAt(user, "message-box");
    user.does(L"@ok");
    AfxMessageBox(L"Biztosan törölni akarja a kiemelt burkolati jelet?", MB_OKCANCEL | MB_ICONWARNING);
    looksAt(user, "folder");
    user.does(L"@cancel");
    CString folder;
    SHBrowseForFolderW(nullptr, L"Válassza ki a blokkok mappáját!", library.path(L"Tábla").c_str(), nullptr, folder);
}
