// The step that the state change takes an object by; the same for every kind of object.
#pragma once

#include "AcAdesk.h"
#include "TrfcStateChangeData.h"

class AcDbEntity;

// The states that all kinds have in common, as filed.
enum TrfcState : Adesk::Int32 { kStateExisting = 0, kStatePlanned = 1, kStateToBeRemoved = 2 };

enum class TrfcStateStep { none, toExisting, toBeRemoved, deletion };
// One step from the state: a planned object that becomes existing does not go on in the same run.
TrfcStateStep stateStep(const TrfcStateColumn& column, int state);

// Highlights the entity, zooms to it and asks with OK and Cancel; true on OK. True at once, without a
// question, when confirmation is off in the state change data.
bool confirmDeletion(const AcDbEntity& entity, const wchar_t* question);
