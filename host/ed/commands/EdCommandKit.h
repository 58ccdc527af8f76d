// What the bodies of host commands share: the drawing they work on and asking for names and files.
#pragma once

#include "AcDbBlockReference.h"
#include "AcDbDatabase.h"
#include "AcUtText.h"
#include "core/EdDocuments.h"
#include "core/EdProperties.h"
#include "core/EdSysVars.h"
#include "input/EdInputStack.h"
#include "input/EdParse.h"
#include "input/EdPrompt.h"
#include "select/EdSelect.h"

#include <memory>
#include <optional>
#include <string>

// The path typed for a file, quotes taken off; nothing when the user gave up. Enter alone takes the
// default where there is one.
std::optional<std::wstring> edAskPath(const std::wstring& prompt, const std::wstring& byDefault = L"");
// The path with the ending added where it has none.
std::wstring edWithEnding(const std::wstring& path, const std::wstring& ending);
// Type and handle, above what a listing says of an object.
std::wstring edHeadOf(const AcDbEntity& entity);
inline AcGePoint2d edPoint2d(const AcGePoint3d& p) { return {p.x, p.y}; }
std::wstring edDegrees(double radians); // as a prompt shows an angle
