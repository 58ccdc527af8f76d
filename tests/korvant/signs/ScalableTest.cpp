// The change of scale: live fields, parked records, their filing.
#include "SignsFixture.h"

#include "TrfcFields.h"

namespace {

// A scalable with one field, which tells what was called.
class Probe : public TrfcScalable {
public:
    double size = 1.0;
    std::vector<std::wstring> calls;
    int scaleSeenByGeometry = 0;
    double faultAt = -1.0; // a record of this size is copied with a fault

    Acad::ErrorStatus dwgOutScale(AcDbDwgFiler* filer) const override { return filer->writeDouble(size); }
    Acad::ErrorStatus dwgInScale(AcDbDwgFiler* filer) override {
        calls.emplace_back(L"in");
        return filer->readDouble(&size);
    }
    Acad::ErrorStatus copyFiler(AcDbDwgFiler* source, AcDbDwgFiler* target) const override {
        double value = 0.0;
        source->readDouble(&value);
        target->writeDouble(value);
        if (value == faultAt)
            return Acad::eInvalidInput;
        return source->filerStatus() != Acad::eOk ? source->filerStatus() : target->filerStatus();
    }
    void createNewScale(int oldScale, int newScale) override {
        calls.push_back(acFormat(L"new %d %d", oldScale, newScale));
        size *= static_cast<double>(newScale) / oldScale;
    }
    void geometryChanged() override {
        calls.emplace_back(L"geometry");
        scaleSeenByGeometry = currentScale();
    }
};

class Scalable : public SignsFixture {};

using Calls = std::vector<std::wstring>;
using Scales = std::vector<int>;

} // namespace

TEST_F(Scalable, a_new_entity_stands_at_the_drawings_scale_without_records) {
    setScale(200);
    const Probe probe;
    EXPECT_EQ(probe.currentScale(), 200);
    EXPECT_TRUE(probe.recordedScales().empty());
}

TEST_F(Scalable, the_current_denominator_exchanges_nothing_and_refreshes_the_geometry) {
    Probe probe;
    probe.setScale(500);
    EXPECT_EQ(probe.calls, Calls{L"geometry"});
    EXPECT_TRUE(probe.recordedScales().empty());
}

TEST_F(Scalable, a_scale_met_for_the_first_time_is_derived_from_the_live_fields) {
    Probe probe;
    probe.setScale(1000);
    EXPECT_EQ(probe.calls, (Calls{L"new 500 1000", L"geometry"}));
    EXPECT_DOUBLE_EQ(probe.size, 2.0);
    EXPECT_EQ(probe.recordedScales(), Scales{500});
    EXPECT_EQ(probe.currentScale(), 1000);
}

TEST_F(Scalable, the_geometry_is_refreshed_before_the_new_denominator_is_taken) {
    Probe probe;
    probe.setScale(1000);
    EXPECT_EQ(probe.scaleSeenByGeometry, 500);
}

TEST_F(Scalable, going_there_and_back_restores_the_exact_fields) {
    Probe probe;
    probe.size = 1.234567890123;
    probe.setScale(1000);
    probe.setScale(500);
    EXPECT_EQ(probe.size, 1.234567890123);
    EXPECT_EQ(probe.recordedScales(), (Scales{500, 1000}));
}

TEST_F(Scalable, a_change_at_one_scale_is_not_carried_to_another) {
    Probe probe;
    probe.setScale(1000);
    probe.size = 77.0;
    probe.setScale(500);
    EXPECT_DOUBLE_EQ(probe.size, 1.0);
    probe.size = 5.0;
    probe.setScale(1000);
    EXPECT_DOUBLE_EQ(probe.size, 77.0);
    probe.setScale(500);
    EXPECT_DOUBLE_EQ(probe.size, 5.0);
}

TEST_F(Scalable, a_plain_transformation_drops_all_records_and_rescales_from_the_moved_geometry) {
    auto post = newPost();
    setScale(1000);
    post->setScale(1000);
    setScale(500);
    post->setScale(500);
    ASSERT_EQ(post->recordedScales(), (Scales{500, 1000}));
    post->transformBy(AcGeMatrix3d::translation({100.0, 0.0, 0.0}));
    EXPECT_TRUE(post->recordedScales().empty());
    setScale(1000);
    post->setScale(1000);
    expectNear(post->pointA(), {100.0, 0.0, 0.0});
    expectNear(post->pointB(), {100.0, 20.0, 0.0});
}

TEST_F(Scalable, files_its_records_as_typed_fields_in_ascending_order) {
    Probe probe;
    probe.setScale(1000);
    probe.setScale(200);
    AcDbRecordingFiler filer;
    probe.TrfcScalable::dwgOutFields(&filer);
    const auto lines = filer.lines();
    EXPECT_EQ(linesWith(lines, L"writeUInt32"), Calls{L"writeUInt32 7"});
    const auto shorts = linesWith(lines, L"writeInt16 "); // the entity's own come first
    ASSERT_GE(shorts.size(), 3u);
    EXPECT_EQ(Calls(shorts.end() - 3, shorts.end()), (Calls{L"writeInt16 2", L"writeInt16 500", L"writeInt16 1000"}));
    const auto doubles = linesWith(lines, L"writeDouble");
    ASSERT_GE(doubles.size(), 2u);
    EXPECT_EQ(doubles[doubles.size() - 2], L"writeDouble 1");
    EXPECT_EQ(doubles.back(), L"writeDouble 2");
}

