// The names by which a post tells its grips apart; compared with regard to case.
#pragma once

#include "AcAdesk.h"

inline constexpr const ACHAR* kGripMove = L"grip1";
inline constexpr const ACHAR* kGripTurn = L"grip2";
inline constexpr const ACHAR* kGripArmLength = L"grip3";
inline constexpr const ACHAR* kGripBend = L"grip4";
inline constexpr const ACHAR* kGripArmEnd = L"grip5";
inline constexpr const ACHAR* kGripNote = L"grip6";
inline constexpr const ACHAR* kGripResetNote = L"grip7";
inline constexpr const ACHAR* kGripTables = L"gripTables";
inline constexpr const ACHAR* kGripPostProps = L"gripPostProps";
inline constexpr const ACHAR* kGripAddLamp = L"gripAddLamp";
inline constexpr const ACHAR* kGripLampRot = L"gripLampRot";
inline constexpr const ACHAR* kGripLampEd = L"gripLampEd";
