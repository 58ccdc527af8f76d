// Any bytes as an Access file: read every table, and check every rule. Bytes that are no such file
// become one: the input is taken for a list of changes to small databases of our own (Jet 4).
#include "jet/JetInternal.h"
#include "jet/JetWriter.h"
#include "rules/JetCheck.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <unistd.h>

using namespace odbc;

namespace {
using Bytes = std::vector<std::uint8_t>;

// A database with text, numbers, long values in rows, on pages and in chains.
Bytes sample() {
    const std::string path = "/tmp/jetfuzz-" + std::to_string(::getpid()) + ".mdb";
    {
        using enum ColumnKind;
        JetWriter writer(path);
        const StoreTable shape{"Minta_tábla",
                               {{"ID", Long, 0, 0, 0},
                                {"NEV", Text, 60, 0, 0},
                                {"B", Bool, 0, 0, 0},
                                {"D", Double, 0, 0, 0},
                                {"M", Memo, 0, 0, 0},
                                {"O", Ole, 0, 0, 0},
                                {"P", Currency, 0, 0, 0},
                                {"G", Guid, 0, 0, 0},
                                {"N", Numeric, 0, 18, 4},
                                {"V", Binary, 20, 0, 0}}};
        writer.beginTable(shape);
        const std::string memo(9000, 'm'), blob(300, 'b');
        for (int i = 0; i < 30; ++i)
            writer.row(std::vector<StoreCell>{
                StoreCell::of(std::int64_t{i}), StoreCell::text(i % 2 != 0 ? "őűŐŰ" : "meglévő"),
                StoreCell::of(std::int64_t{i % 2}), StoreCell::of(i + 0.25),
                i == 7 ? StoreCell::text(memo) : StoreCell::text("rövid"), StoreCell::blob(blob),
                StoreCell::text("12.5000"), StoreCell::text("{00112233-4455-6677-8899-AABBCCDDEEFF}"),
                StoreCell::text("-7.25"), i == 3 ? StoreCell::null() : StoreCell::blob("bytes")});
        writer.endTable();
        writer.finish();
    }
    std::ifstream in(path, std::ios::binary);
    Bytes bytes{std::istreambuf_iterator<char>(in), {}};
    ::unlink(path.c_str());
    return bytes;
}

struct Nothing : TableSink {
    std::size_t seen = 0;
    void beginTable(const StoreTable& table) override { seen += table.columns.size(); }
    void row(std::span<const StoreCell> cells) override {
        for (const StoreCell& cell : cells)
            for (const char c : cell.bytes)
                seen += static_cast<unsigned char>(c);
    }
    void endTable() override {}
};

void run(const Bytes& bytes) {
    try {
        const jet::JetFile file("bytes", bytes);
        Nothing sink;
        try {
            jet::readTables(file, sink);
        } catch (const StoreError&) {
        }
        if (!file.jet3())
            jet::checkRules(file); // collects, and throws nothing
    } catch (const StoreError&) {
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    run(Bytes(data, data + size));
    // Each five bytes change one of the sample: three for the place, where pages' first bytes are
    // hit more often, one for how, one for the value.
    static const Bytes clean = sample();
    Bytes changed = clean;
    for (; size >= 5; data += 5, size -= 5) {
        std::size_t at = data[0] | static_cast<std::size_t>(data[1]) << 8 | static_cast<std::size_t>(data[2]) << 16;
        if (data[3] & 1)
            at = (at >> 6) * 4096 + (at & 63);
        std::uint8_t& byte = changed[at % changed.size()];
        byte = data[3] & 2 ? static_cast<std::uint8_t>(byte + data[4]) : data[4];
    }
    run(changed);
    return 0;
}
