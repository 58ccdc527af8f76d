// Several drawings: who is current, what is asked before one goes, what a save may replace.
#include "AcPath.h"
#include "EdSession.h"
#include "TestSupport.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <stdexcept>

namespace {
namespace fs = std::filesystem;

bool holds(const std::wstring& text, const wchar_t* part) {
    return text.find(part) != std::wstring::npos;
}

class EdDrawings : public testing::Test {
protected:
    EdDrawings() : folder(testTempDir()) { user.type({L"FILEDIA 0"}); }
    std::wstring at(const wchar_t* name) const { return folder + L"\\" + name; }
    fs::path file(const wchar_t* name) const { return acFileSystemPath(at(name)); }
    std::wstring current() const { return EdDocuments::instance().current()->title(); }
    static std::wstring name(std::size_t index) { return EdDocuments::instance().all()[index]->fileName(); }
    bool quits() const { return EdCommandRunner::instance().quitRequested(); }
    bool saved(const wchar_t* name) const { return fs::exists(file(name)); }
    std::size_t open() const { return EdDocuments::instance().all().size(); }
    // Two drawings with changes: Drawing1.dwg, and Drawing2.dwg which is current.
    void changeTwo() { user.type({L"POINT 1,1", L"NEW", L"POINT 2,2"}); }

    std::wstring folder;
    EdSession user;
};
} // namespace

