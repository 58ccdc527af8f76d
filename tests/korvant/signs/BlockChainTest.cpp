// The stack of symbols: laying, order, complementary signs, filing.
#include "SignsFixture.h"

namespace {
class BlockChain : public SignsFixture {
protected:
    // Upward from the base; a name with a leading "+" is complementary.
    void fill(TrfcBlockChain& target, const std::vector<std::wstring>& names) {
        for (const std::wstring& name : names) {
            TrfcTable* table = newTable(name);
            ASSERT_EQ(target.appendBlockUpward(table), Acad::eOk);
            if (name.front() == L'+')
                table->setComplIndex(0);
        }
        target.resetComplIndices();
    }
    void fillDown(TrfcBlockChain& target, const std::vector<std::wstring>& names) {
        for (const std::wstring& name : names)
            ASSERT_EQ(target.appendBlockDownward(newTable(name)), Acad::eOk);
    }
    TrfcBlockChain chain;
};
using Files = std::vector<std::wstring>;
using Indices = std::vector<int>;

Files allFiles(const TrfcBlockChain& chain) {
    Files files;
    for (int i = 0; i < chain.size(); ++i)
        files.emplace_back(chain.getAt(i)->descriptor().blockFile);
    return files;
}
} // namespace

TEST_F(BlockChain, an_empty_chain_begins_and_ends_at_its_base) {
    const TrfcBlockChain empty({3.0, 4.0, 0.0}, 0.5, kPostLampChain);
    expectNear(empty.ptTop(), {3.0, 4.0, 0.0});
    expectNear(empty.ptBottom(), {3.0, 4.0, 0.0});
    EXPECT_EQ(empty.size(), 0);
    EXPECT_NEAR(empty.rotation(), 0.5, 1e-12);
    EXPECT_EQ(empty.chainType(), kPostLampChain);
    EXPECT_EQ(chain.chainType(), kSignChain);
    expectNear(chain.axis(), {0.0, 1.0, 0.0});
}

TEST_F(BlockChain, each_block_begins_where_the_one_before_it_ends) {
    chain.setPosition({1.0, 1.0, 0.0});
    chain.appendBlockUpward(newTable(L"a.dwg", 1.0));
    chain.appendBlockUpward(newTable(L"b.dwg", 2.0));
    chain.appendBlockDownward(newTable(L"c.dwg", 3.0));
    expectNear(chain.ptTop(), {1.0, 13.0, 0.0});
    expectNear(chain.ptBottom(), {1.0, -11.0, 0.0});
    expectLaidWithoutGap(chain);
    EXPECT_EQ(allFiles(chain), (Files{L"a.dwg", L"b.dwg", L"c.dwg"}));
    EXPECT_EQ(chain.upCount(), 2);
}

TEST_F(BlockChain, takes_each_blocks_size_from_its_own_kind) {
    chain.appendBlockUpward(newTable(L"a.dwg"));
    EXPECT_DOUBLE_EQ(chain[0]->scaleFactor(), 4.0);
    chain.appendBlockUpward(new TrfcBlock(plate(L"plain.dwg"), {}, 0.0, 1.0));
    EXPECT_DOUBLE_EQ(chain[1]->scaleFactor(), 3.0); // a lamp's planned size in a sign chain
    TrfcBlockChain lamps({}, 0.0, kPostLampChain);
    lamps.appendBlockUpward(newTable(L"a.dwg"));
    EXPECT_DOUBLE_EQ(lamps[0]->scaleFactor(), 2.0);
    lamps.appendBlockUpward(new TrfcBlock(plate(L"plain.dwg"), {}, 0.0, 1.0));
    EXPECT_DOUBLE_EQ(lamps[1]->scaleFactor(), 2.0);
}

TEST_F(BlockChain, joining_applies_the_default_state) {
    set(DOC_BLOCK_DEFAULT_TYPE, L"1");
    chain.appendBlockUpward(newTable(L"a.dwg"));
    EXPECT_DOUBLE_EQ(chain[0]->scaleFactor(), 6.0);
}

