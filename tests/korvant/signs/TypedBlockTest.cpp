// Signs and lamps: state, size, overlay, fading, filing.
#include "SignsFixture.h"

namespace {
class TypedBlock : public SignsFixture {
protected:
    AcDbObjectId lineBlock(int color) {
        auto* line = new AcDbLine({0.0, 0.0, 0.0}, {0.0, 1.0, 0.0});
        line->setColorIndex(static_cast<Adesk::UInt16>(color));
        return makeBlock({line});
    }
    S_BLOCK_DESCRIPTOR redLine() { return descriptor(L"red.dwg", lineBlock(1)); }
    // Greys to 254, whitens to 252.
    S_BLOCK_DESCRIPTOR yellowLine() { return descriptor(L"yellow.dwg", lineBlock(2)); }
    static std::wstring colorOf(TrfcTypedBlock& block) {
        const auto line = linesWith(drawn(block), L"polyline").at(0);
        const std::size_t at = line.find(L"color=") + 6;
        return line.substr(at, line.find(L' ', at) - at);
    }
    void useColors(const wchar_t* other, const wchar_t* gray, const wchar_t* white) const {
        set(DOC_USE_OTHER_COLOR_TABLES, other);
        set(DOC_USE_GRAYSCALE_TABLES, gray);
        set(DOC_USE_WHITESCALE_TABLES, white);
    }
};
} // namespace

TEST_F(TypedBlock, sizes_come_from_the_settings) {
    const TrfcTable table(plate(L"a.dwg"));
    EXPECT_DOUBLE_EQ(table.existingScale(), 4.0);
    EXPECT_DOUBLE_EQ(table.plannedScale(), 6.0);
    EXPECT_EQ(table.complIndex(), -1);
    const TrfcLamp lamp(plate(L"l.dwg"));
    EXPECT_DOUBLE_EQ(lamp.existingScale(), 2.0);
    EXPECT_DOUBLE_EQ(lamp.plannedScale(), 3.0);
    const TrfcTable given(plate(L"a.dwg"), 7.0, 9.0);
    EXPECT_DOUBLE_EQ(given.scaleFactor(), 7.0);
}

TEST_F(TypedBlock, the_default_state_is_stored_without_its_size) {
    set(DOC_BLOCK_DEFAULT_TYPE, L"1");
    const TrfcTable table(plate(L"a.dwg"));
    EXPECT_EQ(table.blockType(), kBlockPlanned);
    EXPECT_DOUBLE_EQ(table.scaleFactor(), 4.0);
    EXPECT_FALSE(table.hasOverlay());
}

TEST_F(TypedBlock, the_state_chooses_size_and_overlay) {
    TrfcTable table(plate(L"a.dwg"));
    table.setType(kBlockPlanned);
    EXPECT_DOUBLE_EQ(table.scaleFactor(), 6.0);
    EXPECT_FALSE(table.hasOverlay());
    table.setType(kBlockToBeRemoved);
    EXPECT_DOUBLE_EQ(table.scaleFactor(), 4.0);
    EXPECT_TRUE(table.hasOverlay());
    EXPECT_EQ(table.overlay().blockTableRecord(), builtInBlockId(kTableEliminate));
    table.setType(kBlockCovered);
    EXPECT_EQ(table.overlay().blockTableRecord(), builtInBlockId(kTableCovered));
    EXPECT_DOUBLE_EQ(table.scaleFactor(), 4.0);
}

TEST_F(TypedBlock, existing_after_covered_drops_the_overlay_and_keeps_the_existing_size) {
    TrfcTable table(plate(L"a.dwg"));
    table.setType(kBlockCovered);
    table.setType(kBlockExisting);
    EXPECT_FALSE(table.hasOverlay());
    EXPECT_DOUBLE_EQ(table.scaleFactor(), 4.0);
}

