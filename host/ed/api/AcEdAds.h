// The command-line functions of the editor. All ask the one Input object (EdInput.h).
#pragma once

#include "AcDbObject.h"
#include "AcUtText.h"

// ---- prompts. RTNORM, RTNONE (Enter alone where allowed), RTCAN, RTKWORD, RTERROR.
int acedPrompt(const ACHAR* text);
// cronly 0: the first blank ends the answer; else the whole line is the text. Result holds bufferLength characters.
int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result, std::size_t bufferLength = 133);
int acedGetPoint(const ads_point base, const ACHAR* prompt, ads_point result);
int acedGetCorner(const ads_point base, const ACHAR* prompt, ads_point result);
int acedGetAngle(const ads_point base, const ACHAR* prompt, double* radians);
int acedGetDist(const ads_point base, const ACHAR* prompt, double* distance);
int acedGetReal(const ACHAR* prompt, double* value);
int acedGetInt(const ACHAR* prompt, int* value);
int acedGetKword(const ACHAR* prompt, ACHAR* result, std::size_t bufferLength = 133);
// Options of the next prompt: bit 1 no null, 2 no zero, 4 no negative; words as L"Open Close".
int acedInitGet(int options, const ACHAR* keywords);
int acedGetInput(ACHAR* keyword, std::size_t bufferLength = 133); // the keyword after RTKWORD

// ---- entity and set selection
int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point pick);
int acedSSGet(const ACHAR* mode, const void* point1, const void* point2, const resbuf* filter, ads_name set);
int acedSSLength(const ads_name set, Adesk::Int32* length);
int acedSSName(const ads_name set, Adesk::Int32 index, ads_name entity);
int acedSSMemb(const ads_name entity, const ads_name set); // RTNORM for a member, else RTERROR
int acedSSAdd(const ads_name entity, const ads_name set, ads_name result);
int acedSSFree(ads_name set);
int acedSSSetFirst(const ads_name grips, const ads_name pickFirst);
// The pick-first selection. eNotApplicable when there is none.
Acad::ErrorStatus acedGetCurrentSelectionSet(AcDbObjectIdArray& ids);

// ---- variables: RTNORM or RTERROR. A text in the result is the caller's (acutDelString).
int acedGetVar(const ACHAR* name, resbuf* result);
int acedSetVar(const ACHAR* name, const resbuf* value);

// ---- commands
// Runs a host command now with the given (type, value) pairs as its answers, ended by RTNONE; a real answer by
// RTREAL, a point by RT3DPOINT or RTPOINT, a text by RTSTR, an entity by RTENAME.
int acedCommandS(int type, ...);
int acedCmdS(const resbuf* chain);
// Queues a form such as (command "_RIBBON") to run after the command that runs now.
void ads_queueexpr(const ACHAR* expression);
// Full path of the running module with backslashes.
const ACHAR* acedGetAppName();
// Colour index as red, green, blue in the low three bytes: 0x00BBGGRR.
Adesk::UInt32 acedGetRGB(int colorIndex);
int acedAlert(const ACHAR* text);
// True when the user asked to break off (Ctrl-C, or a line @cancel-at N before the command).
int acedUsrBrk();
void acedUpdateDisplay();
