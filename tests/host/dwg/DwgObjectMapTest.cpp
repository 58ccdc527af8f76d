// The object map of a file of ours whose section is made shorter byte by byte.
#include "AcPath.h"
#include "AcUtText.h"
#include "AcDbDatabase.h"
#include "Drawings.h"
#include "DwgCodec.h"
#include "DwgContainer.h"
#include "DwgCrc.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

namespace {
using Bytes = std::vector<Adesk::UInt8>;
constexpr std::size_t kCountAt = 0x15, kLocatorsAt = 0x19, kLocatorSize = 9;

Bytes savedDrawing() {
    dwgInstallCodec();
    const std::string path = testTempPath() + "/a.dwg";
    AcDbDatabase db;
    EXPECT_EQ(db.saveAs(acHostPath(path).c_str()), Acad::eOk);
    return fileBytes(path);
}
// The same file with another length of its object map; the header's checksum is made right again.
Bytes withMapSize(Bytes bytes, Adesk::UInt32 size) {
    const std::size_t count = bytes[kCountAt], end = kLocatorsAt + kLocatorSize * count;
    for (std::size_t i = 0; i < count; ++i) {
        Adesk::UInt8* const locator = &bytes[kLocatorsAt + kLocatorSize * i];
        for (unsigned b = 0; locator[0] == kDwgObjectMap && b < 4; ++b)
            locator[5 + b] = static_cast<Adesk::UInt8>(size >> (8 * b));
    }
    // The masks by the number of sections, from 3 on, of the open description of the format.
    constexpr unsigned kMasks[] = {0xA598, 0x8101, 0x3CC4, 0x8461};
    const unsigned crc = dwgCrc(0, bytes.data(), end) ^ kMasks[count - 3];
    bytes[end] = static_cast<Adesk::UInt8>(crc);
    bytes[end + 1] = static_cast<Adesk::UInt8>(crc >> 8);
    return bytes;
}
} // namespace

TEST(DwgObjectMap, one_that_is_cut_anywhere_is_refused_even_at_its_checksum) {
    const Bytes whole = savedDrawing();
    DwgFile file;
    DwgError none;
    ASSERT_TRUE(file.load(whole, none));
    const DwgSection map = file.section(kDwgObjectMap);
    std::vector<DwgMapEntry> entries;
    ASSERT_TRUE(file.objectMap(entries, none));
    const std::size_t part = static_cast<std::size_t>(whole[map.offset] << 8 | whole[map.offset + 1]);
    ASSERT_LT(part + 2, map.size) << "a part, its checksum, and the empty part at the end";
    for (Adesk::UInt32 size = 0; size < map.size; ++size) {
        DwgFile cut;
        DwgError error;
        ASSERT_TRUE(cut.load(withMapSize(whole, size), error)) << acToUtf8(error.text);
        std::vector<DwgMapEntry> some;
        ASSERT_FALSE(cut.objectMap(some, error)) << size << " bytes of " << map.size;
        EXPECT_EQ(error.text, L"The drawing file is damaged: its object map is cut off.") << size;
    }
}

TEST(DwgObjectMap, a_changed_byte_of_it_is_found_by_its_checksum) {
    const Bytes whole = savedDrawing();
    DwgFile file;
    DwgError none;
    ASSERT_TRUE(file.load(whole, none));
    const DwgSection map = file.section(kDwgObjectMap);
    for (std::size_t at = map.offset + 2; at < map.offset + map.size - 4; at += 7) {
        Bytes bytes = whole;
        bytes[at] ^= 0x01;
        DwgFile changed;
        DwgError error;
        std::vector<DwgMapEntry> entries;
        ASSERT_TRUE(changed.load(bytes, error));
        EXPECT_FALSE(changed.objectMap(entries, error)) << at;
        EXPECT_EQ(error.status, Acad::eDwgCRCDoesNotMatch) << at;
    }
}
