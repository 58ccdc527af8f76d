#include "AcDbDatabase.h"

#include "AcUtText.h"
#include "Timing.h"

#include <gtest/gtest.h>

namespace {
void put(AcDbDictionary& dictionary, const ACHAR* key, const ACHAR* text) {
    auto* const record = new AcDbXrecord;
    AcDbObjectId id;
    dictionary.setAt(key, record, id);
    resbuf* const chain = acutBuildList(1, text, 0);
    record->setFromRbChain(*chain);
    acutRelRb(chain);
    record->close();
}
std::wstring get(const AcDbDictionary& dictionary, const ACHAR* key) {
    AcDbXrecord* record = nullptr;
    if (dictionary.getAt(key, record, AcDb::kForRead) != Acad::eOk)
        return L"?";
    resbuf* chain = nullptr;
    record->rbChain(&chain);
    record->close();
    std::wstring text = chain->resval.rstring;
    acutRelRb(chain);
    return text;
}
struct NamedObjects {
    AcDbDatabase db;
    AcDbObjectPointer<AcDbDictionary> dictionary{db.namedObjectsDictionaryId(), AcDb::kForWrite};
    ~NamedObjects() { dictionary.close(); }
};
} // namespace

TEST(Dictionary, finds_its_entries_without_regard_to_case) {
    NamedObjects n;
    put(*n.dictionary.object(), L"Beállítás", L"1");
    EXPECT_EQ(get(*n.dictionary.object(), L"BEÁLLÍTÁS"), L"1");
    EXPECT_TRUE(n.dictionary->has(L"beállítás"));
    AcDbObjectId id;
    EXPECT_EQ(n.dictionary->getAt(L"nincs", id), Acad::eKeyNotFound);
    EXPECT_TRUE(id.isNull());
}
TEST(Dictionary, replaces_an_entry_and_erases_the_old_object) {
    NamedObjects n;
    put(*n.dictionary.object(), L"KEY", L"old");
    AcDbObjectId old;
    n.dictionary->getAt(L"KEY", old);
    const Adesk::UInt32 before = n.dictionary->numEntries();
    put(*n.dictionary.object(), L"key", L"new");
    EXPECT_TRUE(old.isErased());
    EXPECT_EQ(n.dictionary->numEntries(), before);
    EXPECT_EQ(get(*n.dictionary.object(), L"KEY"), L"new");
    AcDbObjectId now;
    n.dictionary->getAt(L"KEY", now);
    EXPECT_EQ(n.dictionary->nameAt(now), L"key");
}
TEST(Dictionary, no_longer_shows_an_entry_that_was_erased) {
    NamedObjects n;
    put(*n.dictionary.object(), L"KEY", L"old");
    AcDbXrecord* record = nullptr;
    n.dictionary->getAt(L"KEY", record, AcDb::kForWrite);
    record->erase();
    record->close();
    EXPECT_FALSE(n.dictionary->has(L"KEY"));
    const std::unique_ptr<AcDbDictionaryIterator> walk(n.dictionary->newIterator());
    for (; !walk->done(); walk->next())
        EXPECT_STRNE(walk->name(), L"KEY");
}
TEST(Dictionary, walks_in_order_of_names_and_survives_changes_meanwhile) {
    NamedObjects n;
    auto* const own = new AcDbDictionary;
    AcDbObjectId id;
    n.dictionary->setAt(L"OWN", own, id);
    for (const ACHAR* const key : {L"c", L"A", L"b"})
        put(*own, key, key);
    std::wstring seen;
    const std::unique_ptr<AcDbDictionaryIterator> walk(own->newIterator());
    for (; !walk->done(); walk->next()) {
        seen += walk->name();
        own->remove(walk->name());
    }
    EXPECT_EQ(seen, L"Abc");
    EXPECT_EQ(own->numEntries(), 0u);
    own->close();
}
TEST(Dictionary, refuses_what_belongs_nowhere) {
    NamedObjects n;
    AcDbObjectId id;
    EXPECT_EQ(n.dictionary->setAt(L"X", nullptr, id), Acad::eNullObjectPointer);
    AcDbXrecord record;
    EXPECT_EQ(n.dictionary->setAt(L"", &record, id), Acad::eInvalidInput);
    AcDbDictionary loose;
    EXPECT_EQ(loose.setAt(L"X", &record, id), Acad::eNotInDatabase);
    EXPECT_EQ(n.dictionary->remove(L"nincs"), Acad::eKeyNotFound);
}
TEST(Xrecord, hands_out_copies_of_its_chain) {
    AcDbXrecord record;
    const ads_name name = {0, 0};
    resbuf* const chain = acutBuildList(70, 1, 340, name, 1, L"fájl", 1, L"aláírás", 0);
    record.setFromRbChain(*chain);
    acutRelRb(chain);
    record.setFromRbChain(*record.firstItem()); // its own chain
    resbuf* copy = nullptr;
    record.rbChain(&copy);
    EXPECT_NE(copy, record.firstItem());
    EXPECT_STREQ(copy->rbnext->rbnext->rbnext->resval.rstring, L"aláírás");
    acutRelRb(copy);
}
TEST(Xrecord, a_setting_is_read_in_under_a_microsecond) {
    AcDbDatabase db;
    {
        AcDbObjectPointer<AcDbDictionary> named(db.namedObjectsDictionaryId(), AcDb::kForWrite);
        auto* const settings = new AcDbDictionary;
        AcDbObjectId id;
        named->setAt(L"SETTINGS", settings, id);
        for (int i = 0; i < 120; ++i)
            put(*settings, acFormat(L"DOC_SOME_SETTING_%03d", i).c_str(), L"1");
        settings->close();
    }
    const double took = nanosecondsARound(20000, [&db] {
        AcDbDictionary *named = nullptr, *settings = nullptr;
        db.getNamedObjectsDictionary(named, AcDb::kForWrite);
        named->getAt(L"SETTINGS", settings, AcDb::kForWrite);
        named->close();
        AcDbXrecord* record = nullptr;
        settings->getAt(L"DOC_SOME_SETTING_077", record, AcDb::kForRead);
        resbuf* chain = nullptr;
        record->rbChain(&chain);
        record->close();
        settings->close();
        acutRelRb(chain);
    });
    RecordProperty("nanoseconds", std::to_string(took));
    EXPECT_LT(took, 1000.0 * kTimingSlack);
}
