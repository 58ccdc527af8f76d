// Fuzzing of the drawing reader. An input that begins with "AC" is a file; any other is a list of changes
// (four bytes of place, one of value) to a drawing of ours, which brings the fuzzer deep into records
// without a seed on disk. Checksums are put right first: they would stop every change at the door.
#include "DbObjectAccess.h"
#include "DwgCrc.h"
#include "DwgReader.h"
#include "DwgWriter.h"
#include "Samples.h"

#include <cstring>

namespace {
using Bytes = std::vector<Adesk::UInt8>;

const Bytes& baseDrawing() {
    static const SampleModule module;
    static const Bytes base = [] {
        AcDbDatabase db;
        sampleFill(db);
        sampleAppend(db, new SampleMarker);
        DwgWriter writer(db);
        return writer.bytes();
    }();
    return base;
}
Adesk::UInt32 number32(const Bytes& b, std::size_t at) {
    Adesk::UInt32 value = 0;
    std::memcpy(&value, b.data() + at, sizeof value);
    return value;
}
// The checksum over [from, to) is put at `to`, low byte first or high byte first.
void seal(Bytes& b, std::size_t from, std::size_t to, bool highFirst, Adesk::UInt16 seed = kDwgCrcSeed, unsigned mask = 0) {
    if (from > to || to > b.size() || b.size() - to < 2)
        return;
    const unsigned crc = dwgCrc(seed, b.data() + from, to - from) ^ mask;
    b[to] = static_cast<Adesk::UInt8>(highFirst ? crc >> 8U : crc);
    b[to + 1] = static_cast<Adesk::UInt8>(highFirst ? crc : crc >> 8U);
}
void sealGuarded(Bytes& b, std::size_t at) {
    if (at < b.size() && b.size() - at > 22)
        seal(b, at + 16, at + 20 + std::min<std::size_t>(number32(b, at + 16), b.size()), false);
}
void sealRecord(Bytes& b, std::size_t at) {
    if (at >= b.size())
        return;
    DwgBitReader in(b.data() + at, b.size() - at);
    const std::size_t size = in.MS();
    const std::size_t end = at + in.position() / 8 + size;
    if (!in.failed())
        seal(b, at, end, false);
}
void sealMap(Bytes& b, std::size_t at) {
    std::size_t sealed = 0;
    while (at < b.size() && b.size() - at > 4) {
        const std::size_t size = static_cast<std::size_t>(b[at]) << 8U | b[at + 1];
        if (size < 3 || size > b.size() - at) {
            seal(b, at, at + 2, true);
            return;
        }
        DwgBitReader pairs(b.data() + at + 2, size - 2);
        Adesk::Int64 offset = 0;
        while (pairs.left() > 0 && !pairs.failed() && sealed < b.size()) {
            pairs.MC();
            offset += pairs.MCsigned();
            if (offset < 0)
                break;
            sealRecord(b, static_cast<std::size_t>(offset));
            sealed += 8;
        }
        seal(b, at, at + size, true);
        at += size + 2;
    }
}
void sealAll(Bytes& b) {
    constexpr unsigned kMasks[] = {0xA598, 0x8101, 0x3CC4, 0x8461};
    if (b.size() < 0x19 + 9 * 6 + 2)
        return;
    const Adesk::UInt32 count = number32(b, 0x15);
    if (count < 3 || count > 6)
        return;
    seal(b, 0, 0x19 + 9 * count, false, 0, kMasks[count - 3]);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t record = 0x19 + 9 * i;
        if (b[record] < 2)
            sealGuarded(b, number32(b, record + 1));
        else if (b[record] == 2)
            sealMap(b, number32(b, record + 1));
    }
}
Bytes fileOf(const std::uint8_t* data, std::size_t size) {
    if (size >= 2 && data[0] == 'A' && data[1] == 'C')
        return Bytes(data, data + size);
    Bytes bytes = baseDrawing();
    for (std::size_t i = 0; i + 5 <= size; i += 5) {
        Adesk::UInt32 place = 0;
        std::memcpy(&place, data + i, sizeof place);
        bytes[place % bytes.size()] = data[i + 4];
    }
    return bytes;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    baseDrawing();
    Bytes bytes = fileOf(data, size);
    sealAll(bytes);
    DwgFile file;
    DwgError error;
    if (!file.load(std::move(bytes), error))
        return 0;
    file.preview();
    AcDbDatabase db(false);
    DbObjectAccess::setLoading(db, true);
    const bool good = DwgReader(db, file).read(error);
    DbObjectAccess::setLoading(db, false);
    if (good == !error.good())
        __builtin_trap(); // a failure without a sentence, or a sentence without a failure
    if (good)
        DwgWriter(db).bytes();
    return 0;
}
