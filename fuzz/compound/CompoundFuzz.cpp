// Fuzzing of the workbook's reader. By its first byte an input is a file, a workbook's stream without the
// container, or a list of changes (four bytes of place, one of value) to a workbook of ours, to its file or to
// its stream, which brings the fuzzer deep into records and chains without a seed on disk.
#include "biff/BiffReader.h"
#include "biff/BiffWriter.h"
#include "biff/CompoundFile.h"

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace {
using namespace odbc;

std::string ownFile() {
    const std::string path = "/tmp/fuzz_compound." + std::to_string(::getpid()) + ".xls";
    {
        BiffWriter writer(path);
        writer.beginTable({"KORVANT", {{"ID", ColumnKind::Double, 0, 0, 0}, {"NÉV", ColumnKind::Text, 255, 0, 0}, {"BE", ColumnKind::Bool, 0, 0, 0}, {"NAP", ColumnKind::Date, 0, 0, 0}}});
        for (int i = 0; i < 40; ++i) {
            const std::string text = "szöveg ő " + std::string(static_cast<std::size_t>(i) * 12, 'x');
            const StoreCell cells[] = {StoreCell::of(i * 0.1), StoreCell::text(text), StoreCell::of(std::int64_t{i % 2}), StoreCell::of(45000.0 + i)};
            writer.row(cells);
        }
        writer.endTable();
        writer.beginTable({"B", {{"X", ColumnKind::Double, 0, 0, 0}}});
        writer.endTable();
        writer.finish();
    }
    std::ifstream file(path, std::ios::binary);
    std::string bytes(std::istreambuf_iterator<char>(file), {});
    ::unlink(path.c_str());
    return bytes;
}

// Touches every byte that is handed over.
class ReadingSink : public TableSink {
public:
    void beginTable(const StoreTable& table) override { mWidth = table.columns.size(); }
    void row(std::span<const StoreCell> cells) override {
        if (cells.size() != mWidth)
            std::abort();
        for (const StoreCell& cell : cells)
            for (const char c : cell.bytes)
                mSum += static_cast<unsigned char>(c);
    }
    void endTable() override {}

private:
    std::size_t mWidth = 0;
    std::size_t mSum = 0;
};

std::string changed(std::string bytes, const std::uint8_t* data, std::size_t size) {
    for (std::size_t i = 0; i + 5 <= size; i += 5) {
        std::uint32_t place;
        std::memcpy(&place, data + i, 4);
        bytes[place % bytes.size()] = static_cast<char>(data[i + 4]);
    }
    return bytes;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string file = ownFile();
    static const std::string stream = biff::CompoundFile(file).stream("Workbook").value();
    if (size == 0)
        return 0;
    const std::string rest(reinterpret_cast<const char*>(data + 1), size - 1);
    ReadingSink sink;
    try {
        switch (data[0] % 4) {
        case 0: readBiffBytes(rest, "fuzz", sink); break;
        case 1: readBiffStream(rest, "fuzz", sink); break;
        case 2: readBiffBytes(changed(file, data + 1, size - 1), "fuzz", sink); break;
        default: readBiffStream(changed(stream, data + 1, size - 1), "fuzz", sink); break;
        }
    } catch (const StoreError&) {
        // refused with a sentence: that is what a bad file gets
    }
    return 0;
}
