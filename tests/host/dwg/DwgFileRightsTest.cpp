// What saving leaves around the drawing itself: the rights on the file, and no open descriptor.
#include "AcPath.h"
#include "AcUtText.h"
#include "AcDbDatabase.h"
#include "Drawings.h"
#include "DwgCodec.h"
#include "OpenDescriptors.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {
struct DwgFileRights : testing::Test {
    DwgFileRights() : folder(testTempPath()), path(folder + "/drawing.dwg") { dwgInstallCodec(); }
    Acad::ErrorStatus save() {
        AcDbDatabase db;
        return db.saveAs(acHostPath(path).c_str());
    }
    static unsigned rightsOf(const std::string& file) {
        struct stat info {};
        EXPECT_EQ(::stat(file.c_str(), &info), 0) << file;
        return info.st_mode & 07777;
    }
    std::string folder, path;
};
} // namespace

TEST_F(DwgFileRights, a_saved_drawing_keeps_the_rights_of_the_file_it_replaces) {
    ASSERT_EQ(save(), Acad::eOk);
    for (const unsigned rights : {0640u, 0600u, 0664u, 0666u}) {
        ASSERT_EQ(::chmod(path.c_str(), rights), 0);
        ASSERT_EQ(save(), Acad::eOk);
        EXPECT_EQ(rightsOf(path), rights);
        EXPECT_EQ(rightsOf(folder + "/drawing.bak"), rights) << "the previous file keeps its own";
    }
}

TEST_F(DwgFileRights, a_new_drawing_has_the_rights_that_the_user_gives_to_new_files) {
    const mode_t earlier = ::umask(027);
    const Acad::ErrorStatus saved = save();
    ::umask(earlier);
    ASSERT_EQ(saved, Acad::eOk);
    EXPECT_EQ(rightsOf(path), 0640u);
}

TEST_F(DwgFileRights, neither_saving_nor_a_refused_open_leaves_a_descriptor_behind) {
    writeBytes(folder + "/letter.dwg", {'D', 'e', 'a', 'r'});
    writeBytes(folder + "/newer.dwg", {'A', 'C', '1', '0', '3', '2', 0});
    const std::ptrdiff_t before = openDescriptors();
    for (int i = 0; i < 3; ++i) {
        for (const char* name : {"/letter.dwg", "/newer.dwg", "/absent.dwg", ""}) {
            AcDbDatabase db(false);
            EXPECT_NE(db.readDwgFile(acHostPath(folder + name).c_str()), Acad::eOk) << name;
        }
        AcDbDatabase db;
        EXPECT_NE(db.saveAs(acHostPath(folder + "/absent/a.dwg").c_str()), Acad::eOk);
        EXPECT_EQ(save(), Acad::eOk);
    }
    EXPECT_EQ(openDescriptors(), before);
}
