// Field lists: one list writes, reads and copies a record.
#include "TrfcFields.h"

#include "AcUtText.h"

#include <gtest/gtest.h>

namespace {
struct Record {
    Adesk::Int32 state = 0;
    AcGePoint3d point;
    double size = 0.0;
    bool on = false;
    Adesk::Int32 number = 0;
    std::wstring text;
};
constexpr auto kFields = [](auto& record, const auto& field) {
    field(1, trfcShort(record.state));
    field(1, record.point);
    field(6, record.size);
    field(1, record.on);
    field(2, record.number);
    field(1, record.text);
};

std::vector<std::wstring> written(void (*write)(AcDbDwgFiler&)) {
    AcDbRecordingFiler filer;
    write(filer);
    return filer.lines();
}
// What a program of that version wrote.
template <class Kind> void writeAsOf(AcDbDwgFiler& filer, Adesk::UInt32 version, const Record& record) {
    Kind::writeVersion(filer, version);
    Kind::writeShort(filer, record.state);
    trfcWrite(filer, record.point);
    if (version >= 6)
        trfcWrite(filer, record.size);
    trfcWrite(filer, record.on);
    if (version >= 2)
        trfcWrite(filer, record.number);
    trfcWrite(filer, record.text);
}
const Record kRecord{2, {1.0, 2.0, 3.0}, 4.5, true, -7, L"Árvíztűrő"};

void expectSame(const Record& a, const Record& b) {
    EXPECT_EQ(a.state, b.state);
    EXPECT_EQ(a.point, b.point);
    EXPECT_EQ(a.size, b.size);
    EXPECT_EQ(a.on, b.on);
    EXPECT_EQ(a.number, b.number);
    EXPECT_EQ(a.text, b.text);
}
} // namespace

TEST(Fields, posts_file_unsigned_numbers_and_pairs_and_crossings_signed_ones) {
    EXPECT_EQ(written([](AcDbDwgFiler& filer) { trfcWriteRecord<TrfcUnsignedKind>(filer, kRecord, kFields); }),
              (std::vector<std::wstring>{L"writeUInt32 7", L"writeUInt16 2", L"writePoint3d 1 2 3", L"writeDouble 4.5", L"writeBool true", L"writeInt32 -7",
                                         L"writeString \"Árvíztűrő\""}));
    EXPECT_EQ(written([](AcDbDwgFiler& filer) { trfcWriteRecord<TrfcSignedKind>(filer, kRecord, kFields); }),
              (std::vector<std::wstring>{L"writeInt32 7", L"writeInt16 2", L"writePoint3d 1 2 3", L"writeDouble 4.5", L"writeBool true", L"writeInt32 -7",
                                         L"writeString \"Árvíztűrő\""}));
}

TEST(Fields, a_record_comes_back_as_it_was) {
    AcDbDeepCloneFiler filer;
    trfcWriteRecord<TrfcSignedKind>(filer, kRecord, kFields);
    filer.seek(0, AcDb::kSeekFromStart);
    Record back;
    EXPECT_EQ(trfcReadRecord<TrfcSignedKind>(filer, back, kFields), Acad::eOk);
    expectSame(back, kRecord);
}

TEST(Fields, a_field_is_read_from_the_version_that_brought_it) {
    for (const Adesk::UInt32 version : {1u, 2u, 5u, 6u, 7u}) {
        AcDbDeepCloneFiler filer;
        writeAsOf<TrfcUnsignedKind>(filer, version, kRecord);
        filer.seek(0, AcDb::kSeekFromStart);
        Record expected = kRecord, back;
        if (version < 6)
            expected.size = back.size = 99.0;
        if (version < 2)
            expected.number = back.number = 99;
        EXPECT_EQ(trfcReadRecord<TrfcUnsignedKind>(filer, back, kFields), Acad::eOk) << version;
        expectSame(back, expected);
    }
}

TEST(Fields, a_copied_record_keeps_its_version_and_the_object_is_not_touched) {
    AcDbDeepCloneFiler source, target;
    writeAsOf<TrfcSignedKind>(source, 2, kRecord);
    source.seek(0, AcDb::kSeekFromStart);
    const Record untouched;
    EXPECT_EQ(trfcCopyRecord<TrfcSignedKind>(source, target, untouched, kFields), Acad::eOk);
    target.seek(0, AcDb::kSeekFromStart);
    Adesk::Int32 version = 0;
    target.readInt32(&version);
    EXPECT_EQ(version, 2);
    target.seek(0, AcDb::kSeekFromStart);
    Record back, expected = kRecord;
    expected.size = 0.0;
    EXPECT_EQ(trfcReadRecord<TrfcSignedKind>(target, back, kFields), Acad::eOk);
    expectSame(back, expected);
}

TEST(Fields, a_record_of_a_later_version_makes_a_proxy_and_nothing_of_it_is_read) {
    for (const Adesk::Int32 version : {8, -1}) {
        AcDbDeepCloneFiler filer, target;
        filer.writeInt32(version);
        filer.seek(0, AcDb::kSeekFromStart);
        Record back = kRecord;
        EXPECT_EQ(trfcReadRecord<TrfcSignedKind>(filer, back, kFields), Acad::eMakeMeProxy) << version;
        expectSame(back, kRecord);
        filer.seek(0, AcDb::kSeekFromStart);
        EXPECT_EQ(trfcCopyRecord<TrfcSignedKind>(filer, target, back, kFields), Acad::eMakeMeProxy) << version;
    }
}

TEST(Fields, version_0_has_no_fields) {
    AcDbDeepCloneFiler filer;
    filer.writeUInt32(0);
    filer.seek(0, AcDb::kSeekFromStart);
    Record back = kRecord;
    EXPECT_EQ(trfcReadRecord<TrfcUnsignedKind>(filer, back, kFields), Acad::eOk);
    expectSame(back, kRecord);
}

TEST(Fields, a_short_field_has_16_bits_and_comes_back_positive) {
    AcDbDeepCloneFiler filer;
    TrfcSignedKind::writeShort(filer, 40000);
    filer.seek(0, AcDb::kSeekFromStart);
    EXPECT_EQ(TrfcSignedKind::readShort(filer), 40000);
}
