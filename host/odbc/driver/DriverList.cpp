#include "driver/DriverList.h"

#include "AcUtText.h"
#include "driver/MachineDrivers.h"
#include "session/FileSession.h"

#include <algorithm>

namespace odbc {

namespace {
bool same(std::wstring_view a, const wchar_t* b) {
    return acutWcsicmp(std::wstring(a).c_str(), b) == 0;
}

std::unique_ptr<Session> openFile(FileForm form, const ConnectString& connect, bool readOnly) {
    const std::wstring path = connect.value(L"DBQ");
    if (path.empty())
        throw StoreError("A kapcsolati szöveg nem nevez meg fájlt (DBQ).");
    return std::make_unique<FileSession>(form, path, readOnly || connect.isTrue(L"READONLY"));
}
} // namespace

std::vector<std::wstring> installedDrivers() {
    std::vector<std::wstring> names = {kAccessDriver, kExcelDriver};
    for (const std::string& machine : machineDrivers()) {
        const std::wstring name = acFromUtf8(machine);
        if (std::none_of(names.begin(), names.end(), [&](const std::wstring& known) { return same(known, name.c_str()); }))
            names.push_back(name);
    }
    return names;
}

bool isAccessDriver(std::wstring_view name) {
    return same(name, kAccessDriver);
}

std::unique_ptr<Session> openSession(const ConnectString& connect, bool readOnly) {
    const std::wstring driver = connect.value(L"DRIVER");
    if (isAccessDriver(driver))
        return openFile(FileForm::Access, connect, readOnly);
    if (same(driver, kExcelDriver))
        return openFile(FileForm::Workbook, connect, readOnly);
    if (driver.empty() && connect.value(L"DSN").empty())
        return nullptr;
    return openMachineSession(acToUtf8(connect.text()), readOnly);
}

} // namespace odbc
