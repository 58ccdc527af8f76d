// The named selection sets behind acedSSGet.
#pragma once

#include "AcDbObjectId.h"
#include "adsdef.h"

#include <optional>
#include <string>

// A set's name for an answer of a nested command, such as (sset 3); and the ids of such a text.
std::wstring edSetForm(const ads_name set);
std::optional<AcDbObjectIdArray> edSetOfForm(const std::wstring& text);
