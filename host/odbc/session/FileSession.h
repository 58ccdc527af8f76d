// A built-in database: a file, read when it is opened and replaced when it is closed.
#pragma once

#include "session/SafeFile.h"
#include "store/Session.h"
#include "session/SqlStore.h"

#include <optional>

namespace odbc {

enum class FileForm : std::uint8_t { Access, Workbook };

class FileSession : public Session {
public:
    // A host path. An Access file must stand there; a workbook that does not is made by close.
    FileSession(FileForm form, std::wstring_view hostPath, bool readOnly);

    void execute(std::wstring_view sql) override;
    ResultSet query(std::wstring_view sql) override;
    void close() override;

private:
    std::string mShown; // the path as the caller has it
    std::string mPath;
    FileForm mForm;
    bool mReadOnly;
    std::optional<FileLock> mLock;
    SqlStore mStore;
};

// Makes an empty Access file. StoreError where a file stands there already or none can be written.
void createAccessFile(std::wstring_view hostPath);

} // namespace odbc