TEST_F(TypedBlock, the_same_state_again_looks_no_overlay_up) {
    TrfcTable table(plate(L"a.dwg"));
    table.setType(kBlockToBeRemoved);
    const AcDbObjectId other = boxBlock(0.0, 0.0, 1.0, 1.0);
    table.setOverlayBlock(other);
    table.setType(kBlockToBeRemoved);
    EXPECT_TRUE(table.hasOverlay());
    EXPECT_EQ(table.overlay().blockTableRecord(), other);
}

TEST_F(TypedBlock, the_same_state_again_applies_a_changed_size) {
    TrfcTable table(plate(L"a.dwg"));
    table.setScales(5.0, 8.0);
    table.setType(kBlockExisting);
    EXPECT_DOUBLE_EQ(table.scaleFactor(), 5.0);
}

TEST_F(TypedBlock, an_unknown_state_is_stored_and_changes_nothing_else) {
    TrfcTable table(plate(L"a.dwg"));
    table.setType(kBlockCovered);
    table.setType(static_cast<TRFC_BLOCK_TYPE>(9));
    EXPECT_EQ(table.blockType(), 9);
    EXPECT_TRUE(table.hasOverlay());
    EXPECT_DOUBLE_EQ(table.scaleFactor(), 4.0);
}

TEST_F(TypedBlock, the_overlay_is_stretched_over_the_symbol_and_follows_it) {
    TrfcTable table(descriptor(L"a.dwg", boxBlock(-1.0, 0.0, 1.0, 3.0)));
    table.setType(kBlockCovered);
    table.setPosition({10.0, 0.0, 0.0});
    table.setRotation(0.5);
    table.setUniqueScaleFactor(2.0);
    expectNear(table.overlay().position(), {10.0, 0.0, 0.0});
    EXPECT_DOUBLE_EQ(table.overlay().rotation(), 0.5);
    EXPECT_DOUBLE_EQ(table.overlay().scaleFactors().sx, table.width());
    EXPECT_DOUBLE_EQ(table.overlay().scaleFactors().sy, table.height());
    EXPECT_DOUBLE_EQ(table.overlay().scaleFactors().sz, 1.0);
    EXPECT_DOUBLE_EQ(table.width(), 16.0);
}

TEST_F(TypedBlock, a_unique_scale_of_two_doubles_the_planned_size_and_the_overlay_still_covers_it) {
    TrfcTable table(plate(L"a.dwg"));
    table.setUniqueScaleFactor(2.0);
    table.setType(kBlockPlanned);
    EXPECT_DOUBLE_EQ(table.scaleFactor(), 12.0);
    table.setType(kBlockCovered);
    EXPECT_DOUBLE_EQ(table.overlay().scaleFactors().sx, table.width());
    EXPECT_DOUBLE_EQ(table.overlay().scaleFactors().sy, table.height());
}

TEST_F(TypedBlock, without_other_colours_nothing_fades) {
    useColors(L"0", L"1", L"1");
    TrfcTable table(redLine());
    EXPECT_EQ(linesWith(drawn(table), L"instance").size(), 1u);
    EXPECT_EQ(colorOf(table), L"1");
}

TEST_F(TypedBlock, only_existing_signs_and_those_to_be_removed_fade) {
    useColors(L"1", L"0", L"1");
    TrfcTable table(redLine());
    for (const auto& [type, color] : {std::pair(kBlockExisting, L"252"), std::pair(kBlockPlanned, L"1"), std::pair(kBlockToBeRemoved, L"252"),
                                      std::pair(kBlockCovered, L"1")}) {
        table.setType(type);
        EXPECT_EQ(colorOf(table), color) << type;
    }
}

TEST_F(TypedBlock, grey_and_white_each_fade_in_their_own_way) {
    TrfcTable table(yellowLine());
    useColors(L"1", L"1", L"0");
    EXPECT_EQ(colorOf(table), L"254");
    useColors(L"1", L"0", L"1");
    EXPECT_EQ(colorOf(table), L"252");
    useColors(L"1", L"0", L"0");
    EXPECT_EQ(colorOf(table), L"2");
}

TEST_F(TypedBlock, with_grey_and_white_on_white_comes_last) {
    useColors(L"1", L"1", L"1");
    TrfcTable table(yellowLine());
    EXPECT_EQ(colorOf(table), L"252"); // grey last would give 254
}

