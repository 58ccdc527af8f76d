// The question before the state change deletes something.
#pragma once

class AcDbEntity;

// Highlights the entity, zooms to it and asks with OK and Cancel; true on OK. True at once, without a
// question, when confirmation is off in the state change data.
bool confirmDeletion(const AcDbEntity& entity, const wchar_t* question);
