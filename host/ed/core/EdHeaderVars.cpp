#include "EdHeaderVars.h"

#include "DbObjectAccess.h"
#include "EdDocuments.h"

std::optional<EdVar> edHeaderVar(const std::wstring& name) {
    AcDbDatabase* const db = edDatabase();
    if (db == nullptr)
        return std::nullopt;
    const auto& header = DbObjectAccess::header(*db);
    const auto found = header.find(name);
    if (found == header.end())
        return std::nullopt;
    const DbHeaderValue& value = found->second;
    switch (value.kind) {
    case DbHeaderValue::kInt:
        return EdVar(static_cast<int>(value.integer));
    case DbHeaderValue::kDouble:
        return EdVar(value.real);
    case DbHeaderValue::kText:
        return EdVar(value.text);
    case DbHeaderValue::kPoint:
        return EdVar(value.point);
    case DbHeaderValue::kHandle:
        return EdVar(value.id.handle().text());
    }
    return std::nullopt;
}