TEST_F(EdDrawings, quit_without_changes_asks_nothing) {
    user.type({L"NEW", L"QUIT"});
    EXPECT_TRUE(quits());
}
TEST_F(EdDrawings, quit_asks_for_each_changed_drawing) {
    changeTwo();
    user.type({L"NEW", L"QUIT", L"N", L"N"});
    EXPECT_TRUE(quits());
    EXPECT_TRUE(user.printed(L"Save changes to Drawing1.dwg? [Yes/No/Cancel] <Yes>: N\nSave changes to Drawing2.dwg? "
                             L"[Yes/No/Cancel] <Yes>: N\n"));
    EXPECT_FALSE(user.printed(L"Drawing3.dwg?"));
}
TEST_F(EdDrawings, cancel_at_quit_stays_with_the_drawing_that_was_worked_on) {
    changeTwo();
    user.type({L"SWITCHWINDOWS 1", L"QUIT", L"N", L"C", L"COUNT"});
    EXPECT_FALSE(quits());
    EXPECT_EQ(current(), L"Drawing1.dwg");
    EXPECT_EQ(open(), 2u);
    EXPECT_TRUE(EdDocuments::instance().current()->database()->hasChangedSinceSave()) << "No has not been carried out";
    EXPECT_TRUE(user.printed(L"1  in all"));
}
TEST_F(EdDrawings, yes_at_quit_saves_each_and_asks_an_untitled_one_for_its_name) {
    user.type(
        {L"POINT 1,1", L"SAVEAS", at(L"a.dwg"), L"POINT 2,2", L"NEW", L"POINT 3,3", L"QUIT", L"Y", L"", at(L"b")});
    EXPECT_TRUE(quits());
    EXPECT_TRUE(saved(L"b.dwg"));
    for (const EdDocument* const document : EdDocuments::instance().all())
        EXPECT_FALSE(document->database()->hasChangedSinceSave()) << acToUtf8(document->fileName());
}
TEST_F(EdDrawings, a_save_that_fails_at_quit_keeps_the_program) {
    user.type({L"POINT 1,1", L"SAVEAS", at(L"locked.dwg"), L"POINT 2,2", L"NEW", L"POINT 3,3"});
    fs::permissions(file(L"locked.dwg"), fs::perms::owner_read);
    const auto size = fs::file_size(file(L"locked.dwg"));
    user.type({L"QUIT", L"Y"});
    EXPECT_FALSE(quits());
    EXPECT_TRUE(holds(user.refusal, L"locked.dwg cannot be saved: the file is write-protected."));
    EXPECT_EQ(fs::file_size(file(L"locked.dwg")), size);
    EXPECT_EQ(current(), L"Drawing2.dwg");
    EXPECT_EQ(open(), 2u);
}
TEST_F(EdDrawings, the_end_of_the_lines_at_the_question_is_no_answer) {
    user.type({L"POINT 1,1", L"QUIT"});
    EXPECT_FALSE(quits());
    EXPECT_TRUE(user.refusal.empty());
}
TEST_F(EdDrawings, close_asks_and_goes_to_the_drawing_opened_before) {
    changeTwo();
    user.type({L"CLOSE", L"C"});
    EXPECT_EQ(open(), 2u);
    user.type({L"CLOSE", L"N"});
    EXPECT_EQ(current(), L"Drawing1.dwg");
    EXPECT_TRUE(user.printed(L"Current drawing: Drawing1.dwg"));
}
TEST_F(EdDrawings, close_of_the_last_one_leaves_a_new_one) {
    user.type({L"CLOSE", L"POINT 1,1", L"COUNT"});
    EXPECT_EQ(open(), 1u);
    EXPECT_EQ(current(), L"Drawing2.dwg");
    EXPECT_TRUE(user.printed(L"New drawing: Drawing2.dwg"));
    EXPECT_TRUE(user.printed(L"1  in all"));
}
TEST_F(EdDrawings, open_of_an_open_one_goes_to_it) {
    user.type({L"SAVEAS", at(L"a.dwg"), L"POINT 1,1", L"NEW"});
    fs::create_symlink(file(L"a.dwg"), fs::path(acFileSystemPath(folder)) / "link.dwg");
    user.type({L"OPEN", at(L"a"), L"COUNT"});
    EXPECT_EQ(current(), L"a.dwg");
    EXPECT_TRUE(user.printed(L"1  in all")) << "with the changes that are not saved";
    user.type({L"SWITCHWINDOWS", L"2", L"OPEN", at(L"link.dwg")});
    EXPECT_EQ(current(), L"a.dwg");
    EXPECT_EQ(open(), 2u);
}
TEST_F(EdDrawings, saveas_over_another_file_asks) {
    user.type({L"SAVEAS", at(L"a.dwg"), L"NEW", L"POINT 1,1"});
    const auto before = fs::last_write_time(file(L"a.dwg"));
    user.type({L"SWITCHWINDOWS", L"1", L"SAVEAS", at(L"b.dwg"), L"SWITCHWINDOWS", L"2"});
    user.type({L"SAVEAS", at(L"a.dwg"), L""});
    EXPECT_EQ(fs::last_write_time(file(L"a.dwg")), before) << "Enter alone replaces nothing";
    EXPECT_TRUE(user.printed(L"Not saved."));
    EXPECT_TRUE(user.refusal.empty());
    user.type({L"SAVEAS", at(L"a.dwg"), L"Y"});
    EXPECT_NE(fs::last_write_time(file(L"a.dwg")), before);
    EXPECT_EQ(current(), L"a.dwg");
    user.type({L"POINT 5,5", L"SAVEAS", at(L"a.dwg"), L"COUNT"});
    EXPECT_TRUE(user.printed(L"2  in all")) << "its own file is not asked for";
}
TEST_F(EdDrawings, lines_that_end_at_that_question_have_failed) {
    user.type({L"SAVEAS", at(L"a.dwg"), L"NEW", L"SAVEAS", at(L"b.dwg"), L"NEW", L"POINT 1,1", L"SWITCHWINDOWS", L"2",
               L"CLOSE", L"SAVEAS", at(L"b.dwg")});
    EXPECT_TRUE(holds(user.refusal, L"b.dwg exists already and was not replaced."));
}
TEST_F(EdDrawings, saveas_over_an_open_drawing_is_refused) {
    user.type({L"SAVEAS", at(L"a.dwg"), L"NEW", L"SAVEAS", at(L"a.dwg")});
    EXPECT_TRUE(holds(user.refusal, L"a.dwg is open as another drawing"));
}
TEST_F(EdDrawings, no_dwg_is_written_under_the_name_of_another_format) {
    user.type({L"POINT 1,1", L"SAVEAS", at(L"x.DXF")});
    EXPECT_FALSE(saved(L"x.DXF"));
    EXPECT_TRUE(holds(user.refusal, L"x.DXF: drawings are saved as DWG; DXF is not supported yet."));
    EXPECT_EQ(current(), L"Drawing1.dwg");
    EXPECT_TRUE(fs::is_empty(fs::path(acFileSystemPath(folder))));
}
TEST_F(EdDrawings, a_folder_is_no_name_of_a_drawing) {
    user.type({L"SAVEAS", folder + L"\\"});
    EXPECT_TRUE(holds(user.refusal, L" names a folder, not a drawing."));
    EXPECT_TRUE(fs::is_empty(fs::path(acFileSystemPath(folder))));
}
TEST_F(EdDrawings, a_dot_in_a_name_is_no_ending) {
    user.type({L"SAVEAS", at(L"plan.v2"), L"CLOSE", L"OPEN", at(L"plan.v2")});
    EXPECT_TRUE(saved(L"plan.v2.dwg"));
    EXPECT_EQ(current(), L"plan.v2.dwg");
}
TEST_F(EdDrawings, a_drawing_is_named_by_number_name_beginning_or_enter) {
    user.type({L"SAVEAS", at(L"plan.dwg"), L"NEW", L"SAVEAS", at(L"plane.dwg"), L"NEW", L"SAVEAS", at(L"2.dwg"),
               L"POINT 1,1"});
    user.output.clear();
    user.type({L"SW plan"});
    EXPECT_EQ(current(), L"plan.dwg") << "a whole name is not ambiguous";
    EXPECT_TRUE(user.printed((L"  1  " + name(0) + L"\n").c_str()));
    EXPECT_TRUE(user.printed((L"* 3  " + name(2) + L"  (changed)\n").c_str()));
    user.type({L"SW PLANE"});
    EXPECT_EQ(current(), L"plane.dwg");
    user.type({L"SW 3"});
    EXPECT_EQ(current(), L"2.dwg");
    user.type({L"SW 2.d"});
    EXPECT_EQ(current(), L"2.dwg");
    user.type({L"SW", L"", L"COUNT"});
    EXPECT_EQ(current(), L"plan.dwg") << "behind the last one comes the first";
    user.type({L"SW", at(L"plane.dwg")});
    EXPECT_EQ(current(), L"plane.dwg");
    EXPECT_TRUE(user.refusal.empty());
}
TEST_F(EdDrawings, an_ambiguous_name_lists_what_it_may_mean_and_asks_again) {
    user.type({L"SAVEAS", at(L"plan.dwg"), L"NEW", L"SAVEAS", at(L"plane.dwg"), L"SW", L"pl", L"plan.dwg"});
    EXPECT_TRUE(user.printed((L"\"pl\" may be any of 1 " + name(0) + L", 2 " + name(1) + L".").c_str()));
    EXPECT_EQ(current(), L"plan.dwg");
    user.type({L"SW", L"x", L"y", L"z"});
    EXPECT_TRUE(holds(user.refusal, L"No open drawing is called \"z\"."));
    EXPECT_EQ(current(), L"plan.dwg");
}
TEST_F(EdDrawings, each_has_its_own_undo) {
    changeTwo();
    user.type({L"SW 1", L"U", L"COUNT"});
    EXPECT_TRUE(user.printed(L"0  in all"));
    user.type({L"SW 2", L"COUNT"});
    EXPECT_TRUE(user.printed(L"1  in all"));
}
TEST_F(EdDrawings, a_reactor_that_throws_does_not_stop_the_change_of_drawings) {
    class Bad : public AcApDocManagerReactor {
    public:
        Bad() { acDocManager->addReactor(this); }
        ~Bad() override { acDocManager->removeReactor(this); }
        void documentToBeActivated(AcApDocument*) override { throw std::runtime_error("no"); }
    } const bad;
    user.type({L"NEW"});
    EXPECT_EQ(user.refusal, L"A reactor of the drawings failed: no");
    EXPECT_EQ(current(), L"Drawing2.dwg");
    EXPECT_EQ(edDatabase(), EdDocuments::instance().current()->database());
}
