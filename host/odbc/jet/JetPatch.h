// Changes rows of tables in an Access file that somebody else made. What is not those tables' rows, maps, indexes and
// counts stays as it is, byte for byte.
#pragma once

#include "JetImage.h"
#include "JetSource.h"

#include <optional>

namespace odbc {

class JetPatch {
public:
    // The source, whose tables were read, outlives it.
    explicit JetPatch(const JetSource& source) : mSource(source), mImage(source.file()) {}

    // `feed` hands over what became of the rows of the table; lastNumber is that of its counter. StoreError
    // where a row or a key cannot be made; then the whole patch is thrown away.
    void change(const jet::JetOrigin& table, std::optional<std::int64_t> lastNumber, const std::function<void(ChangeSink&)>& feed);
    // The whole file into an empty one.
    void writeTo(int descriptor, const std::string& name) { mImage.writeTo(descriptor, name); }

private:
    const JetSource& mSource;
    jet::JetImage mImage;
};

} // namespace odbc
