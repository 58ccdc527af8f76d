// The module's commands and the flags they share.
#pragma once

#include "AcRxArxApp.h"

extern bool trustedPathPending;   // the module folder is not yet in the host's trusted paths
extern bool crossingOnCyclePath;  // the type of the crossing that is placed next

// True when the module folder does not occur in the variable TRUSTEDPATHS.
bool isTrustedPathMissing();
// Adds the module folder to the trusted paths when it is absent.
void ensureTrustedPath();

inline constexpr const ACHAR* kCommandGroup = L"TrfcSignsARX";
inline constexpr const ACHAR* kEarlierCommandGroup = L"TrfcKorvant2007";
// The nineteen commands, in the order of their registration.
extern const AcRxCommandRow kCommandRows[];
extern const std::size_t kCommandCount;
