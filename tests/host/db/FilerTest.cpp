// The memory stream and the recording filer.
#include "AcDbFiler.h"
#include "AcUtText.h"
#include "Timing.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace {
// One value of every kind the filer knows, made from a number.
void writeKind(AcDbDwgFiler& filer, int kind, int seed) {
    const double real = seed * 0.1;
    switch (kind) {
    case 0: filer.writeBool(seed % 2 == 0); break;
    case 1: filer.writeInt8(static_cast<Adesk::Int8>(seed)); break;
    case 2: filer.writeInt16(static_cast<Adesk::Int16>(seed)); break;
    case 3: filer.writeInt32(seed); break;
    case 4: filer.writeInt64(seed * 10000000000LL); break;
    case 5: filer.writeUInt8(static_cast<Adesk::UInt8>(seed)); break;
    case 6: filer.writeUInt16(static_cast<Adesk::UInt16>(seed)); break;
    case 7: filer.writeUInt32(static_cast<Adesk::UInt32>(seed)); break;
    case 8: filer.writeUInt64(static_cast<Adesk::UInt64>(seed)); break;
    case 9: filer.writeDouble(real); break;
    case 10: filer.writePoint3d({real, -real, seed * 1.0}); break;
    case 11: filer.writeVector3d({real, 0.0, -real}); break;
    case 12: filer.writeScale3d({real, 1.0, 2.0}); break;
    case 13: filer.writePoint2d({real, 3.0}); break;
    case 14: filer.writeAcDbHandle(AcDbHandle(static_cast<Adesk::UInt64>(seed))); break;
    default: filer.writeString(acFormat(L"szöveg %d", seed).c_str()); break;
    }
}
constexpr int kKinds = 16;
template <class T> bool same(const T& a, const T& b) { return a == b; }
template <class T, class Read> bool readsBack(Read read, const T& expected) {
    T value{};
    return read(&value) == Acad::eOk && same(value, expected);
}
bool checkKind(AcDbDwgFiler& filer, int kind, int seed) {
    const double real = seed * 0.1;
    switch (kind) {
    case 0: return readsBack<bool>([&](auto* v) { return filer.readBool(v); }, seed % 2 == 0);
    case 1: return readsBack<Adesk::Int8>([&](auto* v) { return filer.readInt8(v); }, static_cast<Adesk::Int8>(seed));
    case 2: return readsBack<Adesk::Int16>([&](auto* v) { return filer.readInt16(v); }, static_cast<Adesk::Int16>(seed));
    case 3: return readsBack<Adesk::Int32>([&](auto* v) { return filer.readInt32(v); }, seed);
    case 4: return readsBack<Adesk::Int64>([&](auto* v) { return filer.readInt64(v); }, seed * 10000000000LL);
    case 5: return readsBack<Adesk::UInt8>([&](auto* v) { return filer.readUInt8(v); }, static_cast<Adesk::UInt8>(seed));
    case 6: return readsBack<Adesk::UInt16>([&](auto* v) { return filer.readUInt16(v); }, static_cast<Adesk::UInt16>(seed));
    case 7: return readsBack<Adesk::UInt32>([&](auto* v) { return filer.readUInt32(v); }, static_cast<Adesk::UInt32>(seed));
    case 8: return readsBack<Adesk::UInt64>([&](auto* v) { return filer.readUInt64(v); }, static_cast<Adesk::UInt64>(seed));
    case 9: return readsBack<double>([&](auto* v) { return filer.readDouble(v); }, real);
    case 10: return readsBack<AcGePoint3d>([&](auto* v) { return filer.readPoint3d(v); }, {real, -real, seed * 1.0});
    case 11: return readsBack<AcGeVector3d>([&](auto* v) { return filer.readVector3d(v); }, {real, 0.0, -real});
    case 12: return readsBack<AcGeScale3d>([&](auto* v) { return filer.readScale3d(v); }, {real, 1.0, 2.0});
    case 13: return readsBack<AcGePoint2d>([&](auto* v) { return filer.readPoint2d(v); }, {real, 3.0});
    case 14: return readsBack<AcDbHandle>([&](auto* v) { return filer.readAcDbHandle(v); }, AcDbHandle(static_cast<Adesk::UInt64>(seed)));
    default: {
        std::wstring text;
        return filer.readString(text) == Acad::eOk && text == acFormat(L"szöveg %d", seed);
    }
    }
}
} // namespace