TEST_F(Scalable, the_record_of_the_live_scale_is_filed_whole_though_it_was_read_to_its_end) {
    auto post = newPost();
    setScale(1000);
    post->setScale(1000);
    setScale(500);
    post->setScale(500);
    const auto first = filed(*post), second = filed(*post);
    EXPECT_EQ(first, second);
    EXPECT_TRUE(printed.empty()) << acToUtf8(printed);
}

TEST_F(Scalable, a_record_survives_filing_and_is_readable_afterwards) {
    auto post = newPost();
    setScale(1000);
    post->setScale(1000);
    const std::unique_ptr<TrfcPost> copy(post->clone());
    EXPECT_EQ(copy->recordedScales(), Scales{500});
    setScale(500);
    copy->setScale(500);
    expectNear(copy->pointB(), {0.0, 10.0, 0.0});
    EXPECT_EQ(copy->recordedScales(), (Scales{500, 1000}));
}

TEST_F(Scalable, reading_takes_the_drawings_scale_whatever_the_entity_had) {
    auto post = newPost();
    setScale(250);
    const std::unique_ptr<TrfcPost> copy(post->clone());
    EXPECT_EQ(copy->currentScale(), 250);
}

TEST_F(Scalable, the_files_record_of_the_current_scale_stays_unread_until_it_is_replaced) {
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    Probe source;
    source.setScale(1000);
    source.setScale(500); // records of 500 (1.0) and 1000
    source.size = 42.0;
    source.TrfcScalable::dwgOutFields(&memory);
    memory.seek(0, AcDb::kSeekFromStart);
    Probe probe;
    probe.size = 9.0;
    ASSERT_EQ(probe.TrfcScalable::dwgInFields(&memory), Acad::eOk);
    EXPECT_EQ(probe.currentScale(), 500);
    EXPECT_EQ(probe.recordedScales(), (Scales{500, 1000}));
    EXPECT_DOUBLE_EQ(probe.size, 9.0);
    probe.setScale(1000);
    probe.setScale(500);
    EXPECT_DOUBLE_EQ(probe.size, 9.0);
}

namespace {
void writeHead(AcDbDwgFiler& filer, Adesk::UInt32 version) {
    AcDbLine().AcDbEntity::dwgOutFields(&filer);
    filer.writeUInt32(version);
}
} // namespace

TEST_F(Scalable, version_0_yields_an_entity_without_records) {
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    writeHead(memory, 0);
    memory.seek(0, AcDb::kSeekFromStart);
    Probe probe;
    probe.setScale(1000);
    EXPECT_EQ(probe.TrfcScalable::dwgInFields(&memory), Acad::eOk);
    EXPECT_TRUE(probe.recordedScales().empty());
}

TEST_F(Scalable, a_later_version_asks_for_a_proxy) {
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    writeHead(memory, 8);
    memory.seek(0, AcDb::kSeekFromStart);
    Probe probe;
    EXPECT_EQ(probe.TrfcScalable::dwgInFields(&memory), Acad::eMakeMeProxy);
}

TEST_F(Scalable, denominators_above_16_signed_bits_come_back_positive) {
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    writeHead(memory, 7);
    memory.writeInt16(1);
    memory.writeInt16(static_cast<Adesk::Int16>(40000));
    memory.writeDouble(3.0);
    memory.seek(0, AcDb::kSeekFromStart);
    Probe probe;
    EXPECT_EQ(probe.TrfcScalable::dwgInFields(&memory), Acad::eOk);
    EXPECT_EQ(probe.recordedScales(), Scales{40000});
}

TEST_F(Scalable, a_record_that_cannot_be_read_is_told_on_the_command_line) {
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    writeHead(memory, 7);
    memory.writeInt16(1);
    memory.writeInt16(1000);
    memory.writeString(L"no record");
    memory.seek(0, AcDb::kSeekFromStart);
    Probe probe;
    EXPECT_NE(probe.TrfcScalable::dwgInFields(&memory), Acad::eOk);
    EXPECT_EQ(printed, L"TrfcScalable::dwgInFields error: eFilerError\n");
}

TEST_F(Scalable, a_record_that_cannot_be_written_is_told_and_the_others_follow) {
    Probe probe; // 500: 1.0, 1000: 2.0, live at 200
    probe.setScale(1000);
    probe.setScale(200);
    probe.faultAt = 1.0;
    AcDbRecordingFiler filer;
    EXPECT_EQ(probe.TrfcScalable::dwgOutFields(&filer), Acad::eOk);
    EXPECT_EQ(printed, L"TrfcScalable::dwgOutFields error: eInvalidInput\n");
    EXPECT_EQ(linesWith(filer.lines(), L"writeDouble").back(), L"writeDouble 2");
}