TEST_F(BlockChain, refuses_a_block_with_a_multiline_attribute_and_leaves_it_to_the_caller) {
    auto* multiline = attribute(L"T", L"1");
    multiline->convertIntoMTextAttributeDefinition();
    const std::unique_ptr<TrfcTable> table = std::make_unique<TrfcTable>(descriptor(L"a.dwg", makeBlock({multiline})));
    EXPECT_EQ(chain.appendBlockUpward(table.get()), Acad::eNotApplicable);
    EXPECT_EQ(chain.appendBlockDownward(table.get()), Acad::eNotApplicable);
    EXPECT_EQ(chain.size(), 0);
    EXPECT_EQ(printed, L"Többsoros attribútumdefiníciót tartalmazó blokkot nem lehet beszúrni!\n"
                       L"Többsoros attribútumdefiníciót tartalmazó blokkot nem lehet beszúrni!\n");
}

TEST_F(BlockChain, moves_and_turns_as_a_whole) {
    fill(chain, {L"a", L"b"});
    fillDown(chain, {L"c", L"d"});
    chain.offset({1.0, 2.0, 0.0});
    expectLaidWithoutGap(chain);
    expectNear(chain.position(), {1.0, 2.0, 0.0});
    chain.setRotation(kHalfPi);
    expectLaidWithoutGap(chain);
    expectNear(chain.ptTop(), {-7.0, 2.0, 0.0});
    expectNear(chain.ptBottom(), {9.0, 2.0, 0.0});
    chain.rotateBy(kHalfPi);
    expectLaidWithoutGap(chain);
    expectNear(chain.ptTop(), {1.0, -6.0, 0.0});
    EXPECT_NEAR(chain.rotation(), kPi, 1e-12);
    chain.repos({0.0, 0.0, 0.0}, 0.0);
    expectLaidWithoutGap(chain);
    expectNear(chain.ptTop(), {0.0, 8.0, 0.0});
    EXPECT_NEAR(std::remainder(chain.getAt(2)->rotation() - kPi, kTwoPi), 0.0, 1e-12);
}

TEST_F(BlockChain, a_transformation_relays_the_blocks_and_keeps_their_sizes) {
    fill(chain, {L"a", L"b"});
    chain.transformBy(AcGeMatrix3d::scaling(3.0) * AcGeMatrix3d::translation({1.0, 0.0, 0.0}));
    expectNear(chain.position(), {3.0, 0.0, 0.0});
    EXPECT_DOUBLE_EQ(chain[0]->scaleFactor(), 4.0);
    expectLaidWithoutGap(chain);
    EXPECT_DOUBLE_EQ(chain.axis().length(), 1.0);
}

TEST_F(BlockChain, regeneration_takes_changed_settings_to_every_block) {
    fill(chain, {L"a", L"b"});
    fillDown(chain, {L"c"});
    setScale(1000);
    chain.regen();
    for (int i = 0; i < chain.size(); ++i)
        EXPECT_DOUBLE_EQ(chain[i]->scaleFactor(), 8.0);
    expectLaidWithoutGap(chain);
}

TEST_F(BlockChain, signs_come_back_when_a_size_of_0_is_mended_in_the_settings) {
    fill(chain, {L"a", L"b"});
    fillDown(chain, {L"c"});
    TrfcDocSettings::setDocDouble(DOC_EXISTING_TABLE_D, 0.0);
    chain.regen();
    expectNear(chain.ptTop(), chain.position());
    TrfcDocSettings::setDocDouble(DOC_EXISTING_TABLE_D, 0.008);
    chain.regen();
    expectNear(chain.ptTop(), {0.0, 8.0, 0.0});
    expectNear(chain.ptBottom(), {0.0, -4.0, 0.0});
    expectLaidWithoutGap(chain);
}

TEST_F(BlockChain, a_change_of_state_or_size_closes_the_list_up) {
    fill(chain, {L"a", L"b", L"c"});
    EXPECT_EQ(chain.setBlockType(0, kBlockPlanned), Acad::eOk);
    expectLaidWithoutGap(chain);
    expectNear(chain.ptTop(), {0.0, 14.0, 0.0});
    EXPECT_EQ(chain.setBlockUniqueScale(1, 2.0), Acad::eOk);
    expectLaidWithoutGap(chain);
    expectNear(chain.ptTop(), {0.0, 18.0, 0.0});
}

