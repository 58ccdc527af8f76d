// Whole drawings: strangers' are read, written and read again without a loss; what does not change in
// meaning does not change in bits.
#include "DbObjectAccess.h"
#include "Drawings.h"
#include "DwgClasses.h"
#include "DwgCodec.h"
#include "DwgCommonData.h"
#include "DwgReader.h"
#include "DwgWriter.h"
#include "TestSupport.h"

#include "AcPath.h"
#include "AcUtText.h"

#include <gtest/gtest.h>
#include <map>

namespace {
std::string narrow(const std::wstring& text) { return acToUtf8(text); }

class DwgDrawing : public testing::TestWithParam<std::string> {
protected:
    static void SetUpTestSuite() { dwgInstallCodec(); }
};

std::string typeName(const AcDbObject& object) {
    if (const auto* proxy = AcDbProxyEntity::cast(&object))
        return narrow(proxy->originalClassName());
    if (const auto* proxy = AcDbProxyObject::cast(&object))
        return narrow(proxy->originalClassName());
    return narrow(object.isA()->name());
}
// Names of the index for the classes that are modelled.
std::string indexName(const AcDbObject& object) {
    static const std::map<std::string, std::string> names = {
        {"AcDbLine", "LINE"}, {"AcDbCircle", "CIRCLE"}, {"AcDbArc", "ARC"}, {"AcDbEllipse", "ELLIPSE"}, {"AcDbPoint", "POINT"},
        {"AcDbText", "TEXT"}, {"AcDbMText", "MTEXT"}, {"AcDbAttributeDefinition", "ATTDEF"}, {"AcDbBlockReference", "INSERT"},
        {"AcDbPolyline", "LWPOLYLINE"}, {"AcDb2dPolyline", "POLYLINE_2D"}, {"AcDb3dPolyline", "POLYLINE_3D"}, {"AcDbSolid", "SOLID"},
        {"AcDbSpline", "SPLINE"}, {"AcDbHatch", "HATCH"},
    };
    const std::string name = typeName(object);
    const auto known = names.find(name);
    return known == names.end() ? name : known->second;
}
std::string typesOf(AcDbDatabase& db, AcDbObjectId blockId, int& count) {
    std::map<std::string, int> types;
    const auto* block = AcDbBlockTableRecord::cast(DbObjectAccess::peek(blockId));
    count = 0;
    for (const AcDbObjectId id : block->entityIds()) {
        ++types[indexName(*DbObjectAccess::peek(id))];
        ++count;
    }
    (void)db;
    std::vector<std::pair<int, std::string>> sorted;
    for (const auto& [name, number] : types)
        sorted.emplace_back(-number, name);
    std::sort(sorted.begin(), sorted.end());
    std::string text;
    for (const auto& [number, name] : sorted)
        text += (text.empty() ? "" : " ") + name + ":" + std::to_string(-number);
    return text;
}
std::vector<std::string> words(const std::string& text) {
    std::vector<std::string> list;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = std::min(text.find(' ', at), text.size());
        list.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    std::sort(list.begin(), list.end());
    return list;
}
struct Known {
    std::string type;
    Adesk::UInt64 owner = 0;
    std::vector<Adesk::UInt8> rawBytes;
    std::vector<std::wstring> filed;
};
// What each object is, by handle, with the listing of its filed fields.
std::map<Adesk::UInt64, Known> contents(AcDbDatabase& db) {
    std::map<Adesk::UInt64, Known> all;
    DbObjectAccess::setLoading(db, true);
    for (const AcDbObjectId id : DbObjectAccess::allIds(db)) {
        AcDbObject& object = *DbObjectAccess::peek(id);
        Known& known = all[id.handle()];
        known.type = typeName(object);
        known.owner = DbObjectAccess::data(object).owner.handle();
        if (DbObjectAccess::data(object).raw)
            known.rawBytes = DbObjectAccess::data(object).raw->bytes;
        AcDbRecordingFiler filer;
        object.dwgOut(&filer);
        known.filed = filer.lines();
    }
    DbObjectAccess::setLoading(db, false);
    return all;
}
std::vector<std::string> drawingPaths() {
    std::vector<std::string> paths;
    for (const IndexedDrawing& drawing : indexedDrawings("AC1015"))
        paths.push_back(drawing.path);
    if (paths.empty())
        paths.push_back({});
    return paths;
}
} // namespace

TEST_P(DwgDrawing, opens_with_the_entities_its_index_lists) {
    SKIP_WITHOUT_DRAWINGS();
    for (const IndexedDrawing& drawing : indexedDrawings("AC1015")) {
        if (drawing.path != GetParam())
            continue;
        AcDbDatabase db(false);
        ASSERT_EQ(db.readDwgFile(acHostPath(drawing.path).c_str()), Acad::eOk) << narrow(db.lastError());
        int model = 0, paper = 0;
        const std::string types = typesOf(db, db.modelSpaceId(), model);
        EXPECT_EQ(model, drawing.modelEntities);
        EXPECT_EQ(words(types), words(drawing.modelByType));
        const auto* blocks = AcDbBlockTable::cast(DbObjectAccess::peek(db.blockTableId()));
        for (const AcDbObjectId id : blocks->recordIds()) {
            int count = 0;
            typesOf(db, id, count);
            if (AcDbBlockTableRecord::cast(DbObjectAccess::peek(id))->name().rfind(ACDB_PAPER_SPACE, 0) == 0)
                paper += count;
        }
        EXPECT_EQ(paper, drawing.paperEntities);
    }
}