TEST_F(TypedBlock, an_overlay_is_never_recoloured) {
    useColors(L"1", L"1", L"1");
    TrfcTable table(yellowLine());
    table.setType(kBlockToBeRemoved);
    table.setOverlayBlock(lineBlock(3));
    const auto lines = linesWith(drawn(table), L"polyline");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_NE(lines[0].find(L"color=252"), std::wstring::npos);
    EXPECT_NE(lines[1].find(L"color=3 "), std::wstring::npos) << acToUtf8(lines[1]);
    EXPECT_EQ(exploded(table)[1]->colorIndex(), 3);
}

TEST_F(TypedBlock, an_explosion_fades_as_the_picture_does) {
    useColors(L"1", L"1", L"0");
    TrfcTable table(yellowLine());
    EXPECT_EQ(exploded(table)[0]->colorIndex(), 254);
    table.setType(kBlockPlanned);
    EXPECT_EQ(exploded(table)[0]->colorIndex(), 2);
}

TEST_F(TypedBlock, a_transformation_takes_the_overlay_along) {
    TrfcTable table(plate(L"a.dwg"));
    table.setType(kBlockCovered);
    table.transformBy(AcGeMatrix3d::translation({3.0, 4.0, 0.0}));
    expectNear(table.position(), {3.0, 4.0, 0.0});
    expectNear(table.overlay().position(), {3.0, 4.0, 0.0});
}

TEST_F(TypedBlock, signs_and_lamps_are_made_at_their_place_and_turn) {
    const TrfcTable table(plate(L"a.dwg"), {1.0, 2.0, 0.0}, kHalfPi);
    const TrfcLamp lamp(plate(L"l.dwg"), {3.0, 4.0, 0.0}, kHalfPi);
    expectNear(table.position(), {1.0, 2.0, 0.0});
    expectNear(table.topPoint(), {-3.0, 2.0, 0.0});
    EXPECT_DOUBLE_EQ(table.scaleFactor(), 4.0);
    expectNear(lamp.topPoint(), {1.0, 4.0, 0.0});
    EXPECT_DOUBLE_EQ(lamp.scaleFactor(), 2.0);
}

TEST_F(TypedBlock, explodes_with_its_overlay) {
    TrfcTable table(redLine());
    EXPECT_EQ(exploded(table).size(), 1u);
    table.setType(kBlockCovered);
    const auto parts = exploded(table);
    ASSERT_GT(parts.size(), 1u);
    EXPECT_EQ(parts[0]->colorIndex(), 1); // the symbol first, the overlay over it
}

TEST_F(TypedBlock, a_table_and_a_lamp_come_back_from_memory) {
    TrfcTable table(plate(L"a.dwg"));
    table.setType(kBlockCovered);
    table.setComplIndex(3);
    TrfcLamp lamp(plate(L"l.dwg"));
    lamp.setType(kBlockPlanned);
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    table.dwgOutFields(&memory);
    lamp.dwgOutFields(&memory);
    memory.seek(0, AcDb::kSeekFromStart);
    TrfcTable tableCopy;
    TrfcLamp lampCopy;
    ASSERT_EQ(tableCopy.dwgInFields(&memory), Acad::eOk);
    ASSERT_EQ(lampCopy.dwgInFields(&memory), Acad::eOk);
    EXPECT_EQ(filed(tableCopy), filed(table));
    EXPECT_EQ(filed(lampCopy), filed(lamp));
    EXPECT_TRUE(tableCopy.hasOverlay());
    EXPECT_EQ(tableCopy.complIndex(), 3);
}

namespace {
// Typed section of that version; a derived section follows from version 2.
void writeTyped(AcDbDwgFiler& filer, const TrfcBlock& block, Adesk::UInt32 version) {
    block.TrfcBlock::dwgOutFields(&filer);
    filer.writeUInt32(version);
    filer.writeBool(false);
    filer.writeUInt16(1);
    filer.writeDouble(4.0);
    filer.writeDouble(6.0);
}
} // namespace

