// Which folders of a library are listed: links, circles, paths that are not set.
#include "LibraryWalk.h"

#include "AcPath.h"
#include "AcUtText.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {
namespace fs = std::filesystem;

class Walk : public testing::Test {
protected:
    Walk() : mFolder(testTempPath()) {
        for (const char* name : {"lib/a/deep", "lib/b", "share/signs/old"})
            fs::create_directories(mFolder / name);
    }
    void link(const fs::path& target, const char* name) { fs::create_directory_symlink(target, mFolder / name); }
    // Every folder that the tree shows, as paths with slashes.
    std::string tree(const char* root = "lib") {
        LibraryWalk walk(acHostPath((mFolder / root).string()));
        std::string shown;
        list(walk, acHostPath((mFolder / root).string()), "", shown);
        return shown;
    }
    fs::path mFolder;

private:
    static void list(LibraryWalk& walk, const std::wstring& folder, const std::string& above, std::string& shown) {
        for (const LibraryWalk::Folder& found : walk.foldersOf(folder)) {
            const std::string path = above + acToUtf8(found.name);
            shown += path + " ";
            if (found.goesDown)
                list(walk, found.path, path + "/", shown);
        }
    }
};
} // namespace

TEST_F(Walk, a_library_that_is_not_set_or_absent_has_no_folders) {
    LibraryWalk notSet(L"");
    EXPECT_TRUE(notSet.foldersOf(L"").empty());
    LibraryWalk absent(L"\\none");
    EXPECT_TRUE(absent.foldersOf(L"\\none").empty());
    EXPECT_EQ(tree(), "a a/deep b ");
}

TEST_F(Walk, a_link_out_of_the_library_is_shown_with_what_it_holds) {
    link(mFolder / "share", "lib/office");
    EXPECT_EQ(tree(), "a a/deep b office office/signs office/signs/old ");
}

TEST_F(Walk, a_library_may_be_a_link_itself) {
    link("lib", "alias");
    EXPECT_EQ(tree("alias"), "a a/deep b ");
}

TEST_F(Walk, a_link_into_the_library_or_around_it_is_not_followed) {
    link(".", "lib/a/self");
    link("..", "lib/a/up");
    link("/", "lib/b/disk");
    link(mFolder / "lib/b", "lib/a/other");
    EXPECT_EQ(tree(), "a a/deep a/other a/self a/up b b/disk ");
}

TEST_F(Walk, links_to_one_place_are_followed_once_and_circles_end) {
    link(mFolder / "share", "lib/office");
    link(mFolder / "share", "lib/office2");
    link(mFolder / "lib", "share/back");
    link(mFolder / "share", "share/signs/round");
    EXPECT_EQ(tree(), "a a/deep b office office/back office/signs office/signs/old office/signs/round office2 ");
}

TEST_F(Walk, a_folder_beside_the_library_whose_name_begins_alike_is_elsewhere) {
    fs::create_directories(mFolder / "library2/x");
    link(mFolder / "library2", "lib/b/z");
    EXPECT_EQ(tree(), "a a/deep b b/z b/z/x ");
}

TEST_F(Walk, more_folders_than_any_library_has_are_left_out) {
    for (int i = 0; i < 5100; ++i)
        fs::create_directory(mFolder / "lib/a" / std::to_string(i));
    LibraryWalk walk(acHostPath((mFolder / "lib").string()));
    EXPECT_EQ(walk.foldersOf(acHostPath((mFolder / "lib").string())).size(), 2u);
    EXPECT_FALSE(walk.wasCutShort());
    EXPECT_EQ(walk.foldersOf(acHostPath((mFolder / "lib/a").string())).size(), 4998u);
    EXPECT_TRUE(walk.wasCutShort());
}
