// An independent reader opens what we write and sees the same: our own drawings, and strangers' after a
// save of ours. It runs as a program of its own (see peer.mjs).
#include "AcPath.h"
#include "AcUtText.h"
#include "Drawings.h"
#include "DwgCodec.h"
#include "Samples.h"
#include "TestShell.h"
#include "TestSupport.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>

namespace {
const std::string kModules = testSourceDir() + "/node_modules";

std::string modules() {
    const char* named = std::getenv("KORVANT_NODE_MODULES");
    return named != nullptr ? named : kModules;
}
bool hasPeer() {
    return std::filesystem::exists(modules() + "/@mlightcad/libredwg-web/wasm/libredwg-web.js") && std::system("node --version > /dev/null 2>&1") == 0;
}
// The peer's lines, one a drawing.
std::string peerSees(const std::string& paths) {
    const std::string command = "node " + testShellWord(testSourceDir() + "/tests/host/dwg/peer.mjs") + " " + testShellWord(modules()) + " " + paths + " 2>&1";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(::popen(command.c_str(), "r"), ::pclose);
    std::string answer;
    std::array<char, 4096> buffer{};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe.get()))
        answer.append(buffer.data(), count);
    return answer;
}
} // namespace

#define SKIP_WITHOUT_PEER()                                                                                            \
    if (!hasPeer())                                                                                                    \
    GTEST_SKIP() << "skipped: the independent reader is not installed"

TEST(DwgPeer, opens_an_empty_drawing_of_ours) {
    SKIP_WITHOUT_PEER();
    dwgInstallCodec();
    const std::string path = testTempPath() + "/new.dwg";
    AcDbDatabase db;
    ASSERT_EQ(db.saveAs(acHostPath(path).c_str()), Acad::eOk);
    const std::string seen = peerSees(path);
    EXPECT_NE(seen.find("\"error\":0,"), std::string::npos) << seen;
    EXPECT_NE(seen.find("\"layers\":[\"0\"]"), std::string::npos) << seen;
    EXPECT_NE(seen.find("\"modelEntities\":0"), std::string::npos) << seen;
}

TEST(DwgPeer, finds_our_layers_blocks_and_entities) {
    SKIP_WITHOUT_PEER();
    dwgInstallCodec();
    const SampleModule module;
    const std::string path = testTempPath() + "/sample.dwg";
    AcDbDatabase db;
    sampleFill(db);
    ASSERT_EQ(db.saveAs(acHostPath(path).c_str()), Acad::eOk);
    const std::string seen = peerSees(path);
    EXPECT_NE(seen.find("\"error\":0,"), std::string::npos) << seen;
    EXPECT_NE(seen.find("\"layers\":[\"0\",\"Roads\",\"Útjelölés\"]"), std::string::npos) << seen;
    EXPECT_NE(seen.find("\"PLATE\":{\"LINE\":1,\"ATTDEF\":1}"), std::string::npos) << seen;
    for (const char* part : {"\"LINE\":3", "\"CIRCLE\":1", "\"ARC\":1", "\"ELLIPSE\":1", "\"POINT\":1", "\"SOLID\":1", "\"SPLINE\":2", "\"LWPOLYLINE\":1",
                             "\"POLYLINE2D\":1", "\"POLYLINE3D\":1", "\"TEXT\":1", "\"MTEXT\":1", "\"INSERT\":2", "\"HATCH\":2"})
        EXPECT_NE(seen.find(part), std::string::npos) << part << " in " << seen;
}

TEST(DwgPeer, finds_the_extents_of_what_our_drawing_shows) {
    SKIP_WITHOUT_PEER();
    dwgInstallCodec();
    const SampleModule module;
    const std::string path = testTempPath() + "/extents.dwg";
    AcDbDatabase db;
    sampleAppend(db, new AcDbLine({-3.0, 2.0, 0.0}, {7.0, 5.0, 0.0}));
    sampleAppend(db, new AcDbCircle({20.0, 10.0, 0.0}, AcGeVector3d::kZAxis, 4.0));
    ASSERT_EQ(db.saveAs(acHostPath(path).c_str()), Acad::eOk);
    const std::string seen = peerSees(path);
    EXPECT_NE(seen.find("\"extents\":[[-3,2,0],[24,14,0],[100000000000000000000,"), std::string::npos) << seen;
}

TEST(DwgPeer, sees_strangers_drawings_unchanged_after_a_save_of_ours) {
    SKIP_WITHOUT_PEER();
    SKIP_WITHOUT_DRAWINGS();
    dwgInstallCodec();
    const std::string folder = testTempPath();
    std::string originals, saved;
    for (const IndexedDrawing& drawing : indexedDrawings("AC1015")) {
        const std::string path = folder + drawing.path.substr(drawing.path.rfind('/'));
        AcDbDatabase db(false);
        ASSERT_EQ(db.readDwgFile(acHostPath(drawing.path).c_str()), Acad::eOk);
        ASSERT_EQ(db.saveAs(acHostPath(path).c_str()), Acad::eOk);
        originals += " '" + drawing.path + "'";
        saved += " '" + path + "'";
    }
    const std::string before = peerSees(originals);
    EXPECT_NE(before.find("\"error\":0"), std::string::npos) << before;
    EXPECT_EQ(peerSees(saved), before);
}