TEST_F(TypedBlock, a_sign_of_the_first_version_has_no_section_and_is_a_main_sign) {
    const TrfcBlock source(plate(L"a.dwg"), {}, 0.0, 1.0);
    for (const Adesk::UInt32 version : {1u, 2u, 7u}) {
        SCOPED_TRACE(version);
        AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
        writeTyped(memory, source, version);
        if (version >= 2) {
            memory.writeUInt32(version);
            memory.writeInt16(5);
        }
        memory.writeString(L"what follows");
        memory.seek(0, AcDb::kSeekFromStart);
        TrfcTable table;
        table.setComplIndex(2);
        ASSERT_EQ(table.dwgInFields(&memory), Acad::eOk);
        EXPECT_EQ(table.complIndex(), version >= 2 ? 5 : -1);
        EXPECT_EQ(table.blockType(), kBlockPlanned);
        std::wstring rest;
        memory.readString(rest);
        EXPECT_EQ(rest, L"what follows");
    }
}

TEST_F(TypedBlock, a_lamp_of_the_first_version_has_no_section) {
    const TrfcBlock source(plate(L"a.dwg"), {}, 0.0, 1.0);
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    writeTyped(memory, source, 1);
    memory.writeString(L"what follows");
    memory.seek(0, AcDb::kSeekFromStart);
    TrfcLamp lamp;
    ASSERT_EQ(lamp.dwgInFields(&memory), Acad::eOk);
    std::wstring rest;
    memory.readString(rest);
    EXPECT_EQ(rest, L"what follows");
}

TEST_F(TypedBlock, a_later_version_asks_for_a_proxy) {
    const TrfcBlock source(plate(L"a.dwg"), {}, 0.0, 1.0);
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    writeTyped(memory, source, 8);
    memory.seek(0, AcDb::kSeekFromStart);
    TrfcTable table;
    EXPECT_EQ(table.dwgInFields(&memory), Acad::eMakeMeProxy);
}

TEST_F(TypedBlock, a_later_version_of_the_derived_section_asks_for_a_proxy_too) {
    const TrfcBlock source(plate(L"a.dwg"), {}, 0.0, 1.0);
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    writeTyped(memory, source, 7);
    memory.writeUInt32(8);
    memory.seek(0, AcDb::kSeekFromStart);
    TrfcTable table;
    EXPECT_EQ(table.dwgInFields(&memory), Acad::eMakeMeProxy);
    memory.seek(0, AcDb::kSeekFromStart);
    TrfcLamp lamp;
    EXPECT_EQ(lamp.dwgInFields(&memory), Acad::eMakeMeProxy);
}

TEST_F(TypedBlock, a_section_of_version_0_holds_nothing_more) {
    const TrfcBlock source(plate(L"a.dwg"), {}, 0.0, 1.0);
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    source.dwgOutFields(&memory);
    memory.writeUInt32(0);
    memory.writeString(L"what follows");
    memory.seek(0, AcDb::kSeekFromStart);
    TrfcTable table;
    ASSERT_EQ(table.dwgInFields(&memory), Acad::eOk);
    std::wstring rest;
    memory.readString(rest);
    EXPECT_EQ(rest, L"what follows");
    EXPECT_EQ(table.blockType(), kBlockExisting);
}

TEST_F(TypedBlock, a_read_overlay_is_fitted_to_its_block) {
    TrfcTable table(descriptor(L"a.dwg", boxBlock(-1.0, 0.0, 1.0, 3.0)), {5.0, 6.0, 0.0}, 0.5);
    table.setType(kBlockCovered);
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    table.dwgOutFields(&memory);
    memory.seek(0, AcDb::kSeekFromStart);
    TrfcTable copy;
    ASSERT_EQ(copy.dwgInFields(&memory), Acad::eOk);
    expectNear(copy.overlay().position(), {5.0, 6.0, 0.0});
    EXPECT_EQ(copy.overlay().scaleFactors(), AcGeScale3d(8.0, 12.0, 1.0));
    EXPECT_DOUBLE_EQ(copy.overlay().rotation(), 0.5);
}