TEST_F(Scalable, a_record_that_was_read_with_a_fault_is_kept_and_the_others_follow) {
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    writeHead(memory, 7);
    memory.writeInt16(2);
    for (const int scale : {500, 1000}) {
        memory.writeInt16(static_cast<Adesk::Int16>(scale));
        memory.writeDouble(scale / 500.0);
    }
    memory.seek(0, AcDb::kSeekFromStart);
    setScale(200);
    Probe probe;
    probe.faultAt = 1.0;
    EXPECT_EQ(probe.TrfcScalable::dwgInFields(&memory), Acad::eOk);
    EXPECT_EQ(printed, L"TrfcScalable::dwgInFields error: eInvalidInput\n");
    EXPECT_EQ(probe.recordedScales(), (Scales{500, 1000}));
    probe.setScale(1000);
    EXPECT_DOUBLE_EQ(probe.size, 2.0);
}

TEST_F(Scalable, every_version_from_1_on_has_the_same_layout) {
    for (Adesk::UInt32 version = 1; version <= 7; ++version) {
        SCOPED_TRACE(version);
        AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
        writeHead(memory, version);
        memory.writeInt16(1);
        memory.writeInt16(1000);
        memory.writeDouble(7.0);
        memory.seek(0, AcDb::kSeekFromStart);
        Probe probe;
        EXPECT_EQ(probe.TrfcScalable::dwgInFields(&memory), Acad::eOk);
        probe.setScale(1000);
        EXPECT_DOUBLE_EQ(probe.size, 7.0);
    }
}

TEST_F(Scalable, the_base_files_and_derives_nothing) {
    TrfcScalable base;
    AcDbRecordingFiler filer;
    EXPECT_EQ(base.dwgOutScale(&filer), Acad::eOk);
    EXPECT_EQ(base.dwgInScale(&filer), Acad::eOk);
    EXPECT_EQ(base.copyFiler(&filer, &filer), Acad::eOk);
    EXPECT_TRUE(filer.lines().empty());
    base.setScale(1000);
    EXPECT_EQ(base.currentScale(), 1000);
    EXPECT_EQ(base.recordedScales(), Scales{500});
}

TEST_F(Scalable, every_class_is_registered_with_its_names) {
    struct Row {
        const AcRxClass* type;
        const AcRxClass* parent;
        const wchar_t* dxfName;
        const wchar_t* words;
    };
    const Row rows[] = {
        {TrfcScalable::desc(), AcDbEntity::desc(), L"TrfcScalable", L"TRFCSIGNARXAPP |Product Desc: Scalable Custom Entity |Company: Tessaron Ltd |WEB Address:"},
        {TrfcPost::desc(), TrfcScalable::desc(), L"Korvant Oszlop",
         L"TRFCSIGNARXAPP |Product Desc: Traffic Sign Custom Entity |Company: Tessaron Ltd |WEB Address:"},
        {TrfcBlock::desc(), AcDbEntity::desc(), L"Korvant Blokk", L"TRFCSIGNARXAPP |Product Desc:     Traffic Block Custom Entity, abstract class"},
        {TrfcTypedBlock::desc(), TrfcBlock::desc(), L"TrfcTypedBlock",
         L"TRFCSIGNARXAPP |Product Desc: Traffic Post Table Custom Entity |Company: Tessaron Ltd |WEB Address:"},
        {TrfcBlockEnt::desc(), TrfcBlock::desc(), L"Korvant Blokk",
         L"TRFCSIGNARXAPP |Product Desc: Traffic Block Custom Entity |Company: Tessaron Ltd |WEB Address:"},
        {TrfcTable::desc(), TrfcTypedBlock::desc(), L"TrfcTable",
         L"TRFCSIGNARXAPP |Product Desc: Traffic Post Table Custom Entity |Company: Tessaron Ltd |WEB Address:"},
        {TrfcLamp::desc(), TrfcTypedBlock::desc(), L"TrfcLamp", L"TRFCSIGNARXAPP |Product Desc: Traffic Lamp Custom Entity |Company: Tessaron Ltd |WEB Address:"},
        {TrfcBlockChain::desc(), AcDbEntity::desc(), L"TrfcBlockChain",
         L"TRFCSIGNARXAPP |Product Desc: Traffic Block Chain Custom Entity |Company: Tessaron Ltd |WEB Address:"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.type->myParent(), row.parent) << acToUtf8(row.type->name());
        EXPECT_STREQ(row.type->dxfName(), row.dxfName);
        EXPECT_STREQ(row.type->appName(), row.words);
        int version = 0, maintenance = 0;
        row.type->getClassVersion(version, maintenance);
        EXPECT_EQ(version, 31);
        EXPECT_EQ(maintenance, 125);
        EXPECT_EQ(row.type->proxyFlags(), 0);
    }
}