TEST_P(DwgDrawing, every_record_that_a_class_models_is_understood) {
    SKIP_WITHOUT_DRAWINGS();
    AcDbDatabase db(false);
    ASSERT_EQ(db.readDwgFile(acHostPath(GetParam()).c_str()), Acad::eOk);
    for (const AcDbObjectId id : DbObjectAccess::allIds(db)) {
        AcDbObject& object = *DbObjectAccess::peek(id);
        const AcDbObjectImpData* data = DbObjectAccess::dataIfAny(object);
        if (data == nullptr || !data->raw || (AcDbProxyEntity::cast(&object) == nullptr && AcDbProxyObject::cast(&object) == nullptr))
            continue;
        EXPECT_EQ(dwgRowOfType(data->raw->objectType), nullptr) << typeName(object) << " " << narrow(id.handle().text());
    }
}

TEST_P(DwgDrawing, comes_back_with_the_same_objects_handles_owners_and_bits) {
    SKIP_WITHOUT_DRAWINGS();
    const std::wstring target = testTempDir() + L"\\again.dwg";
    AcDbDatabase db(false);
    ASSERT_EQ(db.readDwgFile(acHostPath(GetParam()).c_str()), Acad::eOk);
    const std::map<Adesk::UInt64, Known> before = contents(db);
    ASSERT_EQ(db.saveAs(target.c_str()), Acad::eOk) << narrow(db.lastError());
    AcDbDatabase second(false);
    ASSERT_EQ(second.readDwgFile(target.c_str()), Acad::eOk) << narrow(second.lastError());
    std::map<Adesk::UInt64, Known> after = contents(second);
    for (const auto& [handle, known] : before) {
        SCOPED_TRACE(known.type + " " + narrow(AcDbHandle(handle).text()));
        ASSERT_EQ(after.count(handle), 1U);
        const Known& again = after[handle];
        EXPECT_EQ(again.type, known.type);
        EXPECT_EQ(again.owner, known.owner);
        if (known.rawBytes.empty() && !again.rawBytes.empty())
            continue; // a standard record that was missing and has been made
        EXPECT_EQ(again.rawBytes, known.rawBytes);
        EXPECT_EQ(again.filed.size(), known.filed.size());
        for (std::size_t i = 0; i < std::min(again.filed.size(), known.filed.size()); ++i)
            EXPECT_EQ(narrow(again.filed[i]), narrow(known.filed[i]));
    }
}

TEST_P(DwgDrawing, keeps_the_header_variables_and_the_preview) {
    SKIP_WITHOUT_DRAWINGS();
    const std::string target = testTempPath() + "/again.dwg";
    AcDbDatabase db(false);
    ASSERT_EQ(db.readDwgFile(acHostPath(GetParam()).c_str()), Acad::eOk);
    ASSERT_EQ(db.saveAs(acHostPath(target).c_str()), Acad::eOk);
    DwgFile first, second;
    DwgError error;
    ASSERT_TRUE(first.load(GetParam(), error));
    ASSERT_TRUE(second.load(target, error));
    DwgHeaderVars was, is;
    ASSERT_TRUE(was.read(first, DwgTextCodec(first.codePage()), error));
    ASSERT_TRUE(is.read(second, DwgTextCodec(second.codePage()), error));
    for (std::size_t row = 0; row < DwgHeaderVars::rows().size(); ++row) {
        const DwgVarValue &a = was.at(static_cast<int>(row)), &b = is.at(static_cast<int>(row));
        const std::wstring name = DwgHeaderVars::rows()[row].name;
        if (name == L"HANDSEED" || name == L"VX_CONTROL") // objects that were missing have been made
            continue;
        EXPECT_EQ(a.integer, b.integer) << narrow(name);
        EXPECT_NEAR(a.real, b.real, 1e-9) << narrow(name);
        EXPECT_EQ(a.handle, b.handle) << narrow(name);
        EXPECT_EQ(a.text, b.text) << narrow(name);
    }
    EXPECT_EQ(first.preview(), second.preview());
    EXPECT_EQ(first.measurement(), second.measurement());
    EXPECT_EQ(first.codePage(), second.codePage());
}

INSTANTIATE_TEST_SUITE_P(Real, DwgDrawing, testing::ValuesIn(drawingPaths()), [](const auto& info) {
    std::string name = info.param.substr(info.param.rfind('/') + 1);
    for (char& c : name)
        c = std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
    return name.empty() ? std::string("none") : name;
});
