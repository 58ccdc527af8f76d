// The workbook's writer and reader on one full sheet: 65,535 rows of 16 columns, texts and numbers.
#include "biff/BiffReader.h"
#include "biff/BiffWriter.h"

#include <benchmark/benchmark.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {
using namespace odbc;

constexpr int kRows = 65535, kColumns = 16;
const std::string kPath = "/tmp/bench_biff." + std::to_string(::getpid()) + ".xls";

struct Rows { // made once: the texts that the cells show must stay
    std::vector<std::string> texts;
    std::vector<std::vector<StoreCell>> rows;
    StoreTable table;
    Rows() {
        table.name = "T";
        for (int i = 0; i < kColumns; ++i)
            table.columns.push_back({"C" + std::to_string(i), i % 3 == 0 ? ColumnKind::Text : ColumnKind::Double, 255, 0, 0});
        texts.reserve(static_cast<std::size_t>(kRows) * kColumns);
        for (int r = 0; r < kRows; ++r) {
            std::vector<StoreCell> row;
            for (int i = 0; i < kColumns; ++i) {
                if (i % 3 == 0) {
                    texts.push_back(i == 0 ? std::string("meglévő") : "szöveg ő " + std::to_string(r % (i * 1000)));
                    row.push_back(StoreCell::text(texts.back()));
                } else {
                    row.push_back(StoreCell::of(i % 3 == 1 ? r + 0.123456 * i : static_cast<double>(r)));
                }
            }
            rows.push_back(std::move(row));
        }
    }
};

void write(const Rows& rows) {
    BiffWriter writer(kPath);
    writer.beginTable(rows.table);
    for (const auto& row : rows.rows)
        writer.row(row);
    writer.endTable();
    writer.finish();
}

void writeFullSheet(benchmark::State& state) {
    const Rows rows;
    for (auto _ : state)
        write(rows);
    ::unlink(kPath.c_str());
}

class NullSink : public TableSink {
public:
    void beginTable(const StoreTable&) override {}
    void row(std::span<const StoreCell> cells) override { benchmark::DoNotOptimize(cells.data()); }
    void endTable() override {}
};

void readFullSheet(benchmark::State& state) {
    write(Rows());
    for (auto _ : state) {
        NullSink sink;
        readBiff(kPath, sink);
    }
    ::unlink(kPath.c_str());
}
} // namespace

BENCHMARK(writeFullSheet)->Unit(benchmark::kMillisecond);
BENCHMARK(readFullSheet)->Unit(benchmark::kMillisecond);