TEST_F(BlockChain, a_block_without_a_state_keeps_state_and_size) {
    chain.appendBlockUpward(new TrfcBlock(plate(L"plain.dwg"), {}, 0.0, 1.0));
    EXPECT_EQ(chain.setBlockType(0, kBlockCovered), Acad::eOk);
    EXPECT_EQ(chain.setBlockUniqueScale(0, 2.0), Acad::eOk);
    EXPECT_DOUBLE_EQ(chain[0]->uniqueScaleFactor(), 1.0);
    EXPECT_DOUBLE_EQ(chain[0]->scaleFactor(), 3.0);
}

TEST_F(BlockChain, a_block_joins_a_turned_chain_along_or_against_its_axis) {
    TrfcBlockChain turned({1.0, 1.0, 0.0}, kHalfPi, kSignChain);
    turned.appendBlockUpward(newTable(L"a.dwg"));
    turned.appendBlockDownward(newTable(L"b.dwg"));
    expectNear(turned.axis(), {-1.0, 0.0, 0.0});
    expectNear(turned.ptTop(), {-3.0, 1.0, 0.0});
    expectNear(turned.ptBottom(), {5.0, 1.0, 0.0});
    EXPECT_NEAR(std::remainder(turned[1]->rotation() - kHalfPi - kPi, kTwoPi), 0.0, 1e-12);
}

TEST_F(BlockChain, a_change_in_the_lower_list_leaves_the_upper_one_alone) {
    fill(chain, {L"a"});
    fillDown(chain, {L"c", L"d"});
    EXPECT_EQ(chain.setBlockType(1, kBlockPlanned), Acad::eOk);
    expectLaidWithoutGap(chain);
    expectNear(chain.ptTop(), {0.0, 4.0, 0.0});
    expectNear(chain.ptBottom(), {0.0, -10.0, 0.0});
}

// ---- main and complementary signs -------------------------------------------------------------------

TEST_F(BlockChain, a_plate_complements_the_next_main_sign_above_it) {
    fill(chain, {L"+k", L"main", L"top"});
    EXPECT_EQ(upComplIndices(chain), (Indices{1, -1, -1}));
    EXPECT_EQ(chain.setComplementary(0, false), Acad::eOk);
    EXPECT_EQ(upComplIndices(chain), (Indices{-1, -1, -1}));
}

TEST_F(BlockChain, a_main_sign_declared_complementary_points_to_itself_until_the_next_reset) {
    fill(chain, {L"a", L"b"});
    EXPECT_EQ(chain.setComplementary(0, true), Acad::eOk);
    EXPECT_EQ(upComplIndices(chain), (Indices{0, -1}));
    chain.resetComplIndices();
    EXPECT_EQ(upComplIndices(chain), (Indices{1, -1}));
}

TEST_F(BlockChain, the_topmost_main_sign_declared_complementary_becomes_a_main_sign_again) {
    fill(chain, {L"a", L"b"});
    EXPECT_EQ(chain.setComplementary(1, true), Acad::eOk);
    chain.resetComplIndices();
    EXPECT_EQ(upComplIndices(chain), (Indices{-1, -1}));
}

TEST_F(BlockChain, a_complementary_plate_without_a_main_sign_above_cannot_be_declared_one) {
    fill(chain, {L"a", L"b"});
    TrfcTable::cast(chain[1])->setComplIndex(0);
    EXPECT_EQ(chain.setComplementary(1, true), Acad::eInvalidIndex);
}

TEST_F(BlockChain, only_plates_of_the_upward_list_can_be_complementary) {
    fill(chain, {L"a"});
    chain.appendBlockUpward(newLamp());
    fillDown(chain, {L"c"});
    EXPECT_EQ(chain.setComplementary(1, true), Acad::eInvalidIndex);
    EXPECT_EQ(chain.setComplementary(2, true), Acad::eInvalidIndex);
    EXPECT_EQ(chain.setComplementary(-1, true), Acad::eInvalidIndex);
}

TEST_F(BlockChain, the_walk_to_the_main_sign_stops_at_a_lamp) {
    fill(chain, {L"+a"});
    chain.appendBlockUpward(newLamp());
    TrfcTable::cast(chain[0])->setComplIndex(0);
    EXPECT_EQ(chain.setComplementary(0, true), Acad::eOk);
    EXPECT_EQ(TrfcTable::cast(chain[0])->complIndex(), 1);
}

// ---- moves ----------------------------------------------------------------------------------------------

