// Header variables of a drawing that have no row of their own: read by name.
#pragma once

#include "EdSysVars.h"

// Nothing where the current drawing has no such variable; the name in capitals.
std::optional<EdVar> edHeaderVar(const std::wstring& name);
