// The prompts that select objects.
#pragma once

#include "AcDbDatabase.h"
#include "input/EdPrompt.h"

#include <functional>
#include <optional>
#include <string>

using EdAccept = std::function<bool(const AcDbEntity&)>;

// "Select objects:" until Enter. The pick-first set, where there is one, is taken instead. Nothing
// when the user cancelled or selected nothing.
std::optional<AcDbObjectIdArray> edSelectObjects(const std::wstring& prompt = L"Select objects: ", const EdAccept& accept = {}, bool usePickFirst = true);
// The same without those on locked layers, which are told of.
std::optional<AcDbObjectIdArray> edSelectForEdit();
// One object by a pick, L, or (handent "2F"). The keywords as in a prompt.
EdReply edSelectOne(const std::wstring& prompt, const std::wstring& keywords, AcDbObjectId& id, AcGePoint3d& pick);
// The object that (handent "2F") names; null for other texts and for unknown handles.
AcDbObjectId edEntityOfForm(const std::wstring& text);
// Ids without erased objects.
AcDbObjectIdArray edStanding(const AcDbObjectIdArray& ids);