TEST_F(BlockChain, a_main_sign_takes_its_complements_along) {
    fill(chain, {L"+k1", L"m1", L"+k2", L"+k3", L"m2", L"top"});
    int at = -1;
    EXPECT_EQ(chain.moveDnBlock(4, &at), Acad::eOk);
    EXPECT_EQ(upFiles(chain), (Files{L"+k2", L"+k3", L"m2", L"+k1", L"m1", L"top"}));
    EXPECT_EQ(upComplIndices(chain), (Indices{2, 2, -1, 4, -1, -1}));
    EXPECT_EQ(at, 2);
    expectLaidWithoutGap(chain);
    EXPECT_EQ(chain.moveUpBlock(2, &at), Acad::eOk);
    EXPECT_EQ(upFiles(chain), (Files{L"+k1", L"m1", L"+k2", L"+k3", L"m2", L"top"}));
    EXPECT_EQ(upComplIndices(chain), (Indices{1, -1, 4, 4, -1, -1}));
    EXPECT_EQ(at, 4);
    expectLaidWithoutGap(chain);
}

TEST_F(BlockChain, a_complementary_sign_moves_alone_by_one_place) {
    fill(chain, {L"m1", L"+k", L"m2"});
    int at = -1;
    EXPECT_EQ(chain.moveDnBlock(1, &at), Acad::eOk);
    EXPECT_EQ(upFiles(chain), (Files{L"+k", L"m1", L"m2"}));
    EXPECT_EQ(upComplIndices(chain), (Indices{1, -1, -1}));
    EXPECT_EQ(at, 0);
    EXPECT_EQ(chain.moveUpBlock(0, &at), Acad::eOk);
    EXPECT_EQ(chain.moveUpBlock(1, &at), Acad::eOk);
    EXPECT_EQ(upFiles(chain), (Files{L"m1", L"m2", L"+k"}));
    EXPECT_EQ(upComplIndices(chain), (Indices{-1, -1, -1})); // nothing above to complement
    EXPECT_EQ(at, 2);
}

TEST_F(BlockChain, a_lamp_takes_the_complementary_signs_below_it_along) {
    fill(chain, {L"m0", L"+k"});
    chain.appendBlockUpward(newLamp(L"lamp"));
    chain.appendBlockUpward(newTable(L"m3"));
    TrfcTable::cast(chain[1])->setComplIndex(3);
    int at = -1;
    EXPECT_EQ(chain.moveUpBlock(2, &at), Acad::eOk);
    EXPECT_EQ(upFiles(chain), (Files{L"m0", L"m3", L"+k", L"lamp"}));
    EXPECT_EQ(at, 3);
    EXPECT_EQ(TrfcTable::cast(chain[2])->complIndex(), -1); // no main sign above it any longer
    expectLaidWithoutGap(chain);
}

TEST_F(BlockChain, the_second_block_moved_down_past_nothing_stands_at_0) {
    fill(chain, {L"+k", L"m"});
    int at = -1;
    EXPECT_EQ(chain.moveDnBlock(1, &at), Acad::eOk);
    EXPECT_EQ(upFiles(chain), (Files{L"+k", L"m"}));
    EXPECT_EQ(at, 0);
}

TEST_F(BlockChain, the_lowest_group_moved_down_stays_and_its_index_falls_by_one) {
    fill(chain, {L"+k1", L"+k2", L"m", L"top"});
    int at = -1;
    EXPECT_EQ(chain.moveDnBlock(2, &at), Acad::eOk);
    EXPECT_EQ(upFiles(chain), (Files{L"+k1", L"+k2", L"m", L"top"}));
    EXPECT_EQ(at, 1);
}

TEST_F(BlockChain, the_ends_of_the_upward_list_cannot_be_passed) {
    fill(chain, {L"a", L"b"});
    int at = 7;
    EXPECT_EQ(chain.moveUpBlock(1, &at), Acad::eInvalidIndex);
    EXPECT_EQ(chain.moveDnBlock(0, &at), Acad::eInvalidIndex);
    EXPECT_EQ(at, 7);
    EXPECT_EQ(upFiles(chain), (Files{L"a", L"b"}));
}

