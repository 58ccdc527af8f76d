// An Access file while it is open: its tables, what it demands of them, and where each row stands.
#pragma once

#include "JetDecoder.h"
#include "JetInternal.h"
#include "store/TableRules.h"

#include <functional>

namespace odbc {

class JetSource {
public:
    // The descriptor outlives it; `name` stands for the file in messages. Throws as readJet does.
    JetSource(int descriptor, std::string name) : mFile(descriptor, std::move(name)) {}

    bool isJet3() const { return mFile.jet3(); }
    void readTables(TableSink& sink) { jet::readTables(mFile, sink, &mOrigins); }
    // Behind readTables: whether the file holds nothing but what JetWriter would write again.
    bool madeHere() const;
    // Behind readTables, of a Jet 4 file: the rules of each table, then the relations that the engine enforces.
    void demand(const std::function<void(const std::string&, const TableRules&)>& table,
                const std::function<void(const TableRelation&)>& relation) const;

    const jet::JetFile& file() const { return mFile; }
    const std::vector<jet::JetOrigin>& origins() const { return mOrigins; }

private:
    jet::JetFile mFile;
    std::vector<jet::JetOrigin> mOrigins;
};

} // namespace odbc