TEST(MemoryFiler, gives_back_any_sequence_of_values_in_order) {
    EXPECT_TRUE(rc::check("sequence", [](const std::vector<Adesk::UInt8>& kinds) {
        AcDbDeepCloneFiler filer;
        int seed = 0;
        for (const Adesk::UInt8 kind : kinds)
            writeKind(filer, kind % kKinds, ++seed);
        filer.seek(0, AcDb::kSeekFromStart);
        seed = 0;
        for (const Adesk::UInt8 kind : kinds)
            RC_ASSERT(checkKind(filer, kind % kKinds, ++seed));
        bool more = false;
        RC_ASSERT(filer.readBool(&more) == Acad::eEndOfObject);
    }));
}
TEST(MemoryFiler, refuses_a_read_of_another_type_than_was_written) {
    EXPECT_TRUE(rc::check("types", [] {
        const int written = *rc::gen::inRange(0, kKinds), read = *rc::gen::inRange(0, kKinds);
        RC_PRE(written != read);
        AcDbDeepCloneFiler filer;
        writeKind(filer, written, 5);
        filer.seek(0, 0);
        RC_ASSERT(!checkKind(filer, read, 5));
        RC_ASSERT(filer.filerStatus() == Acad::eFilerError || filer.filerStatus() == Acad::eEndOfObject);
        filer.resetFilerStatus();
        RC_ASSERT(checkKind(filer, written, 5));
    }));
}
TEST(MemoryFiler, gives_zero_and_stays_broken_after_an_error) {
    AcDbDeepCloneFiler filer;
    filer.writeInt32(7);
    filer.writeInt32(8);
    filer.seek(0, 0);
    double real = 3.0;
    EXPECT_EQ(filer.readDouble(&real), Acad::eFilerError);
    EXPECT_EQ(real, 0.0);
    int number = 5;
    EXPECT_EQ(filer.readInt32(&number), Acad::eFilerError);
    EXPECT_EQ(number, 0);
    filer.resetFilerStatus();
    EXPECT_EQ(filer.readInt32(&number), Acad::eOk);
    EXPECT_EQ(number, 7);
}
TEST(MemoryFiler, a_null_text_is_the_empty_one) {
    AcDbDeepCloneFiler filer;
    filer.writeString(nullptr);
    filer.seek(0, 0);
    ACHAR* text = nullptr;
    EXPECT_EQ(filer.readString(&text), Acad::eOk);
    EXPECT_STREQ(text, L"");
    acutDelString(text);
}
TEST(MemoryFiler, bytes_come_back_in_the_number_they_were_written) {
    AcDbDeepCloneFiler filer;
    filer.writeBytes("abc", 3);
    filer.writeBytes(nullptr, 0);
    filer.seek(0, 0);
    char bytes[3] = {};
    EXPECT_EQ(filer.readBytes(bytes, 3), Acad::eOk);
    EXPECT_EQ(bytes[2], 'c');
    EXPECT_EQ(filer.readBytes(nullptr, 0), Acad::eOk);
    filer.seek(0, 0);
    EXPECT_EQ(filer.readBytes(bytes, 2), Acad::eFilerError);
}
TEST(MemoryFiler, seeks_to_told_places_and_rewinds) {
    AcDbDeepCloneFiler filer;
    filer.writeInt32(1);
    const Adesk::Int64 second = filer.tell();
    filer.writeInt32(2);
    int number = 0;
    filer.seek(second, AcDb::kSeekFromStart);
    filer.readInt32(&number);
    EXPECT_EQ(number, 2);
    EXPECT_EQ(filer.seek(1, AcDb::kSeekFromEnd), Acad::eInvalidInput);
    EXPECT_EQ(filer.seek(-1, AcDb::kSeekFromStart), Acad::eInvalidInput);
    filer.seek(0, 0);
    filer.readInt32(&number);
    EXPECT_EQ(number, 1);
    filer.writeInt32(9); // cuts off what followed
    filer.seek(second, 0);
    filer.readInt32(&number);
    EXPECT_EQ(number, 9);
    EXPECT_EQ(filer.readInt32(&number), Acad::eEndOfObject);
}
TEST(MemoryFiler, files_ten_values_in_under_a_microsecond) {
    const double took = nanosecondsARound(5000, [] {
        AcDbDeepCloneFiler filer;
        for (int i = 0; i < 3; ++i) {
            filer.writeInt32(i);
            filer.writePoint3d({1.0, 2.0, 3.0});
            filer.writeDouble(0.5);
        }
        filer.writeString(L"tábla");
    });
    EXPECT_LT(took, 1000.0 * kTimingSlack);
    RecordProperty("nanoseconds", std::to_string(took));
}

TEST(RecordingFiler, lists_calls_with_the_shortest_numbers_that_read_back) {
    AcDbRecordingFiler filer;
    filer.writeInt32(7);
    filer.writePoint3d({});
    filer.writeDouble(0.1);
    filer.writeDouble(1.0e21);
    filer.writeString(L"két\nsor");
    filer.writeBool(true);
    filer.writeInt8(-3);
    filer.writeBytes("\x01\xAB", 2);
    filer.writeHardPointerId(AcDbObjectId::kNull);
    const std::vector<std::wstring> expected = {L"writeInt32 7", L"writePoint3d 0 0 0", L"writeDouble 0.1", L"writeDouble 1e+21",
                                                L"writeString \"két\\nsor\"", L"writeBool true", L"writeInt8 -3",
                                                L"writeBytes 2 01AB", L"writeHardPointerId 0"};
    EXPECT_EQ(filer.lines(), expected);
}
TEST(RecordingFiler, indents_what_is_filed_inside) {
    AcDbRecordingFiler filer;
    {
        const AcDbFilerNest outer(&filer, L"Chain");
        const AcDbFilerNest inner(&filer, L"Plate");
        filer.writeInt16(1);
    }
    filer.writeInt16(2);
    const std::vector<std::wstring> expected = {L"Chain", L"  Plate", L"    writeInt16 1", L"writeInt16 2"};
    EXPECT_EQ(filer.lines(), expected);
}
TEST(RecordingFiler, reads_nothing) {
    AcDbRecordingFiler filer;
    int number = 5;
    EXPECT_EQ(filer.readInt32(&number), Acad::eNotApplicable);
    EXPECT_EQ(filer.seek(0, 0), Acad::eNotApplicable);
}