TEST_F(BlockChain, the_first_of_the_lower_list_cannot_move_into_the_upper_one) {
    fill(chain, {L"a"});
    fillDown(chain, {L"c", L"d"});
    int at = -1;
    EXPECT_EQ(chain.moveUpBlock(1, &at), Acad::eInvalidIndex);
    EXPECT_EQ(allFiles(chain), (Files{L"a", L"c", L"d"}));
}

TEST_F(BlockChain, blocks_of_the_lower_list_change_places) {
    fill(chain, {L"a"});
    chain.appendBlockDownward(newTable(L"c", 1.0));
    chain.appendBlockDownward(newTable(L"d", 2.0));
    int at = -1;
    EXPECT_EQ(chain.moveDnBlock(1, &at), Acad::eOk);
    EXPECT_EQ(allFiles(chain), (Files{L"a", L"d", L"c"}));
    EXPECT_EQ(at, 2);
    expectLaidWithoutGap(chain);
    EXPECT_EQ(chain.moveDnBlock(2, &at), Acad::eInvalidIndex);
    EXPECT_EQ(chain.moveUpBlock(2, &at), Acad::eOk);
    EXPECT_EQ(at, 1);
    EXPECT_EQ(allFiles(chain), (Files{L"a", L"c", L"d"}));
    expectLaidWithoutGap(chain);
}

TEST_F(BlockChain, a_deleted_main_sign_leaves_its_complements_to_the_next_one) {
    fill(chain, {L"+k", L"m1", L"m2"});
    EXPECT_EQ(chain.deleteBlock(1), Acad::eOk);
    EXPECT_EQ(upComplIndices(chain), (Indices{1, -1}));
    expectLaidWithoutGap(chain);
    fillDown(chain, {L"c", L"d"});
    EXPECT_EQ(chain.deleteBlock(2), Acad::eOk);
    EXPECT_EQ(allFiles(chain), (Files{L"+k", L"m2", L"d"}));
    expectLaidWithoutGap(chain);
    EXPECT_EQ(chain.clear(), Acad::eOk);
    EXPECT_EQ(chain.size(), 0);
}

// ---- order ----------------------------------------------------------------------------------------------

namespace {
bool inOrder(const TrfcBlockChain& chain) {
    bool ok = false;
    EXPECT_EQ(chain.checkTableOrder(&ok), Acad::eOk);
    return ok;
}
} // namespace

TEST_F(BlockChain, main_signs_must_not_rise_in_file_name) {
    EXPECT_TRUE(inOrder(chain));
    fill(chain, {L"B", L"B", L"A"});
    EXPECT_TRUE(inOrder(chain));
    fill(chain, {L"C"});
    EXPECT_FALSE(inOrder(chain));
}

TEST_F(BlockChain, lamps_and_complementary_signs_do_not_count_in_the_order) {
    fill(chain, {L"B"});
    chain.appendBlockUpward(newLamp(L"Z"));
    fill(chain, {L"+C", L"A"});
    EXPECT_TRUE(inOrder(chain));
}

TEST_F(BlockChain, a_lamp_between_does_not_hide_a_fault) {
    fill(chain, {L"A"});
    chain.appendBlockUpward(newLamp(L"0"));
    fill(chain, {L"B"});
    EXPECT_FALSE(inOrder(chain));
}

TEST_F(BlockChain, the_lower_list_does_not_count_in_the_order) {
    fill(chain, {L"A"});
    fillDown(chain, {L"B", L"C"});
    EXPECT_TRUE(inOrder(chain));
}

TEST_F(BlockChain, names_compare_by_character_code) {
    fill(chain, {L"z", L"Á"});
    EXPECT_FALSE(inOrder(chain));
}

TEST_F(BlockChain, an_empty_name_skips_the_comparison_for_the_next_sign) {
    chain.appendBlockUpward(newTable(L""));
    fill(chain, {L"Z"});
    EXPECT_TRUE(inOrder(chain));
}

// ---- picture and filing -----------------------------------------------------------------------------------

TEST_F(BlockChain, draws_the_lower_list_first_and_explodes_the_upper_one_first) {
    auto* line = new AcDbLine({}, {0.0, 1.0, 0.0});
    auto* circle = new AcDbCircle({0.0, 0.5, 0.0}, {0.0, 0.0, 1.0}, 0.5);
    chain.appendBlockUpward(new TrfcTable(descriptor(L"up", makeBlock({line}))));
    chain.appendBlockDownward(new TrfcTable(descriptor(L"down", makeBlock({circle}))));
    std::vector<std::wstring> shapes;
    for (const std::wstring& text : drawn(chain))
        shapes.push_back(text.substr(0, text.find(L'(')));
    ASSERT_EQ(shapes.size(), 4u);
    EXPECT_NE(shapes[1].find(L"circle"), std::wstring::npos);
    EXPECT_NE(shapes[3].find(L"polyline"), std::wstring::npos);
    EXPECT_EQ(classNames(exploded(chain)), (Files{L"AcDbLine", L"AcDbCircle"}));
}

TEST_F(BlockChain, comes_back_from_memory_with_every_kind_of_block) {
    TrfcBlockChain source({5.0, 6.0, 0.0}, 0.25, kPairLampChain);
    fill(source, {L"+k", L"m"});
    source.appendBlockUpward(newLamp());
    source.appendBlockDownward(new TrfcBlock(plate(L"plain"), {}, 0.0, 1.0));
    source.appendBlockDownward(new TrfcTypedBlock(plate(L"typed"), 1.0, 2.0));
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    source.dwgOutFields(&memory);
    memory.seek(0, AcDb::kSeekFromStart);
    fill(chain, {L"old"});
    ASSERT_EQ(chain.dwgInFields(&memory), Acad::eOk);
    EXPECT_EQ(filed(chain), filed(source));
    EXPECT_STREQ(chain[2]->isA()->name(), L"TrfcLamp");
    EXPECT_STREQ(chain[3]->isA()->name(), L"TrfcBlock");
    EXPECT_STREQ(chain[4]->isA()->name(), L"TrfcTypedBlock");
    EXPECT_EQ(chain.upCount(), 3);
}

TEST_F(BlockChain, nested_records_are_indented_in_a_listing) {
    fill(chain, {L"a"});
    const auto lines = filed(chain);
    EXPECT_EQ(linesWith(lines, L"writeString \"TrfcTable\"").size(), 1u);
    int deepest = 0;
    for (const std::wstring& line : lines)
        deepest = std::max(deepest, static_cast<int>(line.find_first_not_of(L' ')));
    EXPECT_GT(deepest, 2);
}

TEST_F(BlockChain, an_unknown_class_gives_no_block_and_ends_the_reading) {
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    chain.AcDbEntity::dwgOutFields(&memory);
    memory.writeUInt32(7);
    memory.writeUInt16(0);
    memory.writePoint3d({});
    memory.writeVector3d({0.0, 1.0, 0.0});
    memory.writeInt16(2);
    memory.writeString(L"TrfcUnknown");
    memory.seek(0, AcDb::kSeekFromStart);
    EXPECT_NE(chain.dwgInFields(&memory), Acad::eOk);
    EXPECT_EQ(chain.size(), 0);
}

TEST_F(BlockChain, a_block_of_a_later_version_makes_its_chain_one_too) {
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    chain.AcDbEntity::dwgOutFields(&memory);
    memory.writeUInt32(7);
    memory.writeUInt16(0);
    memory.writePoint3d({});
    memory.writeVector3d({0.0, 1.0, 0.0});
    memory.writeInt16(1);
    memory.writeString(L"TrfcTable");
    memory.writeUInt32(8);
    memory.seek(0, AcDb::kSeekFromStart);
    EXPECT_EQ(chain.dwgInFields(&memory), Acad::eMakeMeProxy);
}

TEST_F(BlockChain, every_earlier_version_has_the_same_layout) {
    for (Adesk::UInt32 version = 0; version <= 8; ++version) {
        SCOPED_TRACE(version);
        AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
        chain.AcDbEntity::dwgOutFields(&memory);
        memory.writeUInt32(version);
        memory.writeUInt16(2);
        memory.writePoint3d({1.0, 2.0, 0.0});
        memory.writeVector3d({1.0, 0.0, 0.0});
        memory.writeInt16(0);
        memory.writeInt16(0);
        memory.seek(0, AcDb::kSeekFromStart);
        TrfcBlockChain read;
        EXPECT_EQ(read.dwgInFields(&memory), version > 7 ? Acad::eMakeMeProxy : Acad::eOk);
        EXPECT_EQ(read.chainType(), version >= 1 && version <= 7 ? kPostLampChain : kSignChain);
    }
}
